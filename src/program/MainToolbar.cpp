// The row of fourteen picture buttons under the title of the main window.
#include "program/MainToolbar.h"

#include "controls/ControlTable.h"
#include "controls/DescribedControls.h"
#include "shell/FramePaint.h"

#include <QIcon>
#include <QPainter>

namespace velorin {

namespace {

struct ButtonRow {
    const char* picture;
    int left;
};

// Clear, open, save | right click | transport | tools | help, exit.
constexpr std::array<ButtonRow, toolbarButtons + 1> buttonRows{{
    {},
    {"main-01-clear", 8},
    {"main-02-open", 46},
    {"main-03-save", 84},
    {"main-04-rightclick-erase", 134},
    {"main-05-rewind", 184},
    {"main-06-play", 222},
    {"main-07-stop", 260},
    {"main-08-panic", 298},
    {"main-09-setup", 348},
    {"main-10-editing", 386},
    {"main-11-recording", 424},
    {"main-12-tutorial", 462},
    {"main-13-help", 512},
    {"main-14-exit", 550},
}};

constexpr std::array<const char*, 3> rightClickPictures{
    "main-04-rightclick-erase", "main-04-rightclick-menu", "main-04-rightclick-polynote"};

constexpr std::array<int, 4> separators{127, 177, 341, 505};
constexpr int rightClickButton = 4;

} // namespace

MainToolbar::MainToolbar(QWidget* parent) : QWidget(parent) {
    setObjectName("toolbMenu");
    for (int i = 1; i <= toolbarButtons; ++i) {
        const ButtonRow& row = buttonRows[static_cast<std::size_t>(i)];
        auto* button = new PictureButton(this, elementName("Cmd2", i), QLatin1String(row.picture));
        button->setGeometry(row.left, 5, 36, 36);
        button->setIconSize(QSize(24, 24));
        Cmd2[static_cast<std::size_t>(i)] = button;
    }
}

void MainToolbar::showRightClickMode(int mode) {
    if (mode < 0 || mode >= static_cast<int>(rightClickPictures.size()))
        return;
    PictureButton* button = Cmd2[rightClickButton];
    button->setPicture(QLatin1String(rightClickPictures[static_cast<std::size_t>(mode)]));
    button->setToolTip(QLatin1String(rightClickTip(mode)));
    button->setProperty("pictureTip", button->toolTip());
    button->setAccessibleName(button->toolTip());
}

void MainToolbar::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    paintStrip(painter, rect());
    for (const int x : separators)
        paintSeparator(painter, x, 10, 26);
}

} // namespace velorin
