// How the record image, the label button and the progress bar look and answer.
#include "recording/RecordWidgets.h"

#include "controls/ScreenReader.h"
#include "resources/LookColors.h"
#include "shell/PlacedControls.h"

#include <QKeyEvent>
#include <QLinearGradient>
#include <QMouseEvent>
#include <QPainter>
#include <QTimerEvent>

#include <algorithm>

namespace velorin {

namespace {

constexpr double trackRadius = 6.0;
constexpr int paintPauseMs = 30;

void paintTrack(QPainter& painter, const QRect& track, const QBrush& fill) {
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(look::line, 1.0));
    painter.setBrush(fill);
    painter.drawRoundedRect(QRectF(track).adjusted(0.5, 0.5, -0.5, -0.5), trackRadius, trackRadius);
}

} // namespace

RecordImage::RecordImage(QWidget* parent)
    : QAbstractButton(parent),
      pictures_{lookIcon("rec-up"), lookIcon("rec-pressed"), lookIcon("rec-recording")} {
    setFocusPolicy(Qt::TabFocus);
}

void RecordImage::show(RecordPicture picture) {
    picture_ = picture;
    update();
}

RecordPicture RecordImage::picture() const {
    return isDown() ? RecordPicture::RecDN : picture_;
}

void RecordImage::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    pictures_[static_cast<std::size_t>(picture())].paint(
        &painter, rect(), Qt::AlignCenter, isEnabled() ? QIcon::Normal : QIcon::Disabled);
    if (!hasFocus())
        return;
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(look::sky, 2.0));
    painter.drawEllipse(QRectF(rect()).adjusted(1, 1, -1, -1));
}

LabelButton::LabelButton(const QString& text, QWidget* parent) : QLabel(text, parent) {
    setProperty("role", "button");
    setAlignment(Qt::AlignCenter);
    setFocusPolicy(Qt::TabFocus);
    setStyleSheet(QStringLiteral("QLabel:focus { border: 2px solid #44CCFF; padding: 2px 9px; }"));
}

void LabelButton::enterEvent(QEnterEvent* event) {
    setStyled(*this, "hot", true);
    QLabel::enterEvent(event);
}

void LabelButton::leaveEvent(QEvent* event) {
    setStyled(*this, "hot", false);
    QLabel::leaveEvent(event);
}

void LabelButton::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton)
        setStyled(*this, "down", true);
    event->accept();
}

void LabelButton::mouseReleaseEvent(QMouseEvent* event) {
    const bool wasDown = property("down").toBool();
    event->accept();
    if (event->button() != Qt::LeftButton)
        return;
    setStyled(*this, "down", false);
    if (wasDown && rect().contains(event->position().toPoint()))
        Q_EMIT clicked();
}

void LabelButton::keyPressEvent(QKeyEvent* event) {
    const bool presses = event->key() == Qt::Key_Space || event->key() == Qt::Key_Return ||
                         event->key() == Qt::Key_Enter;
    if (presses && !event->isAutoRepeat())
        Q_EMIT clicked();
    else
        QLabel::keyPressEvent(event);
}

StatusLabel::StatusLabel(QWidget* parent) : QLabel(parent) {}

void StatusLabel::setCaption(const QString& caption) {
    caption_ = caption;
    if (pause_.isActive() || caption_ == text())
        return;
    setText(caption_);
    pause_.start(paintPauseMs, this);
}

void StatusLabel::timerEvent(QTimerEvent* event) {
    if (event->timerId() != pause_.timerId())
        return QLabel::timerEvent(event);
    pause_.stop();
    setCaption(caption_); // what has changed meanwhile
}

ProgressTrack::ProgressTrack(QWidget* parent) : QWidget(parent) {}

void ProgressTrack::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    paintTrack(painter, rect(), look::ink900);
}

ProgressBar::ProgressBar(ProgressTrack* track) : QLabel(track) {
    setGeometry(0, 0, 1, track->height());
}

void ProgressBar::setBarWidth(int widthPx) {
    resize(widthPx, height());
    const int whole = parentWidget()->width();
    if (whole > 0)
        tellReadersProgress(*parentWidget(), std::clamp(100 * widthPx / whole, 0, 100));
}

void ProgressBar::paintEvent(QPaintEvent*) {
    if (width() <= 1)
        return;
    QPainter painter(this);
    QLinearGradient fill(0, 0, 0, height());
    fill.setColorAt(0, QColor(110, 220, 255));
    fill.setColorAt(1, QColor(40, 160, 214));
    // The whole track, of which the bar shows its part: so their round ends are one.
    paintTrack(painter, parentWidget()->rect(), fill);
}

} // namespace velorin
