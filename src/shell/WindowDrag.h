// Moving and shaping windows that have no frame of the desktop's: the drag by the title, the
// top-most state, the rounded outline.
#pragma once

#include <QObject>
#include <QPoint>

class QMouseEvent;
class QWidget;

namespace velorin {

/// Puts a window above all others, or among them again. It stays on the screen with its place and
/// its size, and neither takes the focus nor loses it.
void SetTopMost(QWidget& window, bool topmost);
[[nodiscard]] bool isTopMost(const QWidget& window);

/// Cuts the window to a rounded rectangle; `ellipse` is the width and height of the corner's
/// ellipse in pixels, 0 takes the cut away. Pixels that the outline only touches stay, so that a
/// compositor sees the smooth edge, and a desktop without one the dark outline.
void ApplyWindowRegion(QWidget& window, int ellipse);

/// Moves a window by presses on the widgets it watches. The window follows the pointer by itself
/// until the button is up: a desktop that is asked to move it takes hold of the pointer a moment
/// later, and never learns of a release that came before. Only where the program cannot place its
/// windows the desktop is asked all the same. A maximised window stays.
class WindowDrag : public QObject {
    Q_OBJECT

public:
    explicit WindowDrag(QWidget* window); ///< owned by the window

    /// A press of the left button on `handle` drags the window from now on.
    void watch(QWidget* handle);

    /// Starts a drag at a place on the screen. Does nothing while the right button is down. Returns
    /// whether a drag has begun. Who calls it hands on the moves and the release that follow.
    bool DragWindow(Qt::MouseButtons buttons, QPoint place);
    void move(const QMouseEvent& pointer);
    void release(const QMouseEvent& pointer);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void follow(const QMouseEvent& pointer);

    QWidget* window_;
    bool following_ = false;
    QPoint grip_; ///< the pointer's place in the window, while it follows
};

/// Makes a press of the left button on `title` drag its window.
void makeDragHandle(QWidget& title);

} // namespace velorin
