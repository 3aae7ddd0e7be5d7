// Step entry in the program.
#include "program/StepKeyboard.h"

#include "history/History.h"
#include "platform/Settings.h"
#include "platform/Text.h"
#include "program/MidiKeyboard.h"
#include "program/StepWords.h"
#include "session/Session.h"
#include "windows/frame/SettingValues.h"
#include "windows/main/Form1.h"
#include "windows/strip/StateWatch.h"

#include <utility>

namespace velorin {

namespace {

constexpr char lengthKey[] = "Step entry columns";

} // namespace

StepKeyboard::StepKeyboard(const Parts& parts, std::function<void(const std::string&)> say)
    : session_(parts.session),
      history_(parts.history),
      form_(parts.form),
      keyboard_(parts.keyboard),
      say_(std::move(say)),
      pen_(parts.form),
      entry_(session_.studio, session_.sounding, pen_) {
    platform::Settings& settings = session_.studio.platform.settings;
    if (const auto length =
            platform::readInt16(settings.GetSetting(settingsSection, lengthKey, {})))
        entry_.setLength(*length);
    keys_.onChord = [this](const std::vector<int>& keys) { take(keys); };
    keys_.onRest = [this] { take({}); };
    keyboard_.onKey = [this](int key, bool isPressed) {
        if (!isOn_)
            return;
        if (isPressed)
            keys_.press(key);
        else
            keys_.release(key);
    };
    keyboard_.onPedal = [this](int value) {
        if (isOn_)
            keys_.pedal(value);
    };
    keyboard_.onSilenced = [this] { keys_.forget(); };
}

StepKeyboard::~StepKeyboard() {
    keyboard_.onKey = nullptr;
    keyboard_.onPedal = nullptr;
    keyboard_.onSilenced = nullptr;
}

void StepKeyboard::toggle() {
    if (isOn_) {
        end();
        return say_(stepsOff);
    }
    if (!keyboard_.isOn())
        return say_(stepsNeedKeyboard);
    isOn_ = true;
    lastResult_ = StepResult::done;
    takeMarker();
    form_.state->showSteps(entry_.length());
    say_(stepsOnSentence(entry_.length(), session_.studio.score.StartColumn));
}

void StepKeyboard::end() {
    isOn_ = false;
    keys_.forget();
    waiting_.clear();
    form_.state->showSteps(0);
}

void StepKeyboard::setLength(int columns) {
    entry_.setLength(columns);
    session_.studio.platform.settings.SaveSetting(settingsSection, lengthKey,
                                                  std::to_string(entry_.length()));
    if (isOn_)
        form_.state->showSteps(entry_.length());
    say_(stepLengthSentence(entry_.length(), isOn_));
}

void StepKeyboard::stepBack() {
    if (!isOn_)
        return say_(stepsAreOff);
    if (std::exchange(isWriting_, true))
        return;
    report(entry_.stepBack());
    noteMarker();
    carryOutWaiting();
}

void StepKeyboard::rest() {
    if (!isOn_)
        return say_(stepsAreOff);
    take({});
}

// Writing may yield, and the next chord come meanwhile.
void StepKeyboard::take(Step step) {
    waiting_.push_back(std::move(step));
    if (!std::exchange(isWriting_, true))
        carryOutWaiting();
}

void StepKeyboard::carryOutWaiting() {
    while (!waiting_.empty()) {
        const Step next = std::move(waiting_.front());
        waiting_.pop_front();
        carryOut(next);
    }
    isWriting_ = false;
}

// The steps of a quick hand come without a rest of the message loop between them, in which the
// history would look.
void StepKeyboard::carryOut(const Step& step) {
    if (!session_.studio.drag.MouseHeld.isSet()) {
        history_.changeFinished();
        noteMarker();
    }
    const StepResult result = step.empty() ? entry_.rest() : entry_.write(step);
    if (result == StepResult::done || result == StepResult::incomplete)
        history_.changeFinished();
    noteMarker();
    report(result);
}

void StepKeyboard::noteMarker() {
    marker_ = session_.studio.score.StartColumn;
    markerOf_[history_.current()] = marker_;
}

/// While a song plays, a player is told once.
void StepKeyboard::report(StepResult result) {
    const bool isRepeated = std::exchange(lastResult_, result) == result;
    const std::string sentence = stepSentence(result, entry_.unwritten());
    if (!sentence.empty() && !(isRepeated && result == StepResult::playing))
        say_(sentence);
}

void StepKeyboard::takeMarker() {
    if (!isWriting_)
        marker_ = session_.studio.score.StartColumn;
}

void StepKeyboard::keepMarker() {
    if (!isOn_ || isWriting_ || marker_ == 0 || session_.studio.score.StartColumn != 0)
        return;
    session_.studio.score.StartColumn = marker_;
    form_.music.DrawNoteArray();
}

void StepKeyboard::historyMoved() {
    const auto found = markerOf_.find(history_.current());
    if (!isOn_ || found == markerOf_.end() || std::exchange(isWriting_, true))
        return;
    entry_.setMarker(found->second);
    noteMarker();
    carryOutWaiting();
}

} // namespace velorin
