// The frame of a window without a window system frame: eight painted pieces, rounded corners and,
// on the main window, eight invisible handles.
#pragma once

#include "platform/CheckedArray.h"
#include "studio/View.h"
#include "windows/frame/FramePaint.h"
#include "windows/frame/WindowDrag.h"

#include <QRect>

#include <array>
#include <cstdint>

class QPainter;

namespace velorin {

class WindowPlace;

/// Shared by the frames of all windows.
struct FrameState {
    std::int16_t WindowResizable = 0; ///< 1 if the last `SkinMainWindow` had its flag set
    std::int16_t RegionCount = 0;     ///< how many times a region was set

    void countRegion(); ///< stops at the largest number
};

enum class FrameKind { main, tool };

/// A window's place and size in twips.
struct TwipsRect {
    float left = 0.0F;
    float top = 0.0F;
    float width = 0.0F;
    float height = 0.0F;
};

/// The pieces and handles are children of the window. The window paints the area between the pieces
/// with `paintFrameGround`. `ellipse` is the diameter of the rounded corners, in pixels.
class SkinnedFrame {
public:
    SkinnedFrame(QWidget& window, FrameKind kind, int ellipse, FrameState& state);

    /// Lays out the pieces. With the flag set it also shows and places the handles.
    void SkinMainWindow(Flag resizable);
    void SkinToolWindow();
    /// Lets mouse events pass through the handles of a maximised window: it has no edge to drag,
    /// and its handles may cover controls. Call it when the window's state has changed.
    void holdHandles();
    void ApplyWindowRegion();

    /// Moves the window's edges by what the pointer moved, in pixels. `handle` [0, 8).
    void ResizeByHandle(WindowPlace& place, QPoint moved, int handle);

    /// Paints the parts of the window that no piece covers.
    void paintFrameGround(QPainter& painter) const;

    /// Named "Winedge(0)" and so on; mouse events pass through them to the window.
    std::array<QWidget*, 8> Winedge{};
    /// Named "Resizer(0)" and so on, in the order of `handleRect`; hidden until they are placed.
    /// Empty on tool windows.
    platform::CheckedArray<QWidget*, 8> Resizer{};

private:
    void layOutPieces();
    void placeResizers();
    [[nodiscard]] int ellipse() const;
    void paint(QPainter& painter, QSize size) const;

    QWidget& window_;
    FrameKind kind_;
    int ellipse_;
    FrameState& state_;
};

/// The rectangle of frame piece `index` [0, 8) in a window of size `window`: top-left, top-right,
/// top, left, bottom-left, bottom, bottom-right, right.
[[nodiscard]] QRect frameRect(FrameKind kind, int index, QSize window);

/// The rectangle of handle `index` [0, 8): left edge, right, top, bottom, bottom-right corner,
/// bottom-left, top-right, top-left.
[[nodiscard]] QRect handleRect(int index, QSize window);

/// The window after handle `index` was dragged by `moved` pixels, at least of the minimum size.
///
/// Rule: a handle at the left or the top moves that edge by the whole drag even if the size stops
/// at its minimum, so the window moves on. Held by shell/frame_states.
[[nodiscard]] TwipsRect resizedByHandle(TwipsRect window, int index, QPoint moved);

/// The minimum size that `ResizeByHandle` gives, in pixels.
constexpr int minimumWidthPx = 57;
constexpr int minimumHeightPx = 90;

} // namespace velorin
