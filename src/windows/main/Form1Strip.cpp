// The free part of the main window's strip: its buttons, its menu, and what the line of state says.
#include "platform/MessageLoop.h"
#include "session/Session.h"
#include "windows/frame/ToolWindows.h"
#include "windows/help/frminfo.h"
#include "windows/main/Form1.h"
#include "windows/strip/PressWatch.h"
#include "windows/strip/StateLine.h"
#include "windows/strip/StateWatch.h"
#include "windows/strip/StripTools.h"
#include "windows/texts/ButtonNumbers.h"
#include "windows/texts/ControlTable.h"
#include "windows/texts/KeyTable.h"

#include <QTimer>

#include <array>

namespace velorin {

namespace {

constexpr int stripHintBelow = 44; ///< below the top of a button, pixels

/// The entries for described buttons that the edge of the window cuts. They are short: the menu is
/// narrow.
constexpr std::array<const char*, mainButton::last + 1> cutCaptions{"",
                                                                    "Clear All",
                                                                    "Open",
                                                                    "Save",
                                                                    "Right click",
                                                                    "Return to Start",
                                                                    "Play",
                                                                    "Stop",
                                                                    "Stop all sound",
                                                                    "Setup",
                                                                    "Editing Toolbar",
                                                                    "Recording Toolbar",
                                                                    "Tutorial",
                                                                    "Help",
                                                                    "Exit"};

QString keysOfButton(int index) {
    if (index == mainButton::help)
        return QLatin1String(helpKey.keys);
    return QString::fromStdString(keysOf("Form1", "Cmd2(" + std::to_string(index) + ")"));
}

} // namespace

void Form1::connectStrip() {
    strip->enable = [this](QWidget& button, bool enabled) {
        windows_.focus.enable(button, enabled);
    };
    strip->onCommand = [this](StripCommand command) { runStripCommand(command); };
    strip->onCutButton = [this](int index) { runCutButton(index); };
    strip->cutButtons = [this] {
        std::vector<OverflowEntry> cut;
        for (int i = toolbMenu->firstCut(); i <= mainButton::last; ++i)
            cut.push_back({QLatin1String(cutCaptions.at(static_cast<std::size_t>(i))),
                           keysOfButton(i), QLatin1String(mainButtonPicture(i)), true, i});
        return cut;
    };
    std::vector<PictureButton*> hinted(strip->buttons.begin(), strip->buttons.end());
    hinted.insert(hinted.end(), {strip->arrow, strip->arrowInTitle});
    for (PictureButton* const button : hinted) {
        button->onMouseDown = [this] { hints.unload(); };
        button->onLeave = [this] { hints.unload(); };
        button->onMouseMove = [this, button](int held) { showStripHint(*button, held); };
        button->installEventFilter(this);
    }
    for (QWidget* const box :
         {static_cast<QWidget*>(area->MusicBox), static_cast<QWidget*>(area->Beatbox),
          static_cast<QWidget*>(area->Pic1)})
        state->followPointer(box);
}

/// The hint begins with the tip, which changes with the history, and the tip stays.
void Form1::showStripHint(PictureButton& button, int held) {
    if (held == leftButton || Check3->isChecked() || button.isDown())
        return;
    const std::string text =
        button.toolTip().toStdString() + "\r\n" + controlHint(button.objectName().toStdString());
    hints.showHint(&button, text, button.mapToGlobal(QPoint(0, stripHintBelow)));
}

void Form1::layOutStrip() {
    const StripPlan plan = stripPlan(width());
    strip->layOut(plan, width());
    std::vector<int> separators;
    if (plan.hasSeparator)
        separators.push_back(stripSeparatorLeft);
    if (plan.hasLine)
        separators.push_back(lineSeparatorLeft);
    toolbMenu->showSeparators(std::move(separators));
    Picture2->setVisible(plan.hasWordMark);
}

void Form1::runStripCommand(StripCommand command) {
    if (studio_.run.LoadingMain.isSet())
        return;
    state->beginPress();
    if (command == StripCommand::exporting)
        return runFileCommand(FileCommand::exportScore);
    if (!onHistoryKey)
        return;
    onHistoryKey(command == StripCommand::undo   ? HistoryCommand::undo
                 : command == StripCommand::redo ? HistoryCommand::redo
                                                 : HistoryCommand::show);
}

/// The help button opens a menu of one entry; here that entry is chosen already.
void Form1::runCutButton(int index) {
    if (index == mainButton::help)
        openHelpByKey(helpKey);
    else
        Cmd2_Click(index);
}

void Form1::pressTableau(Tableau where, int button, double x, double y,
                         const std::function<void()>& handler) {
    state->beginPress();
    if (onTableauPress)
        onTableauPress();
    const Press press = presses_->before(where, button, x, y);
    handler();
    if (studio_.platform.loop.isEnding())
        return;
    state->say(presses_->after(press));
    state->takeStock();
    pressedColumn_ = studio_.drag.MouseColumn;
}

/// A click in select mode selects one column. A user who wants to draw does not expect that.
void Form1::releaseTableau(int button, const std::function<void()>& handler) {
    const bool wasHeld = studio_.drag.MouseHeld.isSet();
    handler();
    if (wasHeld && button == leftButton && studio_.run.EditMode == editMode::select &&
        studio_.drag.MouseColumn == pressedColumn_)
        state->say(selectSentence());
    if (onTableauRelease && !studio_.platform.loop.isEnding())
        onTableauRelease();
}

/// A press on a control that is locked while the song plays.
void Form1::sayLocked(const QWidget& control) {
    state->beginPress();
    if (studio_.run.IsPlaying.isSet() && area->isAncestorOf(&control) && !control.isEnabled())
        state->say(lockedSentence());
}

} // namespace velorin
