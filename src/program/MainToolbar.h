// The row of fourteen picture buttons under the title of the main window.
#pragma once

#include "shell/PictureButton.h"

#include <QWidget>

#include <array>

namespace velorin {

/// Number of the last button; they count from 1.
constexpr int toolbarButtons = 14;

/// `toolbMenu`: paints the strip and its separators, and makes the buttons.
class MainToolbar : public QWidget {
    Q_OBJECT

public:
    explicit MainToolbar(QWidget* parent);

    /// Button 4 shows what a right click does: mode [0, 3).
    void showRightClickMode(int mode);

    /// `Cmd2`, and `ImgPic` as well; index 0 is null. The tip of the picture is the button's
    /// property "pictureTip": a hint takes the tip of `Cmd2` away, and leaves that one.
    std::array<PictureButton*, toolbarButtons + 1> Cmd2{};

protected:
    void paintEvent(QPaintEvent* event) override;
};

/// The height of the strip, in pixels.
constexpr int toolbarHeight = 46;

} // namespace velorin
