// Lesson "Composition": a score of two melodic channels and a beat, played and saved.
#include "tutorial/Acts.h"

namespace velorin {

using namespace acts;

Lesson compositionLesson() {
    return {
        "Composition",
        "L1",
        "Composing a score",
        {
            {"1. Open a blank music tablet....",
             {"Click the first button on the toolbar to clear all notes from the music tablet.."},
             {call(&Session::commands, &ScoreCommands::Command4_Click)}},
            {"2. Add  notes to the staff on Channel 1.......",
             {"Drawing notes is an intuitive process with Velorin. ",
              "In this instance, we'll use the default instrument (whichever one is currently "
              "open).To draw a note, place the cursor on the staff (white area), click the "
              "left mousebutton, and drag to the right to form a tail. The length of the tail ",
              "shows you how long the note will play. "},
             {loads("\\media\\101.sng")}},
            {"3. Open Channel 2........",
             {"Select channels using the Setup toolbar (Button #9 on the main toolbar), which "
              "is normally always open.",
              "Click Channel 2 in the Instrument group, to open it."},
             {call(&Setup::setTrackSel, 1, true)}},
            {"4. Add  notes to the staff on Channel 2....",
             {"Now you add notes on Channel 2 in the same way you did on Channel 1, to create "
              "a melody."},
             {loads("\\media\\102.sng")}},
            {"5. Open Percussion Channel 1........",
             {"On the Setup toolbar (Button #9 on the main toolbar)",
              "Click Channel 1 in the Percussion group, to open it."},
             {call(&MainDesk::focusBeatbox), call(&Setup::setTrackSel, 1, false),
              call(&Setup::setTrackSel, 8, true)}},
            {"6. Add percussion beat to the composition.....",
             {"Draw percussion notes in the light green area in the upper part of the music "
              "tablet.In this instance, we'll use the default percussion instrument (Nylon "
              "Guitar). ",
              "Now you must add notes on other channels to create a melody. First, open "
              "Channel 2."},
             {loads("\\media\\104.sng")}},
            {"7. Test the finished composition.......",
             {"To play the composition, click button #5 (Play). ", "Now sit back and listen."},
             {call(&Session::sequencer, &Sequencer::PlayAndStop_Click, 0)}},
            {"8. Save the composition.......",
             {"To save the composition, click button #3 (Save). ",
              "You will be prompted to enter a file name and to click 'OK'.",
              "If you don't want to save the composition, click 'Cancel'."},
             {call(&WizardDesk::leaveTopMost), call(&Session::files, &ScoreFiles::mSaveAs_Click),
              call(&WizardDesk::returnToTopMost)}},
        }};
}

} // namespace velorin
