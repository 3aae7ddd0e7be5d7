// Lesson "Recording": a score and a MIDI file recorded to sound files.
#include "tutorial/Acts.h"

namespace velorin {

using namespace acts;

Lesson recordingLesson() {
    return {
        "Recording     ",
        "L1R",
        "Recording a score",
        {
            {"1. Open the Recording Module.......",
             {"Click the 'Recording Toolbar'  button on the toolbar to open the Recording "
              "Toolbar."},
             {call(&Session::commands, &ScoreCommands::Command4_Click),
              call(&WizardDesk::showRecord)}},
            {"2. Select Recording preferences....",
             {"Check your preferences. Click the 'Preferences'  tab in the Recording Toolbar. ",
              "Select the options that you want. In this case, we'll encode our song to MP3, "
              "and delete the intermediate WAV file.",
              "We will also record without showing the note position. The note position "
              "indicator tends to use resources and slow down the tempo somewhat.",
              "All other options remain in their default positions. See the Help file for a "
              "detailed review of Recording Preferences."},
             {call(&WizardDesk::showRecord),
              call(&WizardDesk::setRecordTab, RecordTab::preferences), pauses(),
              call(&WizardDesk::setRecordCheck2, true), pauses(),
              call(&WizardDesk::setRecordCheck3, true), pauses(),
              call(&WizardDesk::setRecordCheck4, false), pauses(),
              call(&WizardDesk::setRecordTab, RecordTab::recordPlay)}},
            {"3. To record from a score file (*.scr)....",
             {"You can record from an SNG file, a MID file, or from notes drawn on the "
              "tableau. "},
             {}},
            {"a. Open a score file (*.scr)....",
             {"In this instance, we'll load an SNG file. In the Recording toolbar, click the "
              "'Open File' button, and follow the prompts to load a file for recording."},
             {loads("\\media\\104.sng"), namesInRecord("\\media\\104.sng"),
              call(&WizardDesk::setOptsourcesng)}},
            {"b. Click \"Record\".......",
             {"In the Recording toolbar, click 'Start Recording'. Then wait until it stops at "
              "the end of the song."},
             {call(&WizardDesk::Cmdrecord_Click)}},
            {"(Optional) Click \"Stop\" to end  recording...",
             {"To stop recording before the song is finished, click 'Stop Recording'. Then "
              "wait until it stops at the end of the song."},
             {call(&WizardDesk::Cmdrecord_Click)}},
            {"4. To record from a Midi file (*.mid)....", {"Now we record from a MID file. "}, {}},
            {"a. Open a Midi file (*.mid)....",
             {"First, we'll load a MID file. In the Recording toolbar, click the 'Open File' "
              "button, and follow the prompts to load a file for recording."},
             // Rule: the MID file is opened as a score too, which leaves one cell. Held by
             // tutorial/recording.
             {loadsAndKeeps("\\media\\333.mid"), namesInRecord("\\media\\333.mid"),
              call(&WizardDesk::setOptsourcemid)}},
            {"b. Click \"Record\".......",
             {"In the Recording toolbar, click 'Start Recording'. Then wait until it stops at "
              "the end of the song."},
             {call(&WizardDesk::Cmdrecord_Click)}},
            {"(Optional) Click \"Stop\" to end  recording...",
             {"To stop recording before the song is finished, click 'Stop Recording'. Then "
              "wait until it stops at the end of the song."},
             {call(&WizardDesk::Cmdrecord_Click)}},
        }};
}

} // namespace velorin
