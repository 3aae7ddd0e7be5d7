// A picture control: a widget that shows a drawing surface and hands its mouse events on as plain
// data.
#pragma once

#include "tableaux/Picture.h"

#include <QCursor>
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
constexpr int middleButton = 4;

/// The picture always has the size of the widget, as long as that is set through `place`. Whatever
/// is drawn into `picture` shows by itself at the next turn of the event loop. The object name is
/// the control's name. Reached by the Tab key it shows a ring of focus, which is no part of the
/// picture.
class PictureBox : public QWidget {
    Q_OBJECT

public:
    PictureBox(QWidget* parent, const QString& name, Colour ground,
               FillStyle style = FillStyle::transparent, Colour fill = 0);

    Picture picture;

    /// Sets the geometry; a negative size is refused whole, and nothing changes. Returns whether it
    /// was done. Works on a hidden control too. A picture that gets another size is all ground.
    bool place(int x, int y, int widthPx, int heightPx);

    [[nodiscard]] int MousePointer() const { return pointer_; }
    void setMousePointer(int pointer);
    /// What pointer 99 shows; a cross until it is given.
    void setOwnCursor(const QCursor& cursor);

    /// Makes the control a mere catcher of the mouse: it paints nothing and keeps no pixels.
    void paintNothing();

    /// Called with the button (of a move: the button held, 0 for none, the left one if both are),
    /// the shift state (1 shift, 2 control, 4 alt, added) and the place in pixels.
    std::function<void(int button, int shift, double x, double y)> onMouseDown;
    std::function<void(int button, int shift, double x, double y)> onMouseMove;
    std::function<void(int button, int shift, double x, double y)> onMouseUp;

    /// Called after `onMouseDown`: the focus moves only when the press has been handled.
    std::function<void()> onPressed;
    std::function<void()> onGotFocus;
    std::function<void()> onLostFocus;

    /// Called when the control came to a screen of another scale: the picture is empty and is to be
    /// drawn anew.
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
    bool hasRing_ = false; ///< the focus came by a key
    bool hadRing_ = false; ///< it had the ring when it last lost the focus
    QCursor ownCursor_{Qt::CrossCursor};
};

} // namespace velorin
