// The picture button of strips and titles.
#include "shell/PictureButton.h"

#include "shell/PlacedControls.h"

#include <QKeyEvent>
#include <QMouseEvent>

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
    // Space presses the button that has the keyboard; elsewhere in the window it plays and stops.
    if (event->type() == QEvent::ShortcutOverride &&
        static_cast<QKeyEvent*>(event)->key() == Qt::Key_Space) {
        event->accept();
        return true;
    }
    return QToolButton::event(event);
}

void PictureButton::mouseMoveEvent(QMouseEvent* event) {
    QToolButton::mouseMoveEvent(event);
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

void PictureButton::leaveEvent(QEvent* event) {
    QToolButton::leaveEvent(event);
    if (onLeave)
        onLeave();
}

} // namespace velorin
