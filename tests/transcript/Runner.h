// A program that a transcript drives: the scripted host, the program on it, and the commands that
// drive both.
#pragma once

#include "Words.h"
#include "support/ScriptedPlatform.h"

#include <QPointer>
#include <QWidget>

#include <memory>
#include <string>

namespace velorin {
class Form1;
class Program;
class Session;
struct Studio;
} // namespace velorin

namespace transcript {

/// Starts the program as on a first run. The destructor removes everything, the folder too.
class Runner {
public:
    Runner();
    ~Runner();
    Runner(const Runner&) = delete;
    Runner& operator=(const Runner&) = delete;

    /// Runs one command line and returns its output. Commands that are planned for this time run
    /// first.
    Lines run(const std::string& line);

    /// Plans a command for later. Its output is added to the answer of the command that runs then.
    void plan(scripted::Nanoseconds delay, const Words& command);

    /// Ends the program, unless it has ended, and starts it again. Inside a procedure of the
    /// program, the new start waits until the procedure has returned.
    void restart();

    [[nodiscard]] bool isRunning() const;

    // These throw if the program has ended.
    [[nodiscard]] velorin::Program& program();
    [[nodiscard]] velorin::Form1& form1();
    [[nodiscard]] velorin::Session& session();
    [[nodiscard]] velorin::Studio& studio();

    /// A path as in a transcript, with '@' for the folder.
    [[nodiscard]] std::string path(const std::string& word) const;
    [[nodiscard]] std::string folder() const { return host.folder.path().string(); }

    scripted::ScriptedPlatform host;

    QPointer<QWidget> mouseHolder; ///< the pressed control, until its release
    QPointer<QWidget> pointedAt;   ///< the control under the pointer at the last press or move

private:
    void perform(const Words& words);
    void startProgram();
    bool closeLesson(); ///< true if one was open
    void waitForHint();
    void noticeChange();

    std::unique_ptr<velorin::Program> program_;
    Lines answer_;
    int depth_ = 0; ///< nested commands that are running
    bool startsAgain_ = false;
};

} // namespace transcript
