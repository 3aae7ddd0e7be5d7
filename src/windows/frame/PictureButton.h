// The picture button of toolbars and title bars.
#pragma once

#include <QToolButton>

#include <functional>

namespace velorin {

/// A flat button that shows a plate under the pointer. It reports moves of the pointer even while
/// no mouse button is held. While it has the focus it takes the space key.
class PictureButton : public QToolButton {
    Q_OBJECT

public:
    PictureButton(QWidget* parent, const QString& name, const QString& picture);

    /// Sets a picture of the look by its file name, with its disabled variant.
    void setPicture(const QString& picture);

    std::function<void(int button)> onMouseMove; ///< held button: 0 none, 1 left, 2 right
    std::function<void()> onMouseDown;
    /// Called for any mouse button that was pressed here, wherever it is released; after the click,
    /// if there is one.
    std::function<void()> onMouseUp;
    /// True during a click by the mouse; `onMouseUp` then follows.
    [[nodiscard]] bool isReleasing() const { return releasing_; }
    std::function<void()> onLeave;

protected:
    bool event(QEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;

private:
    bool releasing_ = false;
};

} // namespace velorin
