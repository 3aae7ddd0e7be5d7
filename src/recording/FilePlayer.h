// The player of the Recording Toolbar: opens and plays one file of four kinds, told apart by the
// ending of its name.
#pragma once

#include "playback/WaitingLoops.h"

#include <cstdint>
#include <functional>
#include <string>

namespace velorin {

class Mp3Player;
class RecordCommands;
class RecordDesk;
class StopWatch;
struct Studio;

/// Handlers nest in one another's waits. A polling loop sleeps between its steps, and ends at the
/// latest when the program does.
class FilePlayer {
public:
    FilePlayer(Studio& studio, Mp3Player& mp3, StopWatch& watch, RecordDesk& desk,
               RecordCommands& commands)
        : studio_(studio), mp3_(mp3), watch_(watch), desk_(desk), commands_(commands) {}

    void makeStopWatches(); ///< two more of the table, at each load of the window

    void Cmd2_Click(int index);     ///< 0 opens, 1 plays, 2 pauses, 3 stops
    void C4_Click();                ///< the open dialog
    void Command4_Click(int index); ///< 1 plays, 2 pauses, 3 stops the file in `Text6`
    void Soundstatus();             ///< one step of the WAV that plays
    void midipos();                 ///< one step of the MID that plays
    /// Starts, pauses or resumes the MID file in `Text6`, and follows it; ends a recording with it.
    void RunMidiFile();

    std::function<void()> Recordcontrol; ///< ends the recording that a MID file was played for

private:
    /// What a click has left to do when the file that it began to follow is over.
    enum class Rest { nothing, endOfPause };

    /// A loop that follows a WAV, while it waits for its next look or for a loop inside it.
    struct WavLoop {
        std::int32_t timer = 0; ///< of its wait: a load of the window brings other stopwatches
        float end = 0.0F;       ///< a reading of that stopwatch
        Rest rest = Rest::nothing;
        bool operator==(const WavLoop&) const = default;
    };

    /// Loops of which each was begun in the wait of the one before, and by nothing in between.
    struct WavLoops {
        int depth = 0; ///< of the message loop in their waits
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

    Studio& studio_;
    Mp3Player& mp3_;
    StopWatch& watch_;
    RecordDesk& desk_;
    RecordCommands& commands_;
    std::int32_t wavTimer_ = 0;    ///< stopwatch number
    WavLoops* wavLoops_ = nullptr; ///< those that run; of some that nest, the innermost
};

} // namespace velorin
