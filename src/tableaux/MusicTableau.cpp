// The music tableau in its window: names, bar numbers, and the pixels that are saved and put back.
#include "tableaux/MusicTableau.h"

#include "platform/Desktop.h"
#include "platform/Text.h"
#include "score/Studio.h"
#include "tableaux/CellGrid.h"
#include "tableaux/NoteTables.h"
#include "tableaux/Picmain.h"

#include <QPainter>

namespace velorin {

namespace {

constexpr int rowStripPx = 15;    ///< higher than a cell, so that a disc and its edge are saved too
constexpr int columnStripPx = 13; ///< wider than a cell, for the same reason
constexpr int markerPx = 4;
constexpr Colour markerColour = rgb(255, 192, 192);
constexpr Colour nameColour = rgb(255, 255, 192);
constexpr int nameMarginPx = 3;
constexpr int firstBarPx = 32;
constexpr int lastHiddenBar = 12;

} // namespace

void MusicTableau::DrawNoteArray() {
    ++draws_;
    drawNoteArray(area_.MusicBox->picture, area_.BlueBox, area_.RedBox, studio_);
}

void MusicTableau::DrawNoteNames() {
    View& view = studio_.view;
    PictureBox& names = *area_.PicX;
    names.setVisible(true);
    names.picture.Cls();
    names.place(names.x(), area_.MusicBox->y(), names.width(), names.height());
    names.place(names.x(), names.y(), names.width(), area_.MusicBox->height() - 1);

    if (!nameFont_)
        nameFont_ = inkFont(9, 500, 8);
    QImage& canvas = names.picture.canvas();
    QPainter painter;
    const bool paints = !canvas.isNull() && painter.begin(&canvas);
    if (paints) {
        painter.setFont(*nameFont_);
        painter.setPen(toQColor(nameColour));
    }
    for (int i = 0; i <= view.VisibleRows; ++i) {
        const std::optional<std::string> name = NoteName(view.TopPitch + i);
        if (!name)
            continue;
        const auto line = static_cast<std::size_t>(i);
        if (line < view.SharpRow.size())
            view.SharpRow[line] = name->back() == '#' ? flagSet : flagClear;
        if (paints)
            painter.drawText(QRect(0, i * cellPx, names.width() - nameMarginPx, cellPx),
                             Qt::AlignRight | Qt::AlignVCenter, QString::fromStdString(*name));
    }
}

/// A number at every fourth column. Of the labels, 14 does not exist and none comes after 18: what
/// falls on them stays without a number.
void MusicTableau::DrawBarNumbers() {
    const View& view = studio_.view;
    const auto label = [this](std::size_t k) {
        return k < area_.TopBar.size() ? area_.TopBar[k] : nullptr;
    };
    std::size_t k = 0;
    for (int column = view.FirstColumn; column <= view.LastVisibleColumn; ++column) {
        if (column % columnsOfBar != 0)
            continue;
        if (InkLabel* bar = label(k)) {
            bar->setVisible(true);
            bar->move((column - view.FirstColumn) * cellPx + firstBarPx, bar->y());
            bar->setCaption(QString::number(column + 1));
            if (const InkLabel* before = k > 0 ? label(k - 1) : nullptr)
                bar->move(bar->x(), before->y());
        }
        ++k;
    }
    // Only to 12: the labels behind it, once a wide window has shown them, stay.
    for (; k <= lastHiddenBar; ++k)
        label(k)->setVisible(false);
}

void MusicTableau::GetRow(int line) {
    const Picture& music = area_.MusicBox->picture;
    area_.SwapScreen.BitBlt(0, 0, music.ScaleWidth(), rowStripPx, music, 0, line * cellPx);
}

void MusicTableau::PutRow(int line) {
    Picture& music = area_.MusicBox->picture;
    music.BitBlt(0, line * cellPx, music.ScaleWidth(), rowStripPx, area_.SwapScreen, 0, 0);
}

void MusicTableau::GetColumn(int column) {
    const Picture& music = area_.MusicBox->picture;
    area_.SwapScreen.BitBlt(0, 0, columnStripPx, music.ScaleHeight(), music, column * cellPx, 0);
}

void MusicTableau::PutColumn(int column) {
    Picture& music = area_.MusicBox->picture;
    music.BitBlt(column * cellPx, 0, columnStripPx, area_.SwapScreen.ScaleHeight(),
                 area_.SwapScreen, 0, 0);
}

void MusicTableau::GetBox() {
    const Picture& music = area_.MusicBox->picture;
    area_.SwapScreen.BitBlt(0, 0, music.ScaleWidth(), music.ScaleHeight(), music, 0, 0);
}

void MusicTableau::PutBox() {
    Picture& music = area_.MusicBox->picture;
    music.BitBlt(0, 0, music.ScaleWidth(), music.ScaleHeight(), area_.SwapScreen, 0, 0);
}

void MusicTableau::drawPlayMarker(int offset) {
    Picture& music = area_.MusicBox->picture;
    music.fillStyle = FillStyle::solid;
    music.fillColor = markerColour;
    music.fillBox(offset * cellPx, 0, offset * cellPx + markerPx - 1, music.ScaleHeight() - 1,
                  markerColour);
    music.fillStyle = FillStyle::transparent;
}

/// The place is in pixels already, and it is taken for twips and divided by 16 where a cell has 12:
/// the marker goes at most a few columns right of the first one, wherever the strip is clicked.
void MusicTableau::TopBarOverlay_MouseDown(int, int, double x, double) {
    if (studio_.run.IsPlaying != flagClear)
        return;
    if (const auto pixels = platform::toInt16(x / platform::twipsPerPixel))
        if (const auto column = platform::toInt16(*pixels / 16 + studio_.view.FirstColumn))
            studio_.score.StartColumn = *column;
    DrawNoteArray();
}

} // namespace velorin
