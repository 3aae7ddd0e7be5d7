// An invisible handle that resizes a tool window by its right edge, its lower edge or the corner.
#pragma once

#include <QPoint>
#include <QSize>
#include <QWidget>

namespace velorin {

/// Follows the pointer itself, so the window has the size at which the button is released. The
/// window's least size holds.
class WindowEdge : public QWidget {
    Q_OBJECT

public:
    enum class Side { right, foot, corner };

    WindowEdge(QWidget* window, Side side);

    /// Call it when the window has its size.
    void follow();

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    Side side_;
    QPoint pressedAt_; ///< on the screen
    QSize sizeAtPress_;
    bool isHeld_ = false;
};

} // namespace velorin
