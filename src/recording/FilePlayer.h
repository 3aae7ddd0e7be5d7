// The player of the Recording Toolbar: opens and plays one file of four kinds, told apart by the
// ending of its name.
#pragma once

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
    void play(const std::string& name);
    void pauseOrResume(const std::string& name);
    void stop(const std::string& name);
    void pollWav();
    void pollMidi();
    void clearProgress();
    void send(const std::string& command);
    [[nodiscard]] double ask(const char* question);

    Studio& studio_;
    Mp3Player& mp3_;
    StopWatch& watch_;
    RecordDesk& desk_;
    RecordCommands& commands_;
    std::int32_t wavTimer_ = 0; ///< stopwatch number
};

} // namespace velorin
