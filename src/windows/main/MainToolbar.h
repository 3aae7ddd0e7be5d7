// `toolbMenu`, the row of fourteen picture buttons under the title of the main window.
#pragma once

#include "platform/CheckedArray.h"
#include "windows/frame/PictureButton.h"
#include "windows/texts/ButtonNumbers.h"

#include <QWidget>

#include <vector>

namespace velorin {

/// Paints the strip and its separators, and makes the buttons.
class MainToolbar : public QWidget {
    Q_OBJECT

public:
    explicit MainToolbar(QWidget* parent);

    /// Shows on button 4 what a right click does: mode [0, 3).
    void showRightClickMode(int mode);

    /// Paints these separators beside those of the fourteen buttons, x in pixels.
    void showSeparators(std::vector<int> lefts);
    /// The number of the first button that the right edge of the strip cuts; one after the last if
    /// it cuts none.
    [[nodiscard]] int firstCut() const;

    /// `Cmd2`, and also `ImgPic`; index 0 is null. The tool tip of the picture is the button's
    /// property "pictureTip". A hint removes the tip of `Cmd2` and not that one.
    platform::CheckedArray<PictureButton*, mainButton::last + 1> Cmd2{};

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    std::vector<int> moreSeparators_;
};

/// The picture of a button [1, 14], by its file name in the look.
[[nodiscard]] const char* mainButtonPicture(int index);

/// The height of the strip, in pixels.
constexpr int toolbarHeight = 46;

} // namespace velorin
