// The frame of a window without a window system frame: its pieces, handles and region.
#include "windows/frame/SkinnedFrame.h"

#include "platform/Desktop.h"
#include "windows/frame/WindowPlace.h"
#include "windows/texts/DescribedControls.h"

#include <QPainter>
#include <QWidget>

#include <algorithm>
#include <limits>

namespace velorin {

namespace {

// The main window's frame, in pixels:
//
//        20                        W
//   +-0-+------------2-----------+-1-+
//   |---+                        +---|  22, 30
//   3                                7
//   |   <- 26               24 ->    |
//   |---+                        +---|  H - 30
//   +-4-+------------5-----------+-6-+
//
QRect mainFrameRect(int index, int w, int h) {
    switch (index) {
    case 0:
        return {-1, 0, 30, 30};
    case 1:
        return {w - 30, -2, 30, 30};
    case 2:
        return {20, -2, w - 19, 27};
    case 3:
        return {0, 22, 26, h - 38};
    case 4:
        return {-1, h - 30, 30, 30};
    case 5:
        return {20, h - 26, w - 40, 26};
    case 6:
        return {w - 30, h - 30, 30, 30};
    case 7:
        return {w - 24, 22, 24, h - 52};
    default:
        return {};
    }
}

/// Sides and foot of a tool window.
constexpr int toolEdge = 8;

QRect toolFrameRect(int index, int w, int h) {
    switch (index) {
    case 0:
        return {0, 0, toolEdge, toolTitleHeight};
    case 1:
        return {w - toolEdge, 0, toolEdge, toolTitleHeight};
    case 2:
        return {toolEdge, 0, w - 2 * toolEdge, toolTitleHeight};
    case 3:
        return {0, toolTitleHeight, toolEdge, h - toolTitleHeight - toolEdge};
    case 4:
        return {0, h - toolEdge, toolEdge, toolEdge};
    case 5:
        return {toolEdge, h - toolEdge, w - 2 * toolEdge, toolEdge};
    case 6:
        return {w - toolEdge, h - toolEdge, toolEdge, toolEdge};
    case 7:
        return {w - toolEdge, toolTitleHeight, toolEdge, h - toolTitleHeight - toolEdge};
    default:
        return {};
    }
}

Qt::CursorShape handleCursor(int index) {
    constexpr Qt::CursorShape shapes[8] = {
        Qt::SizeHorCursor,   Qt::SizeHorCursor,   Qt::SizeVerCursor,   Qt::SizeVerCursor,
        Qt::SizeFDiagCursor, Qt::SizeBDiagCursor, Qt::SizeBDiagCursor, Qt::SizeFDiagCursor};
    return shapes[index];
}

} // namespace

SkinnedFrame::SkinnedFrame(QWidget& window, FrameKind kind, int ellipse, FrameState& state)
    : window_(window), kind_(kind), ellipse_(ellipse), state_(state) {
    for (std::size_t i = 0; i < Winedge.size(); ++i) {
        Winedge[i] =
            new FramePiece(&window, elementName("Winedge", static_cast<int>(i)),
                           [this](QPainter& painter, QSize size) { paint(painter, size); });
    }
    if (kind == FrameKind::tool)
        return;
    for (int i = 0; i < Resizer.size(); ++i) {
        Resizer[i] = new QWidget(&window);
        Resizer[i]->setObjectName(elementName("Resizer", i));
        Resizer[i]->setCursor(handleCursor(i));
        Resizer[i]->hide();
    }
}

int SkinnedFrame::ellipse() const {
    return window_.isMaximized() ? 0 : ellipse_;
}

// Rule: `WindowResizable` belongs to all frames together: opening the Tutorial Wizard clears it,
// and the next change of the main window's size sets it again. Held by shell/handles_at_the_edges.
void SkinnedFrame::SkinMainWindow(Flag resizable) {
    layOutPieces();
    state_.WindowResizable = resizable.isSet() ? 1 : 0;
    if (resizable.isSet())
        placeResizers();
    holdHandles();
    ApplyWindowRegion();
}

void SkinnedFrame::holdHandles() {
    for (QWidget* handle : Resizer)
        if (handle != nullptr)
            handle->setAttribute(Qt::WA_TransparentForMouseEvents, window_.isMaximized());
}

void SkinnedFrame::SkinToolWindow() {
    layOutPieces();
    ApplyWindowRegion();
}

void SkinnedFrame::layOutPieces() {
    for (std::size_t i = 0; i < Winedge.size(); ++i) {
        Winedge[i]->setGeometry(frameRect(kind_, static_cast<int>(i), window_.size()));
        Winedge[i]->update();
    }
}

void SkinnedFrame::placeResizers() {
    for (int i = 0; i < Resizer.size(); ++i) {
        if (Resizer[i] == nullptr)
            return;
        Resizer[i]->setGeometry(handleRect(i, window_.size()));
        Resizer[i]->show();
    }
}

void FrameState::countRegion() {
    if (RegionCount < std::numeric_limits<std::int16_t>::max())
        ++RegionCount;
}

void SkinnedFrame::ApplyWindowRegion() {
    state_.countRegion();
    velorin::ApplyWindowRegion(window_, ellipse());
}

void SkinnedFrame::paint(QPainter& painter, QSize size) const {
    if (kind_ == FrameKind::main)
        paintMainFrame(painter, size, ellipse() / 2.0);
    else
        paintToolFrame(painter, size, ellipse() / 2.0);
}

void SkinnedFrame::ResizeByHandle(WindowPlace& place, QPoint moved, int handle) {
    const TwipsRect present{place.Left(), place.Top(), place.Width(), place.Height()};
    const TwipsRect next = resizedByHandle(present, handle, moved);
    place.moveTo(next.left, next.top);
    place.resizeTo(next.width, next.height);
    SkinMainWindow(flagSet);
}

void SkinnedFrame::paintFrameGround(QPainter& painter) const {
    QRegion free(window_.rect());
    for (const QWidget* piece : Winedge)
        free -= piece->geometry();
    painter.save();
    painter.setClipRegion(free, Qt::IntersectClip);
    paint(painter, window_.size());
    painter.restore();
}

QRect frameRect(FrameKind kind, int index, QSize window) {
    return kind == FrameKind::main ? mainFrameRect(index, window.width(), window.height())
                                   : toolFrameRect(index, window.width(), window.height());
}

QRect handleRect(int index, QSize window) {
    const int w = window.width();
    const int h = window.height();
    switch (index) {
    case 0:
        return {0, 20, 10, h - 40};
    case 1:
        return {w - 10, 30, 10, h - 50};
    case 2:
        return {19, 0, w - 39, 10};
    case 3:
        return {19, h - 10, w - 39, 10};
    case 4:
        return {w - 20, h - 20, 20, 20};
    case 5:
        return {0, h - 20, 20, 20};
    case 6:
        return {w - 20, 0, 20, 20};
    case 7:
        return {0, 0, 20, 20};
    default:
        return {};
    }
}

TwipsRect resizedByHandle(TwipsRect window, int index, QPoint moved) {
    struct Shares {
        int left, top, width, height;
    };
    constexpr Shares shares[8] = {
        {1, 0, -1, 0}, // left edge
        {0, 0, 1, 0},  // right edge
        {0, 1, 0, -1}, // top edge
        {0, 0, 0, 1},  // bottom edge
        {0, 0, 1, 1},  // bottom-right corner
        {1, 0, -1, 1}, // bottom-left corner
        {0, 1, 1, -1}, // top-right corner
        {1, 1, -1, -1} // top-left corner
    };
    if (index < 0 || index >= 8)
        return window;
    const Shares& share = shares[index];
    const auto dx = static_cast<float>(moved.x() * platform::twipsPerPixel);
    const auto dy = static_cast<float>(moved.y() * platform::twipsPerPixel);
    window.left += dx * static_cast<float>(share.left);
    window.top += dy * static_cast<float>(share.top);
    window.width += dx * static_cast<float>(share.width);
    window.height += dy * static_cast<float>(share.height);
    constexpr float smallestWidth = minimumWidthPx * platform::twipsPerPixel;
    constexpr float smallestHeight = minimumHeightPx * platform::twipsPerPixel;
    window.width = std::max(window.width, smallestWidth);
    window.height = std::max(window.height, smallestHeight);
    return window;
}

} // namespace velorin
