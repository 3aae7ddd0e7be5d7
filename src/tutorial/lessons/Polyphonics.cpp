// Lesson "Polyphonics": notes that sound as chords.
#include "tutorial/Acts.h"

namespace velorin {

using namespace acts;

Lesson polyphonicsLesson() {
    return {"Polyphonics",
            "L2",
            "Creating Chords",
            {
                {"1. Open a blank music tablet....",
                 {"Polyphonics means multiple sounds played simultaneously ",
                  "Chords are combinations of notes played simultaneously on a single instrument.",
                  "The only trick is to select a group of notes which, when played, sound "
                  "harmonious, and not discordant.",
                  "the name of the chord you want to play.",
                  "The first step is to clear the drawing interface, and return to the default "
                  "channel (#1)."},
                 {call(&Session::commands, &ScoreCommands::Command4_Click)}},
                {"2. select the instrument.......",
                 {"Now we select the instrument. ",
                  "In this instance, we'll select the nylon guitar. Chords are best demonstrated "
                  "on a stringed instrument, like a guitar. ",
                  "While chords can be played on any instrument using this program, in reality, "
                  "some instruments, such as wind instruments, aren't designed to play chords, ",
                  "so if you want to stay faithful to real orchestral sounds, you need to know "
                  "when you should, and should not, play chords."},
                 {call(&WizardDesk::setForm3Tab, SetupTab::channels),
                  call(&WizardDesk::chooseInstrument, 24)}},
                {"3. Add  notes to the staff on Channel 1.......",
                 {"Draw a few notes on the staff, on Channel 1."},
                 {loads("\\media\\101.sng")}},
                {"4. Select the Chords Tab in the Setup toolbar........",
                 {"Open the Chords tab in the Setup toolbar, and select Channel 1 (red button #1) ",
                  "Then select the name of the chord. We'll select 'major'. "},
                 {call(&WizardDesk::setForm3Tab, SetupTab::polyphonics)}},
                {"5. Enable Chord on Channel 1 (red button #1)....",
                 {"Select Channel 1 (red button #1) "},
                 {call(&Setup::setCh, 0, true)}},
                {"6. Select chord name - \"Major\"........",
                 {"Select the name of the chord. We'll select 'major'. ",
                  "You may also want to adjust the volume when playing chords. Do this by clicking "
                  "the 'Setup' tab and using the slider to adjust the active channel volume. "},
                 {call(&WizardDesk::setCombo3, 1), call(&Setup::setVol, 0, "60")}},
                {"7. Test the composition.......",
                 {"Now let's test it. You may repeat the above steps on other channels to create a "
                  "harmonious melody. To play the chord, click button #5 (Play). "},
                 {call(&Session::sequencer, &Sequencer::PlayAndStop_Click, 0)}},
                {"8. Compare the chord sound to single notes.......",
                 {"Now let's play it again without chords to compare the sound. You may repeat the "
                  "above steps on other channels to create a harmonious melody. To play the chord, "
                  "click button #5 (Play). "},
                 {call(&Setup::setCh, 0, false), call(&Setup::setVol, 0, "127"),
                  call(&Session::sequencer, &Sequencer::PlayAndStop_Click, 0)}},
            }};
}

} // namespace velorin
