// Operations of playback: notes, sequencer, stopwatches, position display.
#include "Operations.h"
#include "Runner.h"
#include "session/Session.h"
#include "windows/main/Form1.h"

namespace transcript {

using namespace velorin;

namespace {

Operations soundingOperations() {
    const auto sounding = [](Runner& runner) -> NoteSounding& { return runner.session().sounding; };
    return {
        operation("Form1.StartNote", sounding, &NoteSounding::StartNote),
        operation("Form1.StartNoteBtnDn", sounding, &NoteSounding::StartNoteBtnDn),
        operation("Form1.StopNote", sounding, &NoteSounding::StopNote),
        operation("Form1.StopNoteBtnUp", sounding, &NoteSounding::StopNoteBtnUp),
        operation("Form1.StartColumnNotes", sounding, &NoteSounding::StartColumnNotes),
        operation("Form1.StopColumnNotes", sounding, &NoteSounding::StopColumnNotes),
        operation("Form1.ChangeInstrument", sounding, &NoteSounding::ChangeInstrument),
        operation("Form1.Combo1_Click", sounding, &NoteSounding::Combo1_Click),
        operation("Form1.Combo5_Click", sounding, &NoteSounding::Combo5_Click),
        operation("Form1.Command9_Click", sounding, &NoteSounding::Command9_Click),
        operation("Form1.StopSound", sounding, &NoteSounding::StopSound),
        operation("Form1.Command32_Click", sounding, &NoteSounding::Command32_Click),
        operation("Form1.StopallSound", sounding, &NoteSounding::StopallSound),
        operation("Form1.stopitall", sounding, &NoteSounding::stopitall),
        // Its argument, a list index, is ignored.
        {"Form1.Device_Click",
         [](Runner& runner, Arguments& arguments) {
             arguments.ignoreRest();
             runner.session().sounding.Device_Click();
             return Lines{};
         }},
        operation("Form1.Combo2_Click", sounding, &NoteSounding::Combo2_Click),
    };
}

} // namespace

Operations playbackOperations() {
    const auto song = [](Runner& runner) -> Sequencer& { return runner.session().sequencer; };
    const auto watch = [](Runner& runner) -> StopWatch& { return runner.session().watch; };
    const auto music = [](Runner& runner) -> MusicTableau& { return runner.form1().music; };
    Operations all = soundingOperations();
    const Operations others{
        operation("Form1.PlayAndStop_Click", song, &Sequencer::PlayAndStop_Click),
        operation("Form1.RewindBut_Click", song, &Sequencer::RewindBut_Click),
        operation("Form1.PlaySong2", song, &Sequencer::PlaySong2),
        operation("Form1.PlaySelection", song, &Sequencer::PlaySelection),
        operation("Form1.PlayNotes", song, &Sequencer::PlayNotes),
        operation("Form1.FindLastColumn", song, &Sequencer::FindLastColumn),
        operation("Form1.DisableControls", song, &Sequencer::DisableControls),
        operation("Form1.EnableControls", song, &Sequencer::EnableControls),
        operation("Form1.AdvancePlayPosition", song, &Sequencer::AdvancePlayPosition),
        operation("Form1.StopWatchNew", watch, &StopWatch::StopWatchNew),
        operation("Form1.StopWatchStart", watch, &StopWatch::StopWatchStart),
        operation("Form1.StopWatchElapsed", watch, &StopWatch::StopWatchElapsed),
        operation("Form1.WaitSeconds", watch, &StopWatch::WaitSeconds),
        operation("Form1.GetColumn", music, &MusicTableau::GetColumn),
        operation("Form1.PutColumn", music, &MusicTableau::PutColumn),
    };
    all.insert(all.end(), others.begin(), others.end());
    return all;
}

} // namespace transcript
