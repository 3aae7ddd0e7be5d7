// What the window system tells the main window: its size, its painting, its end, the mouse on its
// ground and on its handles, the wheel.
#include "program/Form1.h"
#include "program/Program.h"
#include "score/Studio.h"

#include <QCloseEvent>
#include <QPainter>
#include <QWheelEvent>
#include <QWindow>

#include <cstdlib>
#include <utility>

namespace velorin {

/// Whatever sized the window, its handles go with its edges; those of a maximised window stay as
/// the last call has them. A size that the window system restores later than it was asked to
/// changes nothing of what the restoring has set.
void Form1::resizeEvent(QResizeEvent*) {
    layOutTitle();
    const std::int16_t before = program_.frames.WindowResizable;
    frame.SkinMainWindow(!isMaximized() || before == 1 ? flagSet : flagClear);
    if (!isMaximized() && std::exchange(restoring_, false))
        program_.frames.WindowResizable = before;
    Form_Resize();
}

void Form1::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::WindowStateChange) {
        frame.holdHandles();
        takeToolWindowsAlong();
    }
}

void Form1::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    windowHandle()->installEventFilter(this); // tells when the window is off the screen
}

/// Not before the window has gone: where nobody takes it away, the tool windows stay too.
void Form1::takeToolWindowsAlong() {
    if (!isMinimized())
        program_.group.showWithMain();
    else if (isMinimised())
        program_.group.hideWithMain();
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

void Form1::mouseMoveEvent(QMouseEvent* event) {
    drag_->move(*event);
}

void Form1::mouseReleaseEvent(QMouseEvent* event) {
    drag_->release(*event);
}

/// The wheel over the tableaux turns the scroll bars: three lines, or three columns with Shift. On
/// a touchpad a finger never goes quite straight; the way that it goes further counts.
void Form1::wheelEvent(QWheelEvent* event) {
    event->accept();
    const QPoint turned = event->angleDelta();
    const bool isAcross = std::abs(turned.x()) > std::abs(turned.y());
    const bool sideways = isAcross || event->modifiers().testFlag(Qt::ShiftModifier);
    QScrollBar* bar = sideways ? area->HScroll1 : area->VScroll1;
    if (!bar->isEnabled())
        return;
    WheelTurn& turn = sideways ? columnsTurned_ : linesTurned_;
    const int steps = turn.steps(3 * (isAcross ? turned.x() : turned.y()));
    if (steps != 0)
        bar->setValue(bar->value() - steps);
}

bool Form1::eventFilter(QObject* watched, QEvent* event) {
    if (watched == windowHandle()) {
        if (event->type() == QEvent::Expose)
            takeToolWindowsAlong();
        return false;
    }
    if (watched == area->Beatbox)
        return chooseStripByKey(*event);
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
