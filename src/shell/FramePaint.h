// How the frames of the windows are painted: one recipe for the main window, one for the tool
// windows, and the pieces of the frame that show them.
#pragma once

#include <QPainterPath>
#include <QWidget>

#include <functional>

class QPainter;

namespace velorin {

// Width and height of the corner's ellipse in pixels; the visible radius is half of it.
constexpr int mainWindowEllipse = 25;
constexpr int splashEllipse = 35;
constexpr int toolWindowEllipse = 10;
constexpr int toolbarHintEllipse = 10;
constexpr int lessonHintEllipse = 26;

constexpr int toolTitleHeight = 28; ///< title band of a tool window, pixels

/// The outline of a window of `size` pixels.
[[nodiscard]] QPainterPath framePath(QSize size, double radius);

/// Paints the whole frame of the main window; radius 0 while it is maximised. The painter's origin
/// is the window's corner.
void paintMainFrame(QPainter& painter, QSize size, double radius);

/// Paints the whole frame of a tool window: body, title band, light line, outline.
void paintToolFrame(QPainter& painter, QSize size, double radius);

/// Paints the two lines that every window ends in: the inner light line and the outline.
void paintFrameLines(QPainter& painter, QSize size, double radius);

/// A plain strip of buttons, as `toolbMenu` is.
void paintStrip(QPainter& painter, QRect strip);

/// A strip with a border and round corners, as those of the Editing Toolbar are.
void paintRoundStrip(QPainter& painter, QRect strip);

/// The separator between two groups of buttons: one dark and one light pixel, at x and x + 1.
void paintSeparator(QPainter& painter, int x, int y, int height);

/// One of the pieces `Winedge`: paints the frame's recipe, moved by its own place, and so fits its
/// neighbours without a seam. It lets the mouse through to the window.
class FramePiece : public QWidget {
    Q_OBJECT

public:
    using Recipe = std::function<void(QPainter& painter, QSize windowSize)>;
    FramePiece(QWidget* window, const QString& name, Recipe recipe);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Recipe recipe_;
};

} // namespace velorin
