// Running commands, and starting and ending the program around them.
#include "Session.h"

#include "Answers.h"
#include "Commands.h"
#include "program/Form1.h"
#include "program/Program.h"
#include "windows/ToolWindows.h"

#include <QCoreApplication>

namespace transcript {

namespace {

// What the window system would give the window once the user has sized it: 46 columns fit.
constexpr int innerWidthPx = 640;
constexpr int innerHeightPx = 480;

} // namespace

Session::Session() {
    host.time.closeWhatWaits = [this] {
        const bool waits = isRunning() && program_->hints.isLessonOpen();
        if (waits)
            program_->hints.imgTitleClose_Click();
        return waits;
    };
    startProgram();
    if (isRunning())
        form1().resize(innerWidthPx, innerHeightPx);
    host.midi.log.clear();
    host.mci.log.clear();
    host.menus.log.clear();
    host.boxes.log.clear();
    host.dialogs.log.clear();
    host.desktop.programs.clear();
    host.notices.posted.clear();
    host.time.restart();
    host.time.onNothingPlanned = [this] { return closeLesson(); };
}

Session::~Session() {
    host.time.onNothingPlanned = nullptr;
    host.time.dropPlanned();
    host.time.end();
}

// Nobody is there who would close it.
bool Session::closeLesson() {
    if (!isRunning() || !program_->hints.isLessonOpen())
        return false;
    program_->hints.imgTitleClose_Click();
    return true;
}

void Session::startProgram() {
    mouseHolder = nullptr;
    pointedAt = nullptr;
    program_.reset();
    host.time.clearEnd();
    program_ = std::make_unique<velorin::Program>(host.platform);
    program_->start([this] { velorin::addToolWindows(*program_); });
}

void Session::restart() {
    host.time.dropPlanned();
    if (isRunning())
        program_->Command3_Click();
    if (depth_ > 1)
        startsAgain_ = true;
    else
        startProgram();
}

bool Session::isRunning() const {
    return program_ != nullptr && !program_->hasEnded();
}

velorin::Program& Session::program() {
    if (!isRunning())
        throw CommandError("the program has ended");
    return *program_;
}

velorin::Form1& Session::form1() {
    return program().form1();
}

velorin::Studio& Session::studio() {
    return program().studio();
}

std::string Session::path(const std::string& word) const {
    return word.starts_with('@') ? folder() + word.substr(1) : word;
}

Lines Session::run(const std::string& line) {
    answer_.clear();
    host.time.beginCommand();
    try {
        perform(splitWords(line));
    } catch (const CommandError& error) {
        answer_.push_back(std::string("error: ") + error.what());
    }
    if (startsAgain_) {
        startsAgain_ = false;
        startProgram();
    }
    // What was closed during the command is destroyed here, where no handler runs.
    QCoreApplication::processEvents();
    if (!isRunning())
        host.time.clearEnd(); // no handler is left that would have to end
    return answer_;
}

// As a user would, who rests the pointer until the hint is there and then goes on. What is planned
// for the same moment comes after it.
void Session::waitForHint() {
    const auto isWaiting = [this] {
        return isRunning() && !host.time.isEnding() &&
               host.time.now() < program_->hints.loadedFrom();
    };
    if (!isWaiting())
        return;
    while (isWaiting())
        host.time.waitUntil(program_->hints.loadedFrom());
    if (isRunning())
        program_->hints.endLoad();
}

void Session::perform(const Words& words) {
    ++depth_;
    Lines lines;
    try {
        lines = carryOut(*this, words);
        if (depth_ == 1)
            waitForHint();
    } catch (const CommandError& error) {
        lines = {printedLine(std::string("error: ") + error.what(), folder())};
    }
    --depth_;
    if (depth_ == 0 && host.time.endCommand())
        lines = {"error: still running"};
    answer_.insert(answer_.end(), lines.begin(), lines.end());
}

void Session::plan(scripted::Nanoseconds delay, const Words& command) {
    host.time.plan(delay, [this, command] { perform(command); });
}

} // namespace transcript
