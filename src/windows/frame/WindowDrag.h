// Moves and shapes windows without a desktop frame: the drag by the title, the top-most state, the
// rounded outline.
#pragma once

#include <QObject>
#include <QPoint>

class QMouseEvent;
class QWidget;

namespace velorin {

/// Puts a window above all others, or back among them. It stays visible with its place, its size
/// and its focus.
void SetTopMost(QWidget& window, bool topmost);
[[nodiscard]] bool isTopMost(const QWidget& window);

/// Clips the window to a rounded rectangle. `ellipse` is the width and height of the corner's
/// ellipse in pixels; 0 removes the clip. Pixels that the outline only touches stay, so a
/// compositor shows the smooth edge, and a desktop without one shows the dark outline.
void ApplyWindowRegion(QWidget& window, int ellipse);

/// Moves a window by presses on the widgets it watches. The window follows the pointer itself until
/// the button is released. A desktop that is asked to move it grabs the pointer a moment later, and
/// misses a release that came before. On Wayland the program cannot place its windows, so there the
/// desktop is asked. A maximised window does not move.
class WindowDrag : public QObject {
    Q_OBJECT

public:
    explicit WindowDrag(QWidget* window); ///< owned by the window

    /// A press of the left button on `handle` drags the window from now on.
    void watch(QWidget* handle);

    /// Starts a drag at a place on the screen. Does nothing while the right button is down. Returns
    /// true if a drag has begun. The caller must then pass on the moves and the release that
    /// follow.
    bool DragWindow(Qt::MouseButtons buttons, QPoint place);
    void move(const QMouseEvent& pointer);
    void release(const QMouseEvent& pointer);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void follow(const QMouseEvent& pointer);

    QWidget* window_;
    bool following_ = false;
    QPoint grip_; ///< the pointer's place in the window, while dragged
};

/// Makes a press of the left button on `title` drag its window.
void makeDragHandle(QWidget& title);

} // namespace velorin
