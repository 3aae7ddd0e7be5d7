// The coloured controls of a row.
#include "windows/frame/RowButton.h"

#include "model/Cell.h"
#include "windows/frame/LookColors.h"
#include "windows/texts/ScreenReader.h"

#include <QIcon>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

#include <array>

namespace velorin {

namespace {

struct RowLook {
    const char* face;
    bool dark; ///< a dark colour: the digit is white
};

constexpr std::array<RowLook, scoreRows> looks{{
    {"1", false},
    {"2", true},
    {"3", false},
    {"4", false},
    {"5", false},
    {"6", false},
    {"7", false},
    {"8", false},
    {"1", true},
    {"R", false},
    {"2", true},
    {"3", true},
    {"4", false},
}};

const RowLook& lookOf(int row) {
    return looks.at(static_cast<std::size_t>(row));
}

QColor toColor(Colour colour) {
    return {static_cast<int>(colour & 0xFF), static_cast<int>((colour >> 8) & 0xFF),
            static_cast<int>((colour >> 16) & 0xFF)};
}

constexpr QColor faceEdge{255, 255, 255, 150};

void paintFace(QPainter& painter, const QRectF& face, const QColor& fill, const QColor& border) {
    painter.setPen(QPen(border, 1.0));
    painter.setBrush(fill);
    painter.drawRoundedRect(face.adjusted(0.5, 0.5, -0.5, -0.5), 4, 4);
}

void paintDigit(QPainter& painter, const QRectF& face, int row, int pixelSize) {
    QFont bold = painter.font();
    bold.setPixelSize(pixelSize);
    bold.setWeight(QFont::Bold);
    painter.setFont(bold);
    painter.setPen(lookOf(row).dark ? Qt::white : Qt::black);
    painter.drawText(face, Qt::AlignCenter, rowFace(row));
}

void paintRing(QPainter& painter, const QRectF& box, const QColor& colour) {
    painter.setPen(QPen(colour, 2.0));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(box, 6, 6);
}

} // namespace

QString rowFace(int row) {
    return QString::fromLatin1(lookOf(row).face);
}

void paintRowFace(QPainter& painter, const QRect& place, int row) {
    paintFace(painter, QRectF(place), toColor(channelColors[row]), faceEdge);
    paintDigit(painter, QRectF(place), row, 12);
}

RowButton::RowButton(QWidget* parent, int row, Colour colour)
    : QAbstractButton(parent), row_(row), colour_(toColor(colour)) {
    setProperty("backColor", colour_);
    setCheckable(true);
    setMouseTracking(true);
    setAttribute(Qt::WA_Hover);
    setFocusPolicy(Qt::TabFocus);
}

void RowButton::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    if (!isEnabled()) {
        painter.setOpacity(0.35); // the row is hidden
    }
    const QRectF face = QRectF(rect()).adjusted(ring, ring, -ring, -ring);
    const QColor fill = isDown() ? colour_.darker(115) : colour_;
    paintFace(painter, face, fill, underMouse() && isEnabled() ? QColor(Qt::white) : faceEdge);
    paintDigit(painter, face, row_, 12);
    const QRectF around = QRectF(rect()).adjusted(1, 1, -1, -1);
    if (hasFocus()) {
        paintRing(painter, around, look::sky);
    } else if (isChecked()) {
        paintRing(painter, around, look::cream);
    }
}

void RowButton::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton && onPress) {
        onPress();
    }
}

void RowButton::mouseReleaseEvent(QMouseEvent*) {
    // The press has done everything.
}

void RowButton::mouseMoveEvent(QMouseEvent*) {
    if (onMove) {
        onMove();
    }
}

void RowButton::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Space && !event->isAutoRepeat()) {
        if (onPress) {
            onPress();
        }
        return;
    }
    QAbstractButton::keyPressEvent(event);
}

void RowButton::keyReleaseEvent(QKeyEvent* event) {
    if (event->key() != Qt::Key_Space) {
        QAbstractButton::keyReleaseEvent(event);
    }
}

RowCheck::RowCheck(QWidget* parent, int row, Colour colour)
    : QAbstractButton(parent), row_(row), colour_(toColor(colour)) {
    setProperty("backColor", colour_);
    setCheckable(true);
    setAttribute(Qt::WA_Hover);
    setFocusPolicy(Qt::StrongFocus);
}

void RowCheck::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF face(rect());
    paintFace(painter, face, isDown() ? colour_.darker(115) : colour_,
              underMouse() ? QColor(Qt::white) : faceEdge);
    if (isChecked()) {
        const QRect middle(QPoint((width() - 16) / 2, (height() - 16) / 2), QSize(16, 16));
        QIcon(lookOf(row_).dark ? ":/look/glyph-check-white.svg" : ":/look/glyph-check-ink.svg")
            .paint(&painter, middle);
    }
    if (hasFocus()) {
        painter.setPen(QPen(look::sky, 2.0));
        painter.setBrush(Qt::NoBrush);
        painter.drawRoundedRect(face.adjusted(1, 1, -1, -1), 4, 4);
    }
}

RowChip::RowChip(QWidget* parent, int row, Colour colour)
    : QWidget(parent), row_(row), colour_(toColor(colour)) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    showToReaders(*this, ControlKind::picture);
    setAccessibleName(QLatin1String(rowName(row)));
}

void RowChip::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    paintFace(painter, QRectF(rect()), colour_, faceEdge);
    constexpr int lowChip = 16; // pixels
    paintDigit(painter, QRectF(rect()), row_, height() < lowChip ? 10 : 12);
}

} // namespace velorin
