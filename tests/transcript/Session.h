// One session of the program: the scripted host, the program on it, and the commands that drive
// both.
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
struct Studio;
} // namespace velorin

namespace transcript {

/// Starts the program as on a first run. Everything goes with the session, its folder too.
class Session {
public:
    Session();
    ~Session();
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    /// Carries out one command line and returns what it prints, commands planned for that time
    /// first.
    Lines run(const std::string& line);

    /// Plans a command for later; what it prints joins the answer of the command that runs then.
    void plan(scripted::Nanoseconds delay, const Words& command);

    /// Ends the program, unless it has ended, and starts it again. Inside a procedure of the
    /// program the new start waits until that has returned.
    void restart();

    [[nodiscard]] bool isRunning() const;

    // These throw if the program has ended.
    [[nodiscard]] velorin::Program& program();
    [[nodiscard]] velorin::Form1& form1();
    [[nodiscard]] velorin::Studio& studio();

    /// A path as a transcript writes it, with '@' at its head for the folder.
    [[nodiscard]] std::string path(const std::string& word) const;
    [[nodiscard]] std::string folder() const { return host.folder.path().string(); }

    scripted::ScriptedPlatform host;

    QPointer<QWidget> mouseHolder; ///< the control that was pressed, until its release
    QPointer<QWidget> pointedAt;   ///< the control under the pointer at the last press or move

private:
    void perform(const Words& words);
    void startProgram();
    bool closeLesson(); ///< true if one was open
    void waitForHint();

    std::unique_ptr<velorin::Program> program_;
    Lines answer_;
    int depth_ = 0; ///< commands that are running, one inside the other
    bool startsAgain_ = false;
};

} // namespace transcript
