// What the window shows beside the pictures of the tableaux.
#include "windows/sheet/SheetMarks.h"

#include "drawing/CellGrid.h"
#include "model/NoteTables.h"
#include "studio/Studio.h"
#include "windows/frame/LookColors.h"
#include "windows/main/MusicTableau.h"
#include "windows/main/Picmain.h"
#include "windows/texts/SheetTexts.h"

#include <QEvent>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace velorin {

namespace {

constexpr int pitches = 128;
/// The bar lines and a note that was drawn there show through.
constexpr QColor outsideWash{70, 74, 110, 96};
constexpr QColor outsideName = look::ink650;
constexpr QColor nameColour = look::cream;
constexpr QColor navy{0, 0, 64};
constexpr QColor stripColour{192, 255, 192};
constexpr int nameMarginPx = 3;

QFont drumsFont() {
    QFont font = inkFont(8, 600, 7);
    font.setLetterSpacing(QFont::AbsoluteSpacing, -0.2);
    return font;
}

} // namespace

RowsOutside rowsOutside(const View& view, QSize tableau) {
    const auto lines = [&](int from, int to) {
        const int top = std::clamp(from * cellPx, 0, tableau.height());
        const int end = std::clamp(to * cellPx, 0, tableau.height());
        return end > top ? QRect(0, top, tableau.width(), end - top) : QRect();
    };
    const int lastLine = tableau.height() / cellPx + 1;
    return {lines(0, -view.TopPitch), lines(pitches - view.TopPitch, lastLine)};
}

int linesCovered(const QRect& strip, const QRect& names) {
    const int covered = std::min(strip.bottom(), names.bottom()) - names.top() + 1;
    return covered <= 0 ? 0 : (covered + cellPx / 2) / cellPx;
}

SheetMarks::SheetMarks(Studio& studio, Picmain& area, MusicTableau& music)
    : studio_(studio),
      area_(area),
      music_(music),
      nameFont_(inkFont(9, 500, 8)),
      drumsFont_(drumsFont()) {
    music_.onDrawn = [this] {
        feet_.update(studio_, area_.MusicBox->height() / cellPx + 1);
        if (onDrawn)
            onDrawn();
    };
    area_.MusicBox->paintAbove = [this](QPainter& painter) { paintMusic(painter); };
    area_.PicX->paintAbove = [this](QPainter& painter) { paintNames(painter); };
    area_.Beatbox->installEventFilter(this);
}

SheetMarks::~SheetMarks() {
    area_.Beatbox->removeEventFilter(this);
    area_.PicX->paintAbove = nullptr;
    area_.MusicBox->paintAbove = nullptr;
    music_.onDrawn = nullptr;
}

/// The names change when the strip gets another height, or comes or goes.
bool SheetMarks::eventFilter(QObject*, QEvent* event) {
    if (event->type() == QEvent::Resize || event->type() == QEvent::Move ||
        event->type() == QEvent::ShowToParent || event->type() == QEvent::HideToParent)
        area_.PicX->update();
    return false;
}

// A foot is painted in device pixels, rounded like the tail above it, so the two touch at every
// scale and never overlap.
void SheetMarks::paintMusic(QPainter& painter) {
    const double ratio = area_.MusicBox->picture.ratio();
    const auto device = [ratio](int logical) {
        return static_cast<int>(std::floor(logical * ratio + 0.5));
    };
    const RowsOutside outside = rowsOutside(studio_.view, area_.MusicBox->size());
    painter.fillRect(outside.above, outsideWash);
    painter.fillRect(outside.below, outsideWash);
    painter.save();
    painter.scale(1.0 / ratio, 1.0 / ratio);
    const int thicknessPx = std::max(1, static_cast<int>(std::floor(ratio)));
    for (const TailFoot& foot : feet_.all()) {
        const int left = device(foot.x);
        painter.fillRect(left, device(foot.y), device(foot.x + foot.widthPx) - left, thicknessPx,
                         toQColor(foot.colour));
    }
    painter.restore();
}

void SheetMarks::paintNames(QPainter& painter) {
    const RowsOutside outside = rowsOutside(studio_.view, area_.PicX->size());
    painter.fillRect(outside.above, outsideName);
    painter.fillRect(outside.below, outsideName);
    paintFurtherNames(painter);
    paintDrums(painter);
}

/// In a tall window more lines fit than the names column has names for.
void SheetMarks::paintFurtherNames(QPainter& painter) {
    const View& view = studio_.view;
    painter.setFont(nameFont_);
    painter.setPen(nameColour);
    const PictureBox& names = *area_.PicX;
    for (int line = view.VisibleRows + 1; (line + 1) * cellPx <= names.height(); ++line) {
        if (const std::optional<std::string> name = NoteName(view.TopPitch + line))
            painter.drawText(QRect(0, line * cellPx, names.width() - nameMarginPx, cellPx),
                             Qt::AlignRight | Qt::AlignVCenter, QString::fromStdString(*name));
    }
}

void SheetMarks::paintDrums(QPainter& painter) {
    const PictureBox& strip = *area_.Beatbox;
    const PictureBox& names = *area_.PicX;
    const int lines = strip.isHidden() ? 0 : linesCovered(strip.geometry(), names.geometry());
    if (lines == 0)
        return;
    const QRect place(0, 0, names.width(), lines * cellPx);
    painter.fillRect(place, navy);
    painter.setFont(drumsFont_);
    painter.setPen(stripColour);
    painter.drawText(place, Qt::AlignCenter, QString::fromLatin1(drumsName));
}

} // namespace velorin
