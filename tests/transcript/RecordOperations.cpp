// Operations of the Recording Toolbar, `Record`, and of the MP3 device. Those of the toolbar load
// its window.
#include "Operations.h"
#include "Runner.h"
#include "Variables.h"
#include "program/Program.h"
#include "windows/recording/Record.h"
#include "windows/recording/RecordingToolbar.h"

namespace transcript {

using namespace velorin;

namespace {

RecordingToolbar& toolbarOf(Runner& runner) {
    return runner.program().recording;
}

RecordingToolbar& loadedToolbar(Runner& runner) {
    RecordingToolbar& toolbar = toolbarOf(runner);
    (void)toolbar.form();
    return toolbar;
}

void append(Operations& all, Operations more) {
    for (Operation& each : more)
        all.push_back(std::move(each));
}

Operations windowOperations() {
    const auto form = [](Runner& runner) -> Record& { return toolbarOf(runner).form(); };
    return {
        operation("Record.Label1_Click", form, &Record::Label1_Click),
        operation("Record.cbxFormat_Click", form, &Record::cbxFormat_Click),
        operation("Record.imgTitleClose_Click", form, &Record::imgTitleClose_Click),
        {"Record.ImgR_MouseMove",
         [form](Runner& runner, Arguments& arguments) {
             const int index = arguments.next<int>();
             arguments.ignoreRest();
             form(runner).ImgR_MouseMove(index);
             return Lines{};
         }},
        {"Record.Picture7_MouseMove",
         [form](Runner& runner, Arguments& arguments) {
             arguments.ignoreRest();
             form(runner).Picture7_MouseMove();
             return Lines{};
         }},
        operation("Record.Form_Load", form, &Record::Form_Load),
        operation("Record.Form_Unload", form, &Record::Form_Unload),
        operation("Record.Form_Activate", form, &Record::Form_Activate),
    };
}

Operations captureOperations() {
    const auto capture = [](Runner& runner) -> Capture& { return loadedToolbar(runner).capture; };
    return {
        operation("Record.Cmdrecord_Click", capture, &Capture::Cmdrecord_Click),
        operation("Record.StartTrackRecording", capture, &Capture::StartTrackRecording),
        operation("Record.Recordcontrol", capture, &Capture::Recordcontrol),
        operation("Record.CmdStart_Click", capture, &Capture::CmdStart_Click),
        operation("Record.rec_Click", capture, &Capture::CmdStart_Click),
        operation("Record.Timer10_Timer", capture, &Capture::Timer10_Timer),
        operation("Record.Command1_Click", capture, &Capture::Command1_Click),
        operation("Record.Check2_Click", capture, &Capture::Check2_Click),
    };
}

Operations playerOperations() {
    const auto player = [](Runner& runner) -> FilePlayer& { return loadedToolbar(runner).player; };
    const auto mp3 = [](Runner& runner) -> Mp3Player& { return loadedToolbar(runner).mp3; };
    return {
        operation("Record.Cmd2_Click", player, &FilePlayer::Cmd2_Click),
        operation("Record.C4_Click", player, &FilePlayer::C4_Click),
        operation("Record.Command4_Click", player, &FilePlayer::Command4_Click),
        operation("Record.Soundstatus", player, &FilePlayer::Soundstatus),
        operation("Record.midipos", player, &FilePlayer::midipos),
        operation("Record.RunMidiFile", player, &FilePlayer::RunMidiFile),
        operation("Record.CmdPlayMP3_Click", mp3, &Mp3Player::CmdPlayMP3_Click),
        operation("Record.OpenMP3", mp3, &Mp3Player::OpenMP3),
        operation("Record.PlayMP3", mp3, &Mp3Player::PlayMP3),
        operation("Record.PauseMP3", mp3, &Mp3Player::PauseMP3),
        operation("Record.ResumeMP3", mp3, &Mp3Player::ResumeMP3),
        operation("Record.StopMP3", mp3, &Mp3Player::StopMP3),
        operation("Record.CloseMP3", mp3, &Mp3Player::CloseMP3),
        operation("Record.PlayNext", mp3, &Mp3Player::PlayNext),
        operation("Record.UpdateMp3Position", mp3, &Mp3Player::UpdateMp3Position),
    };
}

/// The procedures of the encoder that are not handlers are known with and without the window's
/// name.
Operations encodingOperations(const std::string& owner) {
    const auto encoding = [](Runner& runner) -> Mp3Encoding& {
        return loadedToolbar(runner).encoding;
    };
    return {
        operation(owner + "Command20_Click", encoding, &Mp3Encoding::Command20_Click),
        operation(owner + "EncodeWavFile", encoding, &Mp3Encoding::EncodeWavFile),
        operation(owner + "GetLamePath", encoding, &Mp3Encoding::GetLamePath),
        {owner + "ChangeExtension",
         [](Runner&, Arguments& arguments) {
             const std::string name = arguments.text();
             const std::string extension = arguments.text();
             arguments.expectEnd();
             return answer(ChangeExtension(name, extension));
         }},
    };
}

/// The procedures of a module belong to no window; they are known with the name of each window that
/// calls them.
Operations moduleOperations(const std::string& owner) {
    const auto media = [](Runner& runner) -> modMultimedia& { return toolbarOf(runner).media; };
    return {
        operation(owner + "mmOpen", media, &modMultimedia::mmOpen),
        operation(owner + "mmPlay", media, &modMultimedia::mmPlay),
        operation(owner + "mmClose", media, &modMultimedia::mmClose),
        operation(owner + "mmPause", media, &modMultimedia::mmPause),
        operation(owner + "mmStop", media, &modMultimedia::mmStop),
        operation(owner + "mmResume", media, &modMultimedia::mmResume),
        operation(owner + "mmGetLength", media, &modMultimedia::mmGetLength),
        operation(owner + "mmGetLengthMs", media, &modMultimedia::mmGetLengthMs),
        operation(owner + "mmGetPosition", media, &modMultimedia::mmGetPosition),
        {owner + "mmGetFramesPerSecond",
         [media](Runner& runner, Arguments& arguments) {
             const std::string alias = arguments.text();
             arguments.expectEnd();
             const auto frames = media(runner).mmGetFramesPerSecond(alias);
             if (!frames)
                 throw CommandError("division by zero");
             return answer(*frames);
         }},
        operation(owner + "mmIsAtEnd", media, &modMultimedia::mmIsAtEnd),
        operation(owner + "mmReadMp3Header", media, &modMultimedia::mmReadMp3Header),
        operation(owner + "ReadMCIEntry", media, &modMultimedia::ReadMCIEntry),
        operation(owner + "WriteMCIEntry", media, &modMultimedia::WriteMCIEntry),
    };
}

} // namespace

Operations recordOperations() {
    Operations all = windowOperations();
    append(all, captureOperations());
    append(all, playerOperations());
    for (const char* owner : {"Form1.", "Record."})
        append(all, encodingOperations(owner));
    for (const char* owner : {"Form1.", "Record.", "modMultimedia."})
        append(all, moduleOperations(owner));
    return all;
}

Variables recordVariables() {
    return {
        variable("WavFileName",
                 [](Runner& runner) -> std::string& { return runner.studio().run.WavFileName; }),
        variable("MixerPath",
                 [](Runner& runner) -> std::string& { return runner.studio().run.MixerPath; }),
        variable(
            "LamePath",
            [](Runner& runner) -> std::string& { return toolbarOf(runner).encoding.LamePath; }),
    };
}

} // namespace transcript
