// The frame of a window that has none of the window system: eight painted pieces, rounded corners
// and, on the main window, eight invisible handles.
#pragma once

#include "score/View.h"
#include "shell/FramePaint.h"
#include "shell/WindowDrag.h"

#include <QPainterPath>
#include <QWidget>

#include <array>
#include <cstdint>
#include <functional>

namespace velorin {

/// Shared by the frames of all windows.
struct FrameState {
    std::int16_t WindowResizable = 0; ///< 1 if the last `SkinMainWindow` had its flag set
    std::int16_t RegionCount = 0;     ///< how many times a region was set
};

enum class FrameKind { main, tool };

/// Belongs to its window. `ellipse` is the diameter of the rounded corners, in pixels.
class SkinnedFrame {
public:
    SkinnedFrame(QWidget& window, FrameKind kind, int ellipse, FrameState& state);

    /// Lays out the pieces, and with the flag set shows and places the handles.
    void SkinMainWindow(Flag resizable);
    void SkinToolWindow();
    void ApplyWindowRegion();

    /// Moves the edges by what the pointer moved, in pixels. `handle` [0, 8).
    void ResizeByHandle(QPoint moved, int handle);

    /// Named "Winedge(0)" and so on; they let the mouse through to the window.
    std::array<QWidget*, 8> Winedge{};
    /// Named "Resizer(0)" and so on, in the order of `handleRect`; hidden until they are placed.
    std::array<QWidget*, 8> Resizer{};

private:
    void layOutPieces();
    void placeResizers();

    QWidget& window_;
    FrameKind kind_;
    int ellipse_;
    FrameState& state_;
};

/// The rectangle of frame piece `index` [0, 8) in a window of that size: top-left, top-right, top,
/// left, bottom-left, bottom, bottom-right, right.
[[nodiscard]] QRect frameRect(FrameKind kind, int index, QSize window);

/// The rectangle of handle `index` [0, 8): left edge, right, top, bottom, bottom-right corner,
/// bottom-left, top-right, top-left.
[[nodiscard]] QRect handleRect(int index, QSize window);

/// The rectangle of a window after handle `index` was dragged by `moved`, with the limits applied.
[[nodiscard]] QRect resizedByHandle(QRect window, int index, QPoint moved);

/// The smallest window that `ResizeByHandle` leaves, in pixels.
constexpr int minimumWidthPx = 57;
constexpr int minimumHeightPx = 90;

/// The outline of a window with round corners of that diameter.
[[nodiscard]] QPainterPath windowOutline(QSize window, int ellipse);

/// Paints the whole frame of a window; each piece shows its part of it.
void paintFrame(QPainter& painter, FrameKind kind, QSize window, int ellipse);

} // namespace velorin
