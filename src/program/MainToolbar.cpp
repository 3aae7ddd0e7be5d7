// The row of fourteen picture buttons under the title of the main window.
#include "program/MainToolbar.h"

#include "shell/FramePaint.h"
#include "shell/Hints.h"
#include "shell/Shortcuts.h"

#include <QIcon>
#include <QPainter>

namespace velorin {

namespace {

struct ButtonRow {
    const char* picture;
    const char* tip;            ///< empty where none is stored
    const char* accessibleName; ///< the tip, or a word where there is none
    int left;
};

// Clear, open, save | right click | transport | tools | help, exit.
constexpr std::array<ButtonRow, toolbarButtons + 1> buttonRows{{
    {},
    {"main-01-clear", "Clear all notes", "Clear all notes", 8},
    {"main-02-open", "Open Score File (sng)", "Open Score File (sng)", 46},
    {"main-03-save", "Save as  Score (sng) or MIDI file (mid)",
     "Save as  Score (sng) or MIDI file (mid)", 84},
    {"main-04-rightclick-erase", "Erase note on right-click", "Erase note on right-click", 134},
    {"main-05-rewind", "Return to Start", "Return to Start", 184},
    {"main-06-play", "Play notes", "Play notes", 222},
    {"main-07-stop", "", "Stop", 260},
    {"main-08-panic", "Stop all sound", "Stop all sound", 298},
    {"main-09-setup", "", "Setup", 348},
    {"main-10-editing", "Editing Toolbar", "Editing Toolbar", 386},
    {"main-11-recording", "Recording Toolbar", "Recording Toolbar", 424},
    {"main-12-tutorial", "Tutorial ", "Tutorial ", 462},
    {"main-13-help", "", "Help", 512},
    {"main-14-exit", "", "Exit", 550},
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
        auto* button =
            new PictureButton(this, QStringLiteral("Cmd2(%1)").arg(i), QLatin1String(row.picture));
        button->setGeometry(row.left, 5, 36, 36);
        button->setIconSize(QSize(24, 24));
        button->setToolTip(QLatin1String(row.tip));
        button->setProperty("pictureTip", QLatin1String(row.tip));
        button->setAccessibleName(QLatin1String(row.accessibleName));
        button->setAccessibleDescription(shortcutsOf(shortcuts, i));
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
