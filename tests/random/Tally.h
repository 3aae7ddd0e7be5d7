// Counts what a random session did, and stores the first error.
#pragma once

#include <string>

namespace randomly {

struct Tally {
    long events = 0; ///< the sum of the following, without the checks
    long presses = 0;
    long moves = 0;
    long releases = 0;
    long keys = 0;
    long turns = 0;   ///< of the wheel and scroll bars
    long choices = 0; ///< in menus, lists, dialogs and message boxes
    long sizes = 0;   ///< changes of the main window's size
    long whilePlaying = 0;
    long whileRecording = 0;
    long checks = 0;     ///< gestures after which every cell was as predicted
    long changes = 0;    ///< checked gestures that changed cells
    long lost = 0;       ///< predicted gestures that did not reach the tableau
    int deepest = 0;     ///< the largest number of nested handlers
    std::string trouble; ///< empty while nothing is wrong
};

} // namespace randomly
