// The picture button of toolbars and title bars.
#include "windows/frame/PictureButton.h"

#include "windows/frame/LookIcon.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPointer>

namespace velorin {

PictureButton::PictureButton(QWidget* parent, const QString& name, const QString& picture)
    : QToolButton(parent) {
    setObjectName(name);
    setPicture(picture);
    setFocusPolicy(Qt::TabFocus);
    setMouseTracking(true);
}

void PictureButton::setPicture(const QString& picture) {
    setIcon(lookIcon(picture));
}

bool PictureButton::event(QEvent* event) {
    // Space presses the focused button. Elsewhere in the window it plays and stops the song.
    if (event->type() == QEvent::ShortcutOverride &&
        static_cast<QKeyEvent*>(event)->key() == Qt::Key_Space) {
        event->accept();
        return true;
    }
    return QToolButton::event(event);
}

// The move is accepted, so the widget below the button does not get it.
void PictureButton::mouseMoveEvent(QMouseEvent* event) {
    QToolButton::mouseMoveEvent(event);
    event->accept();
    if (onMouseMove)
        onMouseMove(event->buttons().testFlag(Qt::LeftButton)    ? 1
                    : event->buttons().testFlag(Qt::RightButton) ? 2
                                                                 : 0);
}

void PictureButton::mousePressEvent(QMouseEvent* event) {
    if (onMouseDown)
        onMouseDown();
    QToolButton::mousePressEvent(event);
}

void PictureButton::mouseReleaseEvent(QMouseEvent* event) {
    const QPointer<PictureButton> self(this);
    releasing_ = true;
    QToolButton::mouseReleaseEvent(event);
    if (!self) // the click may have closed the window
        return;
    releasing_ = false;
    if (onMouseUp)
        onMouseUp();
}

void PictureButton::leaveEvent(QEvent* event) {
    QToolButton::leaveEvent(event);
    if (onLeave)
        onLeave();
}

} // namespace velorin
