// What step entry says, in plain sentences.
#pragma once

#include "entry/StepEntry.h"

#include <string>

namespace velorin {

/// Why a step was not written, or not whole; empty for `StepResult::done`. `unwritten` is the
/// number of keys that found no row.
[[nodiscard]] std::string stepSentence(StepResult result, int unwritten);

/// Step entry is on, with steps of `length` columns; the next one is at `column`, from 0.
[[nodiscard]] std::string stepsOnSentence(int length, int column);

/// The length of a step was chosen. `isOn` says whether step entry is on.
[[nodiscard]] std::string stepLengthSentence(int length, bool isOn);

constexpr char stepsOff[] = "Step entry is off. The keys sound and write nothing.";
constexpr char stepsNeedKeyboard[] =
    "Step entry needs a MIDI keyboard. Press Ctrl+K to switch it on.";
constexpr char stepsAreOff[] = "Step entry is off. Press Ctrl+Shift+K to switch it on.";

} // namespace velorin
