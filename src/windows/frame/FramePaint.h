// Paints the window frames: one function for the main window, one for the tool windows, and the
// frame pieces that show their parts.
#pragma once

#include "windows/frame/PaperPaint.h"

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

/// Paints the whole frame of the main window; radius 0 while it is maximised. The painter's origin
/// is the window's corner.
void paintMainFrame(QPainter& painter, QSize size, double radius);

/// Paints the whole frame of a tool window: body, title band, light line, outline.
void paintToolFrame(QPainter& painter, QSize size, double radius);

/// Paints the two lines at the edge of every window: the inner light line and the outline.
void paintFrameLines(QPainter& painter, QSize size, double radius);

/// Paints a plain strip of buttons, such as `toolbMenu`.
void paintStrip(QPainter& painter, QRect strip);

/// Paints a strip with a border and rounded corners, such as those of the Editing Toolbar.
void paintRoundStrip(QPainter& painter, QRect strip);

/// The separator between two groups of buttons: one dark and one light pixel, at x and x + 1.
void paintSeparator(QPainter& painter, int x, int y, int height);

/// One of the pieces `Winedge`. It paints its part of the whole frame, so it fits its neighbours
/// without a seam. Mouse events pass through to the window.
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
