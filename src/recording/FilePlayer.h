// The player of the Recording Toolbar: opens and plays a file. The ending of the name decides which
// of the four kinds it is.
#pragma once

#include "playback/WaitingLoops.h"

#include <cstdint>
#include <functional>
#include <string>

namespace velorin {

class Mp3Player;
class RecordDesk;
class Session;
class StopWatch;
struct Studio;

/// Handlers run nested inside one another's waits. A polling loop sleeps between its steps and ends
/// with the program at the latest.
class FilePlayer {
public:
    FilePlayer(Session& session, Mp3Player& mp3, RecordDesk& desk);

    void makeStopWatches(); ///< takes two new stopwatches; called at each load of the window

    void Cmd2_Click(int index); ///< 0 opens, 1 plays, 2 pauses, 3 stops
    void C4_Click();            ///< shows the open dialog
    /// What the open dialog does with its name: the file comes into `Text6`, and a score opens.
    void openChosen(const std::string& name);
    void Command4_Click(int index); ///< 1 plays, 2 pauses, 3 stops the file in `Text6`
    void Soundstatus();             ///< one step of the WAV that plays
    void midipos();                 ///< one step of the MID that plays
    /// Starts, pauses or resumes the MID file in `Text6`, and follows it; ends a recording with it.
    void RunMidiFile();

    std::function<void()> Recordcontrol; ///< ends the recording that a MID file was played for

private:
    /// What a click still has to do when the file that it follows is over.
    enum class Rest { nothing, endOfPause };

    /// A loop that follows a WAV and waits for its next poll or for an inner loop.
    struct WavLoop {
        std::int32_t timer = 0; ///< of its wait; a load of the window takes other stopwatches
        float end = 0.0F;       ///< a reading of that stopwatch
        Rest rest = Rest::nothing;
        bool operator==(const WavLoop&) const = default;
    };

    /// Loops that each began directly in the wait of the one before.
    struct WavLoops {
        int depth = 0; ///< nesting depth of the message loop in their waits
        WavLoop innermost;
        WaitingLoops<WavLoop> outer;
    };

    void carryOut(int index, Rest rest);
    void finish(Rest rest);
    void play(const std::string& name);
    void pauseOrResume(const std::string& name);
    void stop(const std::string& name);
    void pollWav(Rest rest);
    [[nodiscard]] WavLoop waitFor(Rest rest);
    void runWavLoops(WavLoops& loops);
    void pollMidi();
    void clearProgress();
    void noteSpelling();
    void send(const std::string& command);
    [[nodiscard]] double ask(const char* question);

    Session& session_;
    Studio& studio_;
    Mp3Player& mp3_;
    StopWatch& watch_;
    RecordDesk& desk_;
    std::int32_t wavTimer_ = 0;    ///< stopwatch number
    WavLoops* wavLoops_ = nullptr; ///< the innermost group that runs, or null
};

} // namespace velorin
