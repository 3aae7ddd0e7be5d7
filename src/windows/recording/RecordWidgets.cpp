// Painting and events of the record image, the label button and the status text.
#include "windows/recording/RecordWidgets.h"

#include "platform/PathLookup.h"
#include "platform/Text.h"
#include "windows/frame/LookColors.h"
#include "windows/frame/LookIcon.h"
#include "windows/frame/PlacedControls.h"
#include "windows/texts/ScreenReader.h"

#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QTimerEvent>
#include <QToolTip>

#include <algorithm>

namespace velorin {

namespace {

constexpr int paintPauseMs = 100;

class PathTip : public QObject {
public:
    explicit PathTip(QLineEdit& box) : QObject(&box), box_(box) { box.installEventFilter(this); }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() != QEvent::ToolTip)
            return QObject::eventFilter(watched, event);
        const std::string name = platform::trimBlanks(box_.text().toStdString());
        const auto place = static_cast<const QHelpEvent*>(event)->globalPos();
        if (!name.empty())
            QToolTip::showText(place, QString::fromStdString(platform::resolve(name).string()),
                               &box_);
        return true;
    }

private:
    QLineEdit& box_;
};

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
    setCaption(caption_); // shows the latest caption
}

void showPathInTip(QLineEdit& box) {
    new PathTip(box); // owned by the box
}

} // namespace velorin
