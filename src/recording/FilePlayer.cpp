// What each button does to each kind of file, and the loops that follow a WAV and a MID.
#include "recording/FilePlayer.h"

#include "platform/Dialogs.h"
#include "platform/Mci.h"
#include "platform/MessageLoop.h"
#include "platform/Text.h"
#include "playback/Progress.h"
#include "playback/StopWatch.h"
#include "recording/Mp3Player.h"
#include "recording/RecordCommands.h"
#include "recording/RecordDesk.h"
#include "score/FileHelpers.h"
#include "score/SetupControls.h"
#include "score/Studio.h"

#include <utility>

namespace velorin {

namespace {

constexpr float wavPollSeconds = 0.1F;
constexpr float midiPollSeconds = 0.25F;

// The pattern without a point also lets a name through that merely ends in these letters.
constexpr char openFilter[] =
    "Midi, score, wav, mp3(*.sng;*.mid;*.wav;*mp3)|*.sng;*.mid;*.wav;*mp3";

std::string lastThree(const std::string& name) {
    return platform::lowerCase(name.size() < 3 ? name : name.substr(name.size() - 3));
}

} // namespace

void FilePlayer::makeStopWatches() {
    mp3_.timer = watch_.StopWatchNew();
    wavTimer_ = watch_.StopWatchNew();
}

void FilePlayer::Cmd2_Click(int index) {
    switch (index) {
    case 0:
        commands_.HideToolbars();
        C4_Click();
        commands_.ShowToolbars();
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
    desk_.setText(RecordText::Text6, platform::trimBlanks(answer->name));
    studio_.run.WavFileName = platform::trimBlanks(desk_.text(RecordText::Text6));
    const std::string kind = lastThree(studio_.run.WavFileName);
    if (kind == "sng") {
        commands_.OpenFile(studio_.run.WavFileName);
        desk_.selectOptsourcesng();
    } else if (kind == "mid") {
        desk_.selectOptsourcemid();
    }
}

void FilePlayer::Command4_Click(int index) {
    carryOut(index, Rest::nothing);
}

// Whatever is done to a WAV, a loop follows it from then on.
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
        commands_.PlayAndStop_Click(0);
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

// A score does not pause here: the button starts it when it stands still.
void FilePlayer::pauseOrResume(const std::string& name) {
    const bool pauses = studio_.run.PlayerPaused == flagSet;
    if (name.ends_with(".sng")) {
        commands_.PlayAndStop_Click(0);
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
        commands_.PlayAndStop_Click(1);
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

// Each click on a WAV begins a loop of its own, inside the wait of the one before. Only the
// innermost ends with the sound; an outer one clears the flag at its next step and polls on, for
// the rest of the run if no other sound comes to its end. So such loops are counted and not nested:
// the click returns, and the wait that it came in goes on as the wait of its loop.
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
        if (studio_.run.SoundFinished == flagClear) {
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
    } else if (studio_.run.PlayerPaused == flagSet) {
        send("pause midi");
    } else {
        // The list counts the mapper as its first entry, so this is the device behind the selected
        // one; the file itself plays on the selected one.
        commands_.openMidiOutput(studio_.setup.Combo2() + 1);
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
    while (run.RecordingFlag == flagClear && run.SoundFinished == flagClear && !loop.isEnding()) {
        watch_.WaitSeconds(mp3_.timer, midiPollSeconds);
        if (!loop.isEnding())
            midipos();
    }
    if (run.RecordingFlag != flagSet)
        return;
    while (run.RecordingFlag != flagClear && !loop.isEnding()) {
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
        commands_.Command32_Click();
    } else if (share < 0.0) {
        desk_.setCaption(RecordCaption::Status, "");
    }
}

void FilePlayer::clearProgress() {
    desk_.setCaption(RecordCaption::Status, "");
    desk_.emptyL2();
}

// The commands have the name in small letters, and beside it there may be a file of that name.
void FilePlayer::noteSpelling() {
    studio_.platform.mci.noteSpelling(platform::trimBlanks(desk_.text(RecordText::Text6)));
}

void FilePlayer::send(const std::string& command) {
    studio_.platform.mci.mciSendStringA(command);
}

// A device that is closed answers nothing, which reads as 0.
double FilePlayer::ask(const char* question) {
    constexpr std::size_t replyLength = 128;
    std::string reply(replyLength, ' ');
    studio_.platform.mci.mciSendStringA(question, &reply);
    return platform::Val(reply);
}

} // namespace velorin
