// What the window system tells the main window: its size, its painting, its end, the mouse on its
// ground and on its handles, the wheel.
#include "program/Form1.h"
#include "program/Program.h"
#include "score/Studio.h"

#include <QCloseEvent>
#include <QPainter>
#include <QWheelEvent>

namespace velorin {

void Form1::resizeEvent(QResizeEvent*) {
    layOutTitle();
    frame.SkinMainWindow(program_.frames.WindowResizable == 1 ? flagSet : flagClear);
    Form_Resize();
}

void Form1::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    frame.paintFrameGround(painter);
}

void Form1::closeEvent(QCloseEvent* event) {
    event->ignore();
    Command3_Click();
}

/// A press on the ground itself: the left button drags the window, the right one opens a menu. One
/// that comes up from a locked tableau is not on the ground.
void Form1::mousePressEvent(QMouseEvent* event) {
    if (childAt(event->position().toPoint()) != nullptr)
        return;
    if (event->button() == Qt::RightButton && studio_.run.RightClickMode == rightClick::menu)
        popupCommand1();
    else
        drag_->DragWindow(event->buttons(), event->globalPosition().toPoint());
}

/// The wheel over the tableaux turns the scroll bars: three lines, or three columns with Shift.
void Form1::wheelEvent(QWheelEvent* event) {
    const QPoint turned = event->angleDelta();
    const bool sideways = turned.x() != 0 || event->modifiers().testFlag(Qt::ShiftModifier);
    QScrollBar* bar = sideways ? area->HScroll1 : area->VScroll1;
    const int steps = 3 * (turned.x() + turned.y()) / QWheelEvent::DefaultDeltasPerStep;
    if (bar->isEnabled() && steps != 0)
        bar->setValue(bar->value() - steps);
    event->accept();
}

bool Form1::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Leave &&
        (watched == area->PicX || watched == area->TopBarOverlay)) {
        program_.hints.unload();
        return false;
    }
    const bool isPress = event->type() == QEvent::MouseButtonPress;
    if (!isPress && event->type() != QEvent::MouseButtonRelease)
        return false;
    for (int i = 0; i < static_cast<int>(frame.Resizer.size()); ++i) {
        if (watched != frame.Resizer[static_cast<std::size_t>(i)])
            continue;
        if (isPress)
            Resizer_MouseDown(i);
        else
            Resizer_MouseUp(i);
        return true;
    }
    return false;
}

} // namespace velorin
