// Lesson "Setup": device, tempo, channel and instruments.
#include "tutorial/Acts.h"

namespace velorin {

using namespace acts;

Lesson setupLesson() {
    return {
        "Setup    ",
        "L1S",
        "Before you begin...Setup",
        {
            {"1. Open the Setup tab....",
             {"Click the Setup tab in the Setup toolbar. For each of the steps in this list, "
              "there is a default setting. ",
              "So you don't really have to set anything to begin a composing session. First, "
              "there is the requirement for a Midi device, which gives you your sound output. ",
              "You may keep the default Midi device, or select another, provided your system "
              "is equipped with more than one. ",
              "These devices sound different, so choose the one you prefer. In this example, "
              "we'll keep your current Midi device."},
             {call(&WizardDesk::setForm3Tab, SetupTab::setup)}},
            {"2. Select the Tempo.......",
             {"Now we select the Tempo. This is the speed at which single notes are played. "
              "The range is between 10 and 100. The default setting is 80. ",
              "To change the tempo to 70, move the scroll bar to the left with your mouse or "
              "click the '<' button once. "},
             {call(&Setup::setTempoBar, 70), call(&WizardDesk::setForm3Tab, SetupTab::setup)}},
            {"3. Select the Channel......",
             {"When you open the program, the default channel is always Channel 1.  Draw a few "
              "notes on the staff, with Channel 1 open.",
              "To change channels, Click Channel 2 in the Instrument group, to open it."},
             {call(&Setup::setTrackSel, 1, true),
              call(&WizardDesk::setForm3Tab, SetupTab::channels)}},
            {"4. Select the Instrument....",
             {"Open the Channels, Instruments tab in the Setup toolbar. Select an instrument "
              "from the Instrument group (upper drop-down list). "},
             {call(&WizardDesk::setForm3Tab, SetupTab::channels),
              call(&Setup::setTrackSel, 1, true), call(&WizardDesk::chooseInstrument, 26)}},
            {"5. Select the Percussion Instrument....",
             {"Open the Channels, Instruments tab in the Setup toolbar. Select an instrument "
              "from the Percussion group (lower drop-down list). "},
             {call(&WizardDesk::setForm3Tab, SetupTab::channels),
              call(&Setup::setTrackSel, 1, true), call(&WizardDesk::choosePercussion, 4)}},
            {"6. Add notes.....",
             {"You add notes after everything has been set up, not before. Otherwise the setup "
              "changes will not apply to new notes added afterwards."},
             {call(&Session::commands, &ScoreCommands::Command4_Click), loads("\\media\\301.sng")}},
            {"7. Test the output quality.....",
             {"To play the notes, click button #5 (Play). "},
             {call(&Session::sequencer, &Sequencer::PlayAndStop_Click, 0)}},
        }};
}

} // namespace velorin
