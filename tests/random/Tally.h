// What a random session has done, and what it has found wrong.
#pragma once

#include <string>

namespace randomly {

struct Tally {
    long events = 0; ///< all of those below but the checks
    long presses = 0;
    long moves = 0;
    long releases = 0;
    long keys = 0;
    long turns = 0;   ///< of the wheel, and scroll bars among them
    long choices = 0; ///< in menus, lists, dialogs and message boxes
    long sizes = 0;   ///< changes of the main window's size
    long whilePlaying = 0;
    long whileRecording = 0;
    long checks = 0;     ///< gestures after which every cell was as foretold
    long changes = 0;    ///< those of them that changed cells
    long lost = 0;       ///< gestures foretold that did not reach the tableau
    int deepest = 0;     ///< handlers that ran one inside the other
    std::string trouble; ///< empty as long as all is well
};

} // namespace randomly
