// The program: start, end, and finding windows by name.
#include "program/Program.h"

#include "history/Change.h"
#include "history/OpenedFiles.h"
#include "platform/Desktop.h"
#include "platform/Dialogs.h"
#include "platform/MidiOut.h"
#include "platform/Notices.h"
#include "platform/PopupMenus.h"
#include "program/RecoveryText.h"
#include "program/StepKeyboard.h"
#include "program/WizardCalls.h"
#include "windows/main/Form1.h"
#include "windows/main/openerF.h"
#include "windows/pen/Pen.h"
#include "windows/reader/TableauReader.h"
#include "windows/sheet/AfterPaint.h"
#include "windows/sheet/Greeting.h"
#include "windows/sheet/SheetContent.h"
#include "windows/sheet/SheetMarks.h"
#include "windows/strip/PressWords.h"
#include "windows/strip/StateWatch.h"
#include "windows/strip/StripTools.h"
#include "windows/texts/ButtonNumbers.h"
#include "windows/texts/KeyTable.h"
#include "windows/texts/SheetTexts.h"

#include <QCoreApplication>
#include <QGuiApplication>
#include <QIcon>

#include <utility>

namespace velorin {

namespace {

constexpr char title[] = "Velorin";

struct ToolName {
    const char* name;
    Tool tool;
};
constexpr ToolName toolNames[] = {{"Form2", Tool::editing},    {"Form3", Tool::setup},
                                  {"Record", Tool::recording}, {"Wiz", Tool::tutorial},
                                  {"History", Tool::history},  {"Export", Tool::exporting}};

} // namespace

Program::Program(platform::Platform& host)
    : loop_(host.loop),
      platform_(withLoop(host, loop_)),
      session(platform_),
      history(session.studio, session.files, platform_.history),
      windows(platform_, session.studio.run, loop_),
      hints(platform_, windows.frames),
      notices(platform_.desktop),
      setup(session, windows),
      editing(session, windows),
      recording(session, windows),
      tutorial(session, std::make_unique<WizardCalls>(*this), windows, hints),
      historyTool(session, windows, history),
      fileOpening({session, history, windows, recording},
                  [this](const std::string& lines) { shortHint.show(*form1_, lines); }),
      exportTool(session, windows, QCoreApplication::applicationDirPath().toStdString()),
      keyboard(platform_, session,
               [this](const std::string& line) { shortHint.show(*form1_, line); }),
      historyWatch_(history) {
    windows.add(Tool::setup, setup);
    windows.add(Tool::editing, editing);
    windows.add(Tool::recording, recording);
    windows.add(Tool::tutorial, tutorial);
    windows.add(Tool::history, historyTool);
    windows.add(Tool::exporting, exportTool);
    recording.onExport = [this] { exportTool.openForMp3(); };
    setup.onHint = [this](const std::string& lines) { shortHint.show(*form1_, lines); };
    recording.onHint = [this](const std::string& lines) { shortHint.show(*form1_, lines); };
    exportTool.onPlay = [this](const std::string& path) { playFile(path); };
    notices.openScore = [this](const std::string& path) { openAgain(path); };
}

Program::~Program() {
    notices.stop();
}

bool Program::start() {
    if (IsProgramRunning()) {
        ended_ = true;
        return false;
    }
    showSplash();
    if (ended_) // by an event that was processed while the splash was painted
        return true;
    std::unique_ptr<Form1> made = makeMainWindow();
    // The desktop has opened the splash meanwhile, so this paints it. An end would save the
    // settings of the main window, which it has not read, so it is not taken yet.
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    if (ended_)
        return true;
    platform_.midi.beginLook(); // not earlier: the splash needs the processors
    takeMainWindow(std::move(made));
    form1_->Form_Load();
    if (!ended_)
        watchHistory();
    if (!ended_)
        keyboard.resume();
    recoverScores();
    if (platform_.notices != nullptr && !ended_)
        notices.start(*platform_.notices, *form1_->area->MusicBox);
    return true;
}

void Program::begin() {
    isBegun_ = true;
    new AfterPaint(*form1_->area->MusicBox, [this] { // owned by the tableau
        // The windows have no title bar of the desktop that would show it, so it can come late.
        QGuiApplication::setWindowIcon(QIcon(":/look/velorin.svg"));
        greet();
    });
    reader_ = new TableauReader(session, *form1_, *form1_->pen);
    reader_->onLine = [this](const std::string& line) { shortHint.show(*form1_, line); };
    form1_->onHearingKey = [this](HearingCommand command) { runHearingCommand(command); };
}

void Program::greet() {
    if (ended_ || !isEmptySheet(session.studio.score) || session.studio.run.IsPlaying.isSet())
        return;
    greeting_ = std::make_unique<Greeting>(*form1_, *form1_->area, session.studio.score);
    greeting_->onOpenSong = [this] { form1_->Cmd2_Click(mainButton::open); };
    sheetMarks_->onDrawn = [this] { greeting_->sheetDrawn(); };
}

void Program::sheetChanged() {
    if (!isBegun_)
        return;
    form1_->poly.drawIfStale();
    if (greeting_)
        greeting_->sheetDrawn();
    const Score& score = session.studio.score;
    const bool hasThem = hasNotes(score);
    if (std::exchange(hadNotes_, hasThem) && !hasThem && hasMarks(score)) {
        const std::string before = shortHint.text(); // that the notes can come back
        shortHint.show(*form1_, before.empty() ? marksLeft : before + "\n" + marksLeft);
    }
}

void Program::endGreeting() {
    if (greeting_)
        greeting_->end();
}

void Program::showSplash() {
    splash_ = std::make_unique<openerF>(windows.frames);
    const platform::SizePx screen = platform_.desktop.screenSize();
    splash_->centreOn(screen.width, screen.height);
    splash_->show();
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

std::unique_ptr<Form1> Program::makeMainWindow() {
    return std::make_unique<Form1>(
        MainWindowParts{session, windows, editing, recording, hints, tutorial.tutorial.samples});
}

void Program::takeMainWindow(std::unique_ptr<Form1> made) {
    form1_ = std::move(made);
    sheetMarks_ = std::make_unique<SheetMarks>(session.studio, *form1_->area, form1_->music);
    form1_->onExit = [this] { Command3_Click(); };
    form1_->onError = [this](const std::string& text) { endWithError(text); };
    form1_->canDrop = &FileOpening::canOpen;
    form1_->onDrop = [this](const std::vector<std::string>& paths) { fileOpening.open(paths); };
    form1_->onReady = [this] { splash_.reset(); };
}

void Program::watchHistory() {
    history.onChanged = [this] {
        sheetChanged();
        showTitle();
        showSteps();
        historyTool.historyChanged();
        exportTool.songChanged();
    };
    history.onReplacedUnsaved = [this] { shortHint.show(*form1_, "Ctrl+Z brings it back."); };
    form1_->onLockChanged = [this] {
        endGreeting();
        lockChanged();
    };
    form1_->state->onPlayingChanged = [this] {
        lockChanged();
        if (steps_ && session.studio.run.IsPlaying.isSet())
            steps_->takeMarker();
        else if (steps_)
            steps_->keepMarker();
    };
    form1_->onTableauPress = [this] {
        if (steps_)
            steps_->takeMarker();
    };
    form1_->onTableauRelease = [this] {
        if (steps_)
            steps_->keepMarker();
    };
    setup.onValuesLost = [this] {
        if (!ending_)
            form1_->state->say(setupLostSentence());
    };
    form1_->onFileKey = [this](FileCommand command) { runFileCommand(command); };
    form1_->onKeyboardKey = [this](const KeyboardKey& key) { runKeyboardCommand(key); };
    form1_->onHistoryKey = [this](HistoryCommand command) { runHistoryCommand(command); };
    historyWatch_.isPenHeld = [this] { return isPenHeld(); };
    history.begin();
    historyWatch_.start();
}

bool Program::isPenHeld() const {
    return form1_ != nullptr && form1_->pen->isHeld();
}

void Program::showTitle() {
    form1_->showTitle(session.studio.score.CurrentFileName, history.isUnsaved());
}

void Program::showSteps() {
    form1_->strip->showSteps(history.undoText(), history.redoText(),
                             session.studio.run.IsPlaying.isSet());
}

void Program::lockChanged() {
    historyTool.lockChanged();
    showSteps();
}

void Program::runFileCommand(FileCommand command) {
    if (command == FileCommand::openedLast)
        return chooseOpenedLast();
    if (command == FileCommand::exportScore)
        return exportTool.open();
    if (!session.files.saveAgain())
        form1_->Cmd2_Click(mainButton::save);
}

// As a user does it with the Recording Toolbar.
void Program::playFile(const std::string& path) {
    windows.show(Tool::recording);
    if (ended_)
        return;
    recording.setText(RecordText::Text6, path);
    recording.player.Cmd2_Click(1);
}

void Program::chooseOpenedLast() {
    history.changeFinished();
    const std::vector<std::string> files = openedFiles(history.entries());
    if (files.empty())
        return shortHint.show(*form1_, "No score has been opened or saved yet.");
    std::vector<std::string> names;
    names.reserve(files.size());
    for (const std::string& file : files)
        names.push_back(fileNameOf(file));
    const auto chosen = platform::chooseFrom(platform_.menus, "openedLast", names);
    if (chosen && !ended_)
        openAgain(files[*chosen]);
}

void Program::runHistoryCommand(HistoryCommand command) {
    if (command == HistoryCommand::show)
        return historyTool.open();
    if (QGuiApplication::mouseButtons() != Qt::NoButton || isPenHeld())
        return;
    const bool isUndo = command == HistoryCommand::undo;
    switch (isUndo ? history.undo() : history.redo()) {
    case HistoryStep::done:
        if (steps_)
            steps_->historyMoved();
        return shortHint.hide();
    case HistoryStep::atEnd:
        return shortHint.show(*form1_, isUndo ? "There is nothing to take back."
                                              : "There is nothing to make again.");
    case HistoryStep::locked:
        if (session.studio.run.IsPlaying.isSet())
            shortHint.show(*form1_, "Stop the song first. While it plays, nothing is taken back.");
        return;
    case HistoryStep::lost:
        return shortHint.show(*form1_, "This state of the score cannot be read any more.");
    }
}

StepKeyboard& Program::steps() {
    if (!steps_)
        steps_ = std::make_unique<StepKeyboard>(
            StepKeyboard::Parts{session, history, *form1_, keyboard},
            [this](const std::string& line) { shortHint.show(*form1_, line); });
    return *steps_;
}

void Program::runKeyboardCommand(const KeyboardKey& key) {
    switch (key.command) {
    case KeyboardCommand::onOff:
        keyboard.toggle();
        if (steps_ && !keyboard.isOn() && !ended_)
            steps_->end();
        return;
    case KeyboardCommand::steps:
        return steps().toggle();
    case KeyboardCommand::length:
        return steps().setLength(key.columns);
    case KeyboardCommand::back:
        return steps().stepBack();
    case KeyboardCommand::onward:
        return steps().rest();
    }
}

void Program::runHearingCommand(HearingCommand command) {
    if (command == HearingCommand::penSounds)
        reader_->toggleSound();
    else
        reader_->sayWhere();
}

// Called last: the folder for scores exists then.
void Program::recoverScores() {
    if (platform_.history == nullptr || ended_)
        return;
    const std::string& folder = session.studio.run.SongsFolder;
    for (const platform::RecoveredFile& recovered : platform_.history->recoverInto(folder))
        platform::notify(platform_, {recoveryText(recovered), folder + "\\" + recovered.name});
}

void Program::openAgain(const std::string& path) {
    history.changeFinished(); // what is on the tableaux stays in the history
    if (!session.files.openChosen(path))
        platform::notify(platform_, "The score is not there any more. Look for it in \"Songs\".");
}

bool Program::IsProgramRunning() {
    if (!platform_.desktop.isAnotherCopyRunning())
        return false;
    platform_.boxes.MsgBox(platform::BoxIcon::information, title, "Velorin is already running.");
    return true;
}

// Closes the device first, then each window saves its own settings, the main window last.
void Program::Command3_Click() {
    if (ending_ || ended_)
        return;
    ending_ = true;
    windows.stopShowing();
    history.end(); // before the windows change the score while they unload
    historyWatch_.stop();
    shortHint.hide();
    endGreeting();
    keyboard.end();
    if (steps_)
        steps_->end(); // not destroyed: a step may be waiting for the view to scroll
    platform_.desktop.announceEnd();
    if (splash_)
        splash_->hide(); // not destroyed: this call may run inside its own showing
    hints.unload();
    notices.stop();
    if (form1_) {
        form1_->hide();
        platform_.midi.midiOutClose(session.sounding.MidiHandle);
        for (const Tool tool : allTools)
            windows.unload(tool);
        form1_->Form_Unload();
    }
    ended_ = true;
    windows.stopLoading();
    platform_.loop.end();
}

void Program::endWithError(const std::string& text) {
    if (ending_ || ended_)
        return;
    exitStatus_ = 1;
    history.endWithError();
    platform_.boxes.MsgBox(platform::BoxIcon::critical, title, text);
    Command3_Click();
}

QWidget* Program::window(const QString& name, bool load) {
    if (name == "Form1")
        return form1_.get();
    if (name == "openerF")
        return splash_.get();
    if (name == "frminfo") {
        if (load && !ended_)
            hints.load();
        return load || hints.isLoaded() ? hints.window() : nullptr;
    }
    for (const auto& [known, tool] : toolNames)
        if (name == QLatin1String(known))
            return load ? windows.load(tool) : windows.window(tool);
    return nullptr;
}

} // namespace velorin
