// Runs commands, and starts and ends the program.
#include "Runner.h"

#include "Answers.h"
#include "Commands.h"
#include "program/Program.h"
#include "windows/main/Form1.h"

#include <QCoreApplication>

namespace transcript {

namespace {

// The window as a user would size it: 46 columns fit.
constexpr int innerWidthPx = 640;
constexpr int innerHeightPx = 480;

} // namespace

Runner::Runner() {
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

Runner::~Runner() {
    host.time.onNothingPlanned = nullptr;
    host.time.dropPlanned();
    host.time.end();
}

// There is no user to close it.
bool Runner::closeLesson() {
    if (!isRunning() || !program_->hints.isLessonOpen())
        return false;
    program_->hints.imgTitleClose_Click();
    return true;
}

void Runner::startProgram() {
    mouseHolder = nullptr;
    pointedAt = nullptr;
    program_.reset();
    host.time.clearEnd();
    program_ = std::make_unique<velorin::Program>(host.platform);
    program_->start();
}

void Runner::restart() {
    host.time.dropPlanned();
    if (isRunning())
        program_->Command3_Click();
    if (depth_ > 1)
        startsAgain_ = true;
    else
        startProgram();
}

bool Runner::isRunning() const {
    return program_ != nullptr && !program_->hasEnded();
}

velorin::Program& Runner::program() {
    if (!isRunning())
        throw CommandError("the program has ended");
    return *program_;
}

velorin::Form1& Runner::form1() {
    return program().form1();
}

velorin::Session& Runner::session() {
    return program().session;
}

velorin::Studio& Runner::studio() {
    return program().studio();
}

std::string Runner::path(const std::string& word) const {
    return word.starts_with('@') ? folder() + word.substr(1) : word;
}

Lines Runner::run(const std::string& line) {
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
    // Windows that were closed during the command are destroyed here, where no handler runs.
    QCoreApplication::processEvents();
    if (!isRunning())
        host.time.clearEnd(); // no handler is running any more
    return answer_;
}

// Like a user who rests the pointer until the hint appears. Commands that are planned for the same
// time run after it.
void Runner::waitForHint() {
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

// Like the message loop, which comes to rest after each command. A drag is one change.
void Runner::noticeChange() {
    if (isRunning() && mouseHolder == nullptr && !studio().drag.MouseHeld.isSet())
        program_->history.changeFinished();
}

void Runner::perform(const Words& words) {
    ++depth_;
    Lines lines;
    try {
        lines = carryOut(*this, words);
        noticeChange();
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

void Runner::plan(scripted::Nanoseconds delay, const Words& command) {
    host.time.plan(delay, [this, command] { perform(command); });
}

} // namespace transcript
