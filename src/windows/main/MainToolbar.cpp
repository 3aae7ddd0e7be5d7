// `toolbMenu`, the row of fourteen picture buttons under the title of the main window.
#include "windows/main/MainToolbar.h"

#include "platform/CheckedArray.h"
#include "windows/frame/FramePaint.h"
#include "windows/texts/ControlTable.h"
#include "windows/texts/DescribedControls.h"

#include <QIcon>
#include <QPainter>

#include <array>
#include <utility>

namespace velorin {

namespace {

struct ButtonRow {
    const char* picture;
    int left;
};

// Clear, open, save | right click | transport | tools | help, exit.
constexpr platform::CheckedArray<ButtonRow, mainButton::last + 1> buttonRows{{
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

constexpr platform::CheckedArray<const char*, 3> rightClickPictures{
    "main-04-rightclick-erase", "main-04-rightclick-menu", "main-04-rightclick-polynote"};

constexpr std::array<int, 4> separators{127, 177, 341, 505};
constexpr int rightClickButton = 4;

} // namespace

MainToolbar::MainToolbar(QWidget* parent) : QWidget(parent) {
    setObjectName("toolbMenu");
    for (int i = 1; i <= mainButton::last; ++i) {
        const ButtonRow& row = buttonRows[i];
        auto* button = new PictureButton(this, elementName("Cmd2", i), QLatin1String(row.picture));
        button->setGeometry(row.left, 5, 36, 36);
        button->setIconSize(QSize(24, 24));
        Cmd2[i] = button;
    }
}

void MainToolbar::showRightClickMode(int mode) {
    if (mode < 0 || mode >= rightClickPictures.size())
        return;
    PictureButton* button = Cmd2[rightClickButton];
    button->setPicture(QLatin1String(rightClickPictures[mode]));
    button->setToolTip(QLatin1String(rightClickTip(mode)));
    button->setProperty("pictureTip", button->toolTip());
    button->setAccessibleName(button->toolTip());
}

void MainToolbar::showSeparators(std::vector<int> lefts) {
    if (moreSeparators_ == lefts)
        return;
    moreSeparators_ = std::move(lefts);
    update();
}

int MainToolbar::firstCut() const {
    for (int i = 1; i <= mainButton::last; ++i)
        if (Cmd2[i]->geometry().right() >= width())
            return i;
    return mainButton::last + 1;
}

const char* mainButtonPicture(int index) {
    return buttonRows[index].picture;
}

/// The Tab key passes by the buttons that are cut. The menu of the strip's arrow has them.
void MainToolbar::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    const int cut = firstCut();
    for (int i = 1; i <= mainButton::last; ++i)
        Cmd2[i]->setFocusPolicy(i < cut ? Qt::TabFocus : Qt::NoFocus);
}

void MainToolbar::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    paintStrip(painter, rect());
    for (const int x : separators)
        paintSeparator(painter, x, 10, 26);
    for (const int x : moreSeparators_)
        paintSeparator(painter, x, 10, 26);
}

} // namespace velorin
