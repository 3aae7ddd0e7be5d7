// The picture button of strips and titles.
#pragma once

#include <QToolButton>

#include <functional>

namespace velorin {

/// The button of the strip and of the title: flat, with a plate under the pointer. It tells of the
/// pointer even while no button is held, and keeps the space key for itself while it has the
/// keyboard.
class PictureButton : public QToolButton {
    Q_OBJECT

public:
    PictureButton(QWidget* parent, const QString& name, const QString& picture);

    /// A picture of the look by its file's name, with its disabled variant.
    void setPicture(const QString& picture);

    std::function<void(int button)> onMouseMove; ///< the button held, 0 for none, 1 for the left
    std::function<void()> onMouseDown;
    /// Of any button that was pressed here, wherever it is let go; after the click, if it is one.
    std::function<void()> onMouseUp;
    /// Whether a click comes of the mouse, and `onMouseUp` follows.
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
