// What each button does to each kind of file, and the loops that follow a WAV and a MID.
#include "recording/FilePlayer.h"

#include "platform/Dialogs.h"
#include "platform/Mci.h"
#include "platform/MessageLoop.h"
#include "platform/Text.h"
#include "playback/Progress.h"
#include "recording/Mp3Player.h"
#include "recording/RecordDesk.h"
#include "session/Session.h"
#include "studio/FileHelpers.h"

#include <utility>

namespace velorin {

namespace {

constexpr float wavPollSeconds = 0.1F;
constexpr float midiPollSeconds = 0.25F;

// Rule: the last pattern has no point, so the dialog also shows a name that merely ends in "mp3".
// Held by recording/opening_a_file.
constexpr char openFilter[] =
    "Midi, score, wav, mp3(*.sng;*.mid;*.wav;*mp3)|*.sng;*.mid;*.wav;*mp3";

std::string lastThree(const std::string& name) {
    return platform::lowerCase(name.size() < 3 ? name : name.substr(name.size() - 3));
}

} // namespace

FilePlayer::FilePlayer(Session& session, Mp3Player& mp3, RecordDesk& desk)
    : session_(session), studio_(session.studio), mp3_(mp3), watch_(session.watch), desk_(desk) {}

// Rule: new stopwatches do not run. So a loop that follows a MID file across a reload of the window
// waits until the program ends. Held by recording/closed_while_it_works.
void FilePlayer::makeStopWatches() {
    mp3_.timer = watch_.StopWatchNew();
    wavTimer_ = watch_.StopWatchNew();
}

void FilePlayer::Cmd2_Click(int index) {
    switch (index) {
    case 0:
        studio_.desk->HideToolbars();
        C4_Click();
        studio_.desk->ShowToolbars();
        break;
    case 1:
        carryOut(1, Rest::endOfPause);
        break;
    case 2:
        studio_.run.PlayerPaused = flagSet;
        Command4_Click(2);
        break;
    case 3:
        Command4_Click(3);
        break;
    default:
        break;
    }
}

void FilePlayer::C4_Click() {
    platform::FileDialogRequest request;
    request.title = "Open File";
    request.filter = openFilter;
    const auto answer = studio_.platform.dialogs.GetOpenFileNameA(request);
    if (!answer || answer->name.empty())
        return;
    openChosen(answer->name);
}

void FilePlayer::openChosen(const std::string& name) {
    desk_.setText(RecordText::Text6, platform::trimBlanks(name));
    studio_.run.WavFileName = platform::trimBlanks(desk_.text(RecordText::Text6));
    const std::string kind = lastThree(studio_.run.WavFileName);
    if (kind == "sng") {
        session_.files.OpenFile(studio_.run.WavFileName);
        desk_.selectOptsourcesng();
    } else if (kind == "mid") {
        desk_.selectOptsourcemid();
    }
}

void FilePlayer::Command4_Click(int index) {
    carryOut(index, Rest::nothing);
}

// Play, pause and stop of a WAV each start a loop that follows it.
void FilePlayer::carryOut(int index, Rest rest) {
    const std::string name =
        platform::trimBlanks(platform::lowerCase(desk_.text(RecordText::Text6)));
    studio_.run.SoundFinished = flagClear;
    if (index == 1)
        play(name);
    else if (index == 2)
        pauseOrResume(name);
    else if (index == 3)
        stop(name);
    if (index >= 1 && index <= 3 && name.ends_with(".wav"))
        pollWav(rest);
    else
        finish(rest);
}

void FilePlayer::finish(Rest rest) {
    if (rest == Rest::endOfPause)
        studio_.run.PlayerPaused = flagClear;
}

void FilePlayer::play(const std::string& name) {
    if (name.ends_with(".sng")) {
        session_.sequencer.PlayAndStop_Click(0);
    } else if (name.ends_with(".wav")) {
        send("stop sound");
        send("close sound");
        noteSpelling();
        send("open waveaudio!" + name + " alias sound");
        send("play sound");
    } else if (name.ends_with(".mp3")) {
        mp3_.CmdPlayMP3_Click();
    } else if (name.ends_with(".mid")) {
        RunMidiFile();
    }
}

// Rule: the button does not pause a score; it starts the score if none plays. Held by
// recording/playing_a_score.
void FilePlayer::pauseOrResume(const std::string& name) {
    const bool pauses = studio_.run.PlayerPaused.isMinusOne();
    if (name.ends_with(".sng")) {
        session_.sequencer.PlayAndStop_Click(0);
    } else if (name.ends_with(".wav")) {
        send(pauses ? "pause sound" : "resume sound");
    } else if (name.ends_with(".mp3")) {
        pauses ? mp3_.PauseMP3() : mp3_.ResumeMP3();
    } else if (name.ends_with(".mid")) {
        RunMidiFile();
    }
}

void FilePlayer::stop(const std::string& name) {
    if (name.ends_with(".sng")) {
        session_.sequencer.PlayAndStop_Click(1);
        return;
    }
    if (name.ends_with(".wav")) {
        send("stop sound");
        send("close sound");
    } else if (name.ends_with(".mp3")) {
        mp3_.PlayNext();
    } else if (name.ends_with(".mid")) {
        send("stop midi");
        send("close midi");
    }
    clearProgress();
}

// Rule: each click on a WAV starts a loop inside the wait of the one before, and only the innermost
// ends with the sound. An outer one clears the flag at its next step and polls on, until another
// sound ends or the program does. Held by recording/nested_wav_loops.
//
// So that these loops take no stack, they are counted and not nested: the click returns, and the
// wait in which it was handled goes on as the wait of its loop.
void FilePlayer::pollWav(Rest rest) {
    const platform::MessageLoop& loop = studio_.platform.loop;
    studio_.run.SoundFinished = flagClear;
    watch_.StopWatchStart(wavTimer_);
    const WavLoop begun = waitFor(rest);
    if (wavLoops_ != nullptr && wavLoops_->depth == loop.depth()) {
        wavLoops_->outer.push(wavLoops_->innermost);
        wavLoops_->innermost = begun;
        return;
    }
    WavLoops loops{loop.depth() + 1, begun, {}};
    WavLoops* const below = std::exchange(wavLoops_, &loops);
    runWavLoops(loops);
    wavLoops_ = below;
}

FilePlayer::WavLoop FilePlayer::waitFor(Rest rest) {
    return {wavTimer_, watch_.endOfWait(wavTimer_, wavPollSeconds), rest};
}

void FilePlayer::runWavLoops(WavLoops& loops) {
    for (;;) {
        while (watch_.waitOn(loops.innermost.timer, loops.innermost.end)) {
        }
        if (studio_.platform.loop.isEnding())
            return;
        Soundstatus();
        if (!studio_.run.SoundFinished.isSet()) {
            loops.innermost = waitFor(loops.innermost.rest);
            continue;
        }
        finish(loops.innermost.rest);
        if (loops.outer.empty())
            return;
        loops.innermost = loops.outer.pop();
    }
}

void FilePlayer::Soundstatus() {
    studio_.run.SoundFinished = flagClear;
    double share = 0.0;
    const double length = ask("status sound length");
    if (length != 0.0) {
        share = playedShare(ask("status sound position"), length);
        desk_.setCaption(RecordCaption::Status, percentCaption(share));
        desk_.setL2Share(share);
    }
    if (share >= 1.0) {
        studio_.run.SoundFinished = flagSet;
        desk_.emptyL2();
        desk_.setCaption(RecordCaption::Status, "");
        send("stop sound");
        send("close sound");
    } else if (share < 0.0) {
        desk_.setCaption(RecordCaption::Status, "");
    }
}

// Rule: a missing file starts no loop, so nothing ends the recording that it was played for. Held
// by recording/from_a_mid_file.
void FilePlayer::RunMidiFile() {
    const std::string name =
        platform::lowerCase(platform::trimBlanks(desk_.text(RecordText::Text6)));
    if (!FileExists(studio_.platform, name) || !name.ends_with(".mid"))
        return;
    constexpr std::size_t replyLength = 255;
    std::string mode(replyLength, ' ');
    studio_.platform.mci.mciSendStringA("status midi mode", &mode);
    if (mode.starts_with("paused")) {
        send("resume midi");
    } else if (studio_.run.PlayerPaused.isMinusOne()) {
        send("pause midi");
    } else {
        // Rule: the list's first entry is the mapper, so this opens the device after the selected
        // one. The file itself plays on the selected one. Held by recording/from_a_mid_file.
        session_.sounding.openDevice(studio_.setup.Combo2() + 1);
        send("stop midi");
        send("close midi");
        studio_.platform.mci.setSequencerDevice(studio_.setup.Combo2() - 1);
        noteSpelling();
        send("open sequencer!" + name + " alias midi");
        send("play midi");
    }
    pollMidi();
}

void FilePlayer::pollMidi() {
    const Run& run = studio_.run;
    const platform::MessageLoop& loop = studio_.platform.loop;
    watch_.StopWatchStart(mp3_.timer);
    while (!run.RecordingFlag.isSet() && !run.SoundFinished.isSet() && !loop.isEnding()) {
        watch_.WaitSeconds(mp3_.timer, midiPollSeconds);
        if (!loop.isEnding())
            midipos();
    }
    if (!run.RecordingFlag.isMinusOne())
        return;
    while (run.RecordingFlag.isSet() && !loop.isEnding()) {
        watch_.WaitSeconds(mp3_.timer, midiPollSeconds);
        if (!loop.isEnding())
            midipos();
    }
    if (!loop.isEnding() && Recordcontrol)
        Recordcontrol();
}

void FilePlayer::midipos() {
    if (!platform::lowerCase(desk_.text(RecordText::Text6)).ends_with(".mid"))
        return;
    const double length = ask("status midi length");
    if (length == 0.0)
        return;
    const double share = playedShare(ask("status midi position"), length);
    desk_.setCaption(RecordCaption::Status, percentCaption(share));
    desk_.setL2Share(share);
    studio_.platform.loop.Yield();
    if (studio_.platform.loop.isEnding())
        return;
    if (share >= 1.0) {
        studio_.run.RecordingFlag = flagClear;
        studio_.run.SoundFinished = flagSet;
        clearProgress();
        session_.sounding.Command32_Click();
    } else if (share < 0.0) {
        desk_.setCaption(RecordCaption::Status, "");
    }
}

void FilePlayer::clearProgress() {
    desk_.setCaption(RecordCaption::Status, "");
    desk_.emptyL2();
}

// The commands have the name in lower case. This tells the device the real spelling, since a file
// of the lower-case name may exist too.
void FilePlayer::noteSpelling() {
    studio_.platform.mci.noteSpelling(platform::trimBlanks(desk_.text(RecordText::Text6)));
}

void FilePlayer::send(const std::string& command) {
    studio_.platform.mci.mciSendStringA(command);
}

// A closed device gives no answer, which reads as 0.
double FilePlayer::ask(const char* question) {
    constexpr std::size_t replyLength = 128;
    std::string reply(replyLength, ' ');
    studio_.platform.mci.mciSendStringA(question, &reply);
    return platform::Val(reply);
}

} // namespace velorin
