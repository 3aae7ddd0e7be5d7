// Painting of the cards.
#include "windows/export/KindCard.h"

#include "windows/frame/LookColors.h"
#include "windows/frame/LookIcon.h"

#include <QEvent>
#include <QKeyEvent>
#include <QPainter>

namespace velorin {

namespace {

constexpr double radius = 6.0;
constexpr QRect pictureRect{36, 12, 32, 32};
constexpr int nameTop = 48;
constexpr int nameHeight = 18;
constexpr int nameSize = 12;
constexpr int noteTop = 65;
constexpr int noteHeight = 15;
constexpr int noteSize = 11;

/// A frame of a width, its outer edge `inset` inside the card.
void paintFrame(QPainter& painter, const QRect& card, double inset, double width,
                const QColor& colour) {
    const double half = inset + width / 2.0;
    painter.setPen(QPen(colour, width));
    painter.drawRoundedRect(QRectF(card).adjusted(half, half, -half, -half), radius - half,
                            radius - half);
}

} // namespace

KindCard::KindCard(const ExportKind& kind, QWidget* parent)
    : QAbstractButton(parent), kind_(kind), picture_(lookIcon(kind.picture)) {
    setText(QString::fromLatin1(kind.name));
    setCheckable(true);
    setAutoExclusive(true);
    setFocusPolicy(Qt::ClickFocus);
    // The Tab key stops at the chosen card only.
    connect(this, &QAbstractButton::toggled, this,
            [this](bool isChosen) { setFocusPolicy(isChosen ? Qt::StrongFocus : Qt::ClickFocus); });
    setAttribute(Qt::WA_Hover);
}

bool KindCard::event(QEvent* event) {
    if (event->type() == QEvent::HoverEnter || event->type() == QEvent::HoverLeave)
        update();
    return QAbstractButton::event(event);
}

void KindCard::keyPressEvent(QKeyEvent* event) {
    const int key = event->key();
    const bool isBack = key == Qt::Key_Left || key == Qt::Key_Up;
    const bool isOn = key == Qt::Key_Right || key == Qt::Key_Down;
    if (!isBack && !isOn)
        return QAbstractButton::keyPressEvent(event);
    if (onStep)
        onStep(isBack ? -1 : 1);
}

void KindCard::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const bool isHot = isEnabled() && underMouse() && !isChecked();
    QColor ground = isHot ? look::ink600 : isChecked() ? look::ink650 : look::ink800;
    if (!isEnabled())
        ground = look::ink700;
    painter.setPen(Qt::NoPen);
    painter.setBrush(ground);
    painter.drawRoundedRect(rect(), radius, radius);
    painter.setBrush(Qt::NoBrush);
    if (isChecked())
        paintFrame(painter, rect(), 0.0, 2.0, isEnabled() ? look::sky : look::edge2);
    else
        paintFrame(painter, rect(), 0.0, 1.0, isHot ? look::edge2 : look::line);
    if (hasFocus())
        paintFrame(painter, rect(), 4.0, 1.0, look::sky);
    const bool isDim = !isEnabled() && !isChecked();
    picture_.paint(&painter, pictureRect, Qt::AlignCenter, isDim ? QIcon::Disabled : QIcon::Normal);
    paintWords(painter);
}

void KindCard::paintWords(QPainter& painter) const {
    const bool isDim = !isEnabled() && !isChecked();
    QFont words = font();
    words.setPixelSize(nameSize);
    words.setWeight(QFont::DemiBold);
    painter.setFont(words);
    const QColor name = hasFocus() ? QColor(Qt::white) : isChecked() ? look::cream : look::mist;
    painter.setPen(isDim ? look::edge2 : name);
    painter.drawText(QRect(0, nameTop, width(), nameHeight), Qt::AlignCenter, text());
    words.setPixelSize(noteSize);
    words.setWeight(QFont::Normal);
    painter.setFont(words);
    painter.setPen(isDim ? look::edge2 : look::mist2);
    painter.drawText(QRect(0, noteTop, width(), noteHeight), Qt::AlignCenter,
                     QString::fromLatin1(kind_.note));
}

} // namespace velorin
