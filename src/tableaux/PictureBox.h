// A picture control: a widget that shows a drawing surface and hands its mouse events on as plain
// data.
#pragma once

#include "tableaux/Picture.h"

#include <QWidget>

#include <functional>

namespace velorin {

// Mouse pointers of a picture control, as the program numbers them.
constexpr int pointerDefault = 0;
constexpr int pointerCross = 2;
constexpr int pointerUpArrow = 10;
constexpr int pointerOwn = 99; ///< the control's own cursor image, the pen

/// Mouse buttons as the handlers get them.
constexpr int noButton = 0;
constexpr int leftButton = 1;
constexpr int rightButton = 2;

/// The picture always has the size of the widget. Drawing into `picture` shows after `update`,
/// which the caller may leave to the control: whatever is drawn through `paint...` marks what it
/// touched.
class PictureBox : public QWidget {
    Q_OBJECT

public:
    PictureBox(QWidget* parent, const QString& name, Colour ground,
               FillStyle style = FillStyle::transparent, Colour fill = 0);

    Picture picture;

    /// Sets the geometry; a negative size is refused whole, and nothing changes. Returns whether it
    /// was done.
    bool place(int x, int y, int widthPx, int heightPx);

    [[nodiscard]] int MousePointer() const { return pointer_; }
    void setMousePointer(int pointer);

    /// Called with the button (of a move: the button held, 0 for none), the shift state and the
    /// place in pixels.
    std::function<void(int button, int shift, double x, double y)> onMouseDown;
    std::function<void(int button, int shift, double x, double y)> onMouseMove;
    std::function<void(int button, int shift, double x, double y)> onMouseUp;

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    int pointer_ = pointerDefault;
};

} // namespace velorin
