// The program: owns the session and the windows, and starts and ends them in order.
#pragma once

#include "history/History.h"
#include "platform/Platform.h"
#include "program/FileOpening.h"
#include "program/HistoryWatch.h"
#include "program/MidiKeyboard.h"
#include "session/Session.h"
#include "windows/editing/EditingToolbar.h"
#include "windows/export/ExportTool.h"
#include "windows/frame/HoldingLoop.h"
#include "windows/frame/ToolWindows.h"
#include "windows/help/NoticeWindow.h"
#include "windows/help/ShortHint.h"
#include "windows/help/frminfo.h"
#include "windows/history/HistoryTool.h"
#include "windows/recording/RecordingToolbar.h"
#include "windows/setup/SetupToolbar.h"
#include "windows/tutorial/TutorialWizard.h"

#include <QString>

#include <memory>
#include <string>
#include <vector>

namespace velorin {

class Form1;
class Greeting;
class SheetMarks;
class StepKeyboard;
class TableauReader;
class openerF;
enum class FileCommand;
enum class HearingCommand;
enum class HistoryCommand;
struct KeyboardKey;

/// One for each run. The platform must outlive it. User-interface thread only.
class Program {
public:
    explicit Program(platform::Platform& platform);
    ~Program();
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;

    /// Does everything from the splash until the user can act. False if another copy is running.
    bool start();

    /// Call it when `start` has returned true and the windows are shown. Greets on an empty sheet.
    /// From now on the chord lanes are also drawn again after edits that do not draw them, and a
    /// hint says when chord marks are left without notes. A transcript does not call it: its
    /// windows show neither greeting nor hint, and its lanes stay as the edits leave them.
    void begin();

    /// True after the exit command, or if another copy was running at the start. The windows are
    /// hidden; handlers that were running may not have returned yet.
    [[nodiscard]] bool hasEnded() const { return ended_; }

    /// The exit status of the process: 0, or 1 after `endWithError`.
    [[nodiscard]] int exitStatus() const { return exitStatus_; }

    /// The exit command. Also called for a signal and at the end of the desktop session. A second
    /// call does nothing. A score that is not saved is kept for the next start.
    void Command3_Click();

    /// True if another copy is running; also shows a message box then.
    bool IsProgramRunning();

    /// For a fatal error: keeps the score for the next start, shows `text` in a message box and
    /// ends the program in the usual order.
    void endWithError(const std::string& text);

    /// The pen draws: like a held mouse button.
    [[nodiscard]] bool isPenHeld() const;

    [[nodiscard]] Studio& studio() { return session.studio; }
    /// The main window. `start` makes it after the splash is shown.
    [[nodiscard]] Form1& form1() { return *form1_; }

    /// The window of that name: Form1, Form2, Form3, Record, Wiz, History, Export, frminfo or
    /// openerF. With `load` it is loaded as by its first use. Null if it is not loaded or not
    /// known. Transcripts use it.
    QWidget* window(const QString& name, bool load);

private:
    void showSplash();
    [[nodiscard]] std::unique_ptr<Form1> makeMainWindow();
    void takeMainWindow(std::unique_ptr<Form1> made);
    void recoverScores();
    void openAgain(const std::string& path);
    void watchHistory();
    void runFileCommand(FileCommand command);
    void chooseOpenedLast();
    void playFile(const std::string& path);
    void runHistoryCommand(HistoryCommand command);
    void runKeyboardCommand(const KeyboardKey& key);
    [[nodiscard]] StepKeyboard& steps();
    void runHearingCommand(HearingCommand command);
    void greet();
    void endGreeting();
    void sheetChanged();
    void showTitle();
    void showSteps();
    void lockChanged();

    HoldingLoop loop_;
    platform::Platform platform_; ///< the host's, with `loop_` in place of its loop

public:
    // Each uses only those before it.
    Session session;
    History history;
    ToolWindows windows;
    frminfo hints;
    ShortHint shortHint;
    NoticeWindow notices;
    SetupToolbar setup;
    EditingToolbar editing;
    RecordingToolbar recording;
    TutorialWizard tutorial;
    HistoryTool historyTool;
    FileOpening fileOpening;
    ExportTool exportTool;
    MidiKeyboard keyboard;

private:
    HistoryWatch historyWatch_;
    std::unique_ptr<openerF> splash_; ///< null before and after it is shown
    std::unique_ptr<Form1> form1_;    ///< null until `start`
    std::unique_ptr<SheetMarks> sheetMarks_;
    std::unique_ptr<StepKeyboard> steps_; ///< null until it is first asked for
    std::unique_ptr<Greeting> greeting_;  ///< null until an empty sheet is greeted
    TableauReader* reader_ = nullptr;     ///< owned by the main window; null until `begin`
    bool isBegun_ = false;
    bool hadNotes_ = false;
    bool ending_ = false;
    bool ended_ = false;
    int exitStatus_ = 0;
};

} // namespace velorin
