// What step entry says, in plain sentences.
#include "program/StepWords.h"

namespace velorin {

namespace {

std::string columnsOf(int count) {
    std::string text = std::to_string(count);
    text += count == 1 ? " column" : " columns";
    return text;
}

std::string incompleteSentence(int unwritten) {
    std::string text = std::to_string(unwritten);
    text += unwritten == 1 ? " note of the chord is" : " notes of the chord are";
    return text + " not written: no other channel is free here.";
}

} // namespace

std::string stepSentence(StepResult result, int unwritten) {
    switch (result) {
    case StepResult::done:
        break;
    case StepResult::incomplete:
        return incompleteSentence(unwritten);
    case StepResult::playing:
        return "While the song plays, the keys sound and write nothing.";
    case StepResult::notDrawing:
        return "Not written: press F2 to draw.";
    case StepResult::busy:
        return "Not written: close the open dialog or menu first, and release the mouse button.";
    case StepResult::atEnd:
        return "Not written: the tableau ends with column 1000. The key only sounds.";
    case StepResult::atStart:
        return "The marker is in column 1 already.";
    case StepResult::tooNarrow:
        return "Not written: the main window is too narrow for a note of this length.";
    case StepResult::noDrum:
        return "Not written: choose a drum sound first, in the lower list of the Setup Toolbar.";
    case StepResult::noStrip:
        return "Not written: the percussion strip is hidden. The menu of the Setup button shows "
               "it.";
    }
    return {};
}

std::string stepsOnSentence(int length, int column) {
    return "Step entry is on: a key or a chord writes " + columnsOf(length) + " from column " +
           std::to_string(column + 1) +
           " on. The sustain pedal makes a rest. Ctrl+1 to Ctrl+8 choose the length.";
}

std::string stepLengthSentence(int length, bool isOn) {
    std::string text = "Step entry writes " + columnsOf(length) + " for each key or chord.";
    if (!isOn)
        text += " It is off: Ctrl+Shift+K switches it on.";
    return text;
}

} // namespace velorin
