// Lesson "Midi": a score saved as a MIDI file and played from it.
#include "tutorial/Acts.h"

namespace velorin {

using namespace acts;

Lesson midiLesson() {
    return {
        "Midi       ",
        "L1M",
        "Create a MIDI file",
        {
            {"1. Open a score file (*.scr)....",
             {"Click the 'File open' button on the toolbar and select a *.sng score file to "
              "open.",
              "Alternatively, compose a new score by drawing some notes on the music tableau.",
              "It isn't necessary to use a saved file to create a MID file. However, you must "
              "be careful to save a score ",
              "as an '*.sng' file if you want to edit it later, since you can't edit a MID "
              "file directly."},
             {call(&Session::commands, &ScoreCommands::Command4_Click), loads("\\media\\104.sng")}},
            {"2. Save score as MID.......",
             {"Now save the score in MID format. You will be prompted to enter a file name, "
              "then click 'OK'. ",
              "If you do not wish to save the file, click 'Cancel' "},
             {call(&Session::files, &ScoreFiles::mSaveAs_Click)}},
            {"3. Open the Recording Toolbar.......",
             {"To play from a file, open the Recording Toolbar. "},
             {call(&WizardDesk::showRecord)}},
            {"4. Open the MID file.......",
             {"Now select the file you just saved. You will be prompted to select a filename, "
              "and to click OK."},
             {call(&WizardDesk::C4_Click)}},
            {"5. Play the MID file.......",
             {"Now  click button #2 (Play). ", "mid"},
             {call(&WizardDesk::Record_Command4_Click, 1)}},
        }};
}

} // namespace velorin
