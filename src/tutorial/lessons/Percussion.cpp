// Lesson "Percussion": a beat on three channels, laid along the song.
#include "tutorial/Acts.h"

namespace velorin {

using namespace acts;

Lesson percussionLesson() {
    return {
        "Percussion  ",
        "LP1",
        "Create a Percussion section",
        {
            {"1. Open Percussion Channel 1........",
             {"Click the first button on the toolbar to clear all notes from the music tablet..",
              "With your left mousebutton, click the Percussion section (the light green area "
              "in the upper part of the music tablet). This is the simplest way to activate "
              "Percussion Channel 1. ",
              "While your cursor is in the Percussion section, click the right mouse button, "
              "and drag the cursor downward. This will enlarge the Percussion tableau, to give "
              "you all the space you need to work in it.",
              "Click Button #1 (Percussion Group) in the Setup Toolbar to activate Percussion "
              "Channel 1. "},
             {call(&Session::commands, &ScoreCommands::Command4_Click),
              call(&Session::commands, &ScoreCommands::CmdBeatactivate),
              call(&Setup::TrackSel_MouseDown, 8), call(&Setup::setTrackSel, 8, true)}},
            {"a. Select a Percussion Instrument........",
             {"Select a percussion instrument using the drop-down selector in the setup "
              "toolbar."},
             {call(&WizardDesk::choosePercussion, 0)}},
            {"b. Add  Percussion notes........",
             {"Now you add notes on Percussion Channel 1 in the same way you did on Channel 1, "
              "to create a rythm."},
             {loads("\\media\\201.sng")}},
            {"2. Open Percussion Channel 2........",
             {"On the Setup toolbar (Button #9 on the main toolbar)",
              "Click Channel 2 in the Percussion group, to open it."},
             {call(&MainDesk::focusBeatbox), call(&Setup::TrackSel_MouseDown, 10),
              call(&Setup::setTrackSel, 10, true)}},
            {"a. Select a Percussion Instrument........",
             {"Draw percussion notes in the light green area in the upper part of the music "
              "tablet.In this instance, we'll use the default percussion instrument (Nylon "
              "Guitar). ",
              "Now you must add notes on other channels to create a melody. First, open "
              "Channel 2."},
             {call(&WizardDesk::choosePercussion, 25)}},
            {"b. Add  Percussion notes........",
             {"Now you add notes on Channel 2 in the same way you did on Channel 1, to create "
              "a melody."},
             {loads("\\media\\202.sng")}},
            {"3. Open Percussion Channel 3........",
             {"On the Setup toolbar (Button #9 on the main toolbar)",
              "Click Channel 3 in the Percussion group, to open it."},
             {call(&MainDesk::focusBeatbox), call(&Setup::TrackSel_MouseDown, 11),
              call(&Setup::setTrackSel, 11, true)}},
            {"a. Select a Percussion Instrument........",
             {"Select a percussion instrument using the drop-down selector in the setup "
              "toolbar."},
             {call(&WizardDesk::choosePercussion, 4)}},
            {"b. Add  Percussion notes........",
             {"Now you add notes on Channel 2 in the same way you did on Channel 1, to create "
              "a melody."},
             {loads("\\media\\203.sng")}},
            {"4. Duplicate the notes........",
             {"You can create a rhythmic motif by duplicating a sequence of notes over and "
              "over. To duplicate or clone a sequence of notes many times over, create the "
              "motif you want to duplicate first.. ",
              "Next, set the total number of notes in the completed sequence in the window "
              "labelled 'Notes'. ",
              "Enter the length of the sequence in the window labelled 'Repeat'. ",
              "Enter the number of playable notes in the sequence in the window labelled "
              "'Beats. ",
              "If this seems confusing, use the following example: You want to create a motif "
              "having 60 notes. It has a beat of 8 notes, which are repeated every 12th note. "
              "Thus, there is a silence having a 4 note duration.  "},
             {call(&WizardDesk::setForm2Text3, "60"), call(&WizardDesk::setForm2Text4, "12"),
              call(&WizardDesk::setForm2Text5, "12"),
              call(&Session::duplicate, &Duplicate::CopyNotes, 0, 12),
              call(&MainDesk::focusBeatbox), call(&Session::sequencer, &Sequencer::RewindBut_Click),
              call(&MainDesk::focusBeatbox)}},
            {"5. Test the finished composition.......",
             {"To play the composition, click button #5 (Play). "},
             {call(&Session::sequencer, &Sequencer::PlayAndStop_Click, 0),
              call(&Session::sequencer, &Sequencer::RewindBut_Click)}},
        }};
}

} // namespace velorin
