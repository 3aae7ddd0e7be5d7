// A picture control: a widget that shows a drawing surface and passes its mouse events on as plain
// data.
#pragma once

#include "drawing/Picture.h"

#include <QCursor>
#include <QWidget>

#include <functional>

class QPainter;

namespace velorin {

// The numbers of the mouse pointers of a picture control.
constexpr int pointerDefault = 0;
constexpr int pointerCross = 2;
constexpr int pointerUpArrow = 10;
constexpr int pointerOwn = 99; ///< the control's own cursor image, the pen

// The numbers of the mouse buttons.
constexpr int noButton = 0;
constexpr int leftButton = 1;
constexpr int rightButton = 2;
constexpr int middleButton = 4;

/// The picture has the size of the widget if that is set with `place`. What is drawn into `picture`
/// is shown at the next turn of the event loop. The object name is the control's name. A control
/// that got the focus by the Tab key shows a focus ring, which is not part of the picture.
class PictureBox : public QWidget {
    Q_OBJECT

public:
    PictureBox(QWidget* parent, const QString& name, Colour ground,
               FillStyle style = FillStyle::transparent, Colour fill = 0);

    Picture picture;

    /// Sets the geometry, also of a hidden control. Returns false and changes nothing if a size is
    /// negative. A picture that gets another size is cleared to its ground colour.
    bool place(int x, int y, int widthPx, int heightPx);

    [[nodiscard]] int MousePointer() const { return pointer_; }
    void setMousePointer(int pointer);
    /// Sets what pointer 99 shows; a cross until then.
    void setOwnCursor(const QCursor& cursor);

    /// The pen is shown in the control, which then has no focus ring. When the pen goes, the ring
    /// shows, as the keyboard is used.
    void setHasPen(bool hasPen);

    /// Makes the control take mouse events only: it paints nothing and keeps no pixels.
    void paintNothing();

    /// Paints above the picture and is no part of it, in pixels of the control. May be empty.
    std::function<void(QPainter& painter)> paintAbove;

    /// Called with the button (for a move the held one: 0 for none, the left one if both are held),
    /// the sum of the modifier keys (1 shift, 2 control, 4 alt) and the place in pixels.
    std::function<void(int button, int shift, double x, double y)> onMouseDown;
    std::function<void(int button, int shift, double x, double y)> onMouseMove;
    std::function<void(int button, int shift, double x, double y)> onMouseUp;

    /// Called after `onMouseDown`: the focus moves only after the press was handled.
    std::function<void()> onPressed;
    std::function<void()> onGotFocus;
    std::function<void()> onLostFocus;

    /// Called after the control moved to a screen of another scale: the picture is empty and must
    /// be drawn again.
    std::function<void()> onRescaled;

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    void fitPicture();
    void showTouched(const QRect& touched);

    int pointer_ = pointerDefault;
    bool paints_ = true;
    bool hasRing_ = false; ///< the focus came by the Tab key
    bool hasPen_ = false;
    bool hadRing_ = false; ///< it had the ring when it last lost the focus
    QCursor ownCursor_{Qt::CrossCursor};
};

} // namespace velorin
