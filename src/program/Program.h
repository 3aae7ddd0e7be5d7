// The program: it owns the studio and the windows, starts them in their order and ends them in
// theirs.
#pragma once

#include "platform/Platform.h"
#include "program/WindowGroup.h"
#include "score/Studio.h"
#include "shell/FocusKeeper.h"
#include "shell/HoverKeeper.h"
#include "shell/KeptScore.h"
#include "shell/NoticeWindow.h"
#include "shell/SkinnedFrame.h"
#include "shell/ToolWindow.h"
#include "shell/frminfo.h"

#include <QObject>
#include <QString>

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <vector>

namespace velorin {

class Form1;
class HoldingLoop;
class SetupToolbar;
class openerF;

/// One for each run. The platform outlives it. All calls come from the user-interface thread.
class Program {
public:
    explicit Program(platform::Platform& platform);
    ~Program();
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;

    /// Everything from the splash to the moment when the user can act. `behindSplash`, if given, is
    /// called once the splash is on the screen, for all that need not be there before: it makes the
    /// main window and adds the tool windows. False if the start was refused because another copy
    /// runs.
    bool start(const std::function<void()>& behindSplash = {});

    /// The main window, not loaded yet. The start makes it unless it is there.
    Form1& makeMainWindow();

    /// True after the exit command, or after a start that was refused. Windows are off the screen;
    /// handlers that were running may still have to return.
    [[nodiscard]] bool hasEnded() const { return ended_; }

    /// What the process is to return: 0, or 1 after `endWithError`.
    [[nodiscard]] int exitStatus() const { return exitStatus_; }

    /// The exit command, also for an end from outside: a signal, the end of the session. A second
    /// call does nothing. A score that is not saved is kept for the next start.
    void Command3_Click();

    /// Whether another copy runs; says so in a message box.
    bool IsProgramRunning();

    /// For an error that nothing may go on after: puts the score aside for the next start, says
    /// what happened in one message box and ends in the usual order.
    void endWithError(const std::string& text);

    [[nodiscard]] Studio& studio() { return studio_; }
    [[nodiscard]] Form1& form1() { return *form1_; } ///< from `makeMainWindow` on
    [[nodiscard]] SetupToolbar& setup() { return *setup_; }

    /// A window by its name: Form1, Form2, Form3, Frmmenu, Record, Wiz, frminfo, openerF. With
    /// `load` it is loaded as its first use would. Null for one that is not loaded, not built or
    /// not known.
    QWidget* window(const QString& name, bool load);

    /// Makes a window known under its name. `Form3` is there from the start.
    void addToolWindow(const QString& name, std::unique_ptr<ToolWindow> window);
    [[nodiscard]] ToolWindow* toolWindow(const QString& name);

    /// Loads a tool window and shows it above the others. Nothing happens if it is not built.
    void showWindow(const QString& name);
    void unloadWindow(const QString& name);

    /// To be called for each tool window when it is made: no handler that runs by then is its own.
    void noteMade(const QWidget& window);

    /// Hides the window at once and destroys it as soon as no handler of its own can be running.
    void destroyLater(std::unique_ptr<QWidget> window);

    /// Runs a handler that may wait for long, so that windows can be closed and destroyed
    /// meanwhile: all but `window`, to which it belongs, or all that are made meanwhile if that is
    /// null.
    void runHandler(const QWidget* window, const std::function<void()>& handler);

    /// Takes the splash off the screen.
    void unloadSplash();

private:
    struct NamedWindow {
        QString name;
        std::unique_ptr<ToolWindow> window;
    };
    struct ClosedWindow {
        std::unique_ptr<QWidget> window;
        std::uint64_t madeAt; ///< as `loop_` counts
    };

    void showSplash();
    void recoverScores();
    void openFromNotice(const std::string& path);
    void destroyClosed();

    std::unique_ptr<HoldingLoop> loop_;
    platform::Platform platform_; ///< the host's, with `loop_` in place of its loop

public:
    FocusKeeper focus;
    HoverKeeper hover;
    FrameState frames;
    frminfo hints;
    WindowGroup group;
    NoticeWindow notices;
    QString activeToolbar; ///< the tool window that was active last

private:
    std::unique_ptr<SetupToolbar> setup_;
    Studio studio_;
    KeptScore kept_;
    std::map<const QWidget*, std::uint64_t> madeAt_; ///< of tool windows
    std::vector<ClosedWindow> closed_;               ///< to be destroyed
    QObject dispatcherWatch_;
    std::vector<NamedWindow> toolWindows_;
    std::unique_ptr<openerF> splash_;
    std::unique_ptr<Form1> form1_; ///< null until `makeMainWindow`
    bool ending_ = false;
    bool ended_ = false;
    int exitStatus_ = 0;
};

} // namespace velorin
