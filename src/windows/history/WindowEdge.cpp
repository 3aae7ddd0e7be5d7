// An invisible handle that resizes a tool window.
#include "windows/history/WindowEdge.h"

#include "windows/frame/FramePaint.h"

#include <QMouseEvent>

namespace velorin {

namespace {

constexpr int edgeWidth = 7;
constexpr int cornerWidth = 18;

} // namespace

WindowEdge::WindowEdge(QWidget* window, Side side) : QWidget(window), side_(side) {
    setCursor(side == Side::right  ? Qt::SizeHorCursor
              : side == Side::foot ? Qt::SizeVerCursor
                                   : Qt::SizeFDiagCursor);
    setObjectName(side == Side::corner ? "grip" : "edge");
    follow();
}

void WindowEdge::follow() {
    const int w = window()->width();
    const int h = window()->height();
    switch (side_) {
    case Side::right:
        setGeometry(w - edgeWidth, toolTitleHeight, edgeWidth, h - toolTitleHeight - cornerWidth);
        break;
    case Side::foot:
        setGeometry(0, h - edgeWidth, w - cornerWidth, edgeWidth);
        break;
    case Side::corner:
        setGeometry(w - cornerWidth, h - cornerWidth, cornerWidth, cornerWidth);
        break;
    }
}

void WindowEdge::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton)
        return;
    isHeld_ = true;
    pressedAt_ = event->globalPosition().toPoint();
    sizeAtPress_ = window()->size();
}

void WindowEdge::mouseMoveEvent(QMouseEvent* event) {
    if (!isHeld_)
        return;
    const QPoint moved = event->globalPosition().toPoint() - pressedAt_;
    const int wider = side_ == Side::foot ? 0 : moved.x();
    const int higher = side_ == Side::right ? 0 : moved.y();
    window()->resize((sizeAtPress_ + QSize(wider, higher)).expandedTo(window()->minimumSize()));
}

void WindowEdge::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton)
        isHeld_ = false;
}

} // namespace velorin
