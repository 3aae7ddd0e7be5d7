// The row of fourteen picture buttons under the title of the main window.
#pragma once

#include <QToolButton>
#include <QWidget>

#include <array>
#include <functional>

namespace velorin {

/// Number of the last button; they count from 1.
constexpr int toolbarButtons = 14;

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
    std::function<void()> onLeave;

protected:
    bool event(QEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
};

/// `toolbMenu`: paints the strip and its separators, and makes the buttons.
class MainToolbar : public QWidget {
    Q_OBJECT

public:
    explicit MainToolbar(QWidget* parent);

    /// Button 4 shows what a right click does: mode [0, 3).
    void showRightClickMode(int mode);

    /// `Cmd2`, and `ImgPic` as well; index 0 is null.
    std::array<PictureButton*, toolbarButtons + 1> Cmd2{};

protected:
    void paintEvent(QPaintEvent* event) override;
};

/// The height of the strip, in pixels.
constexpr int toolbarHeight = 46;

} // namespace velorin
