// Recording: the capture device, the source that is played for it, and the ways in which a
// recording ends.
#pragma once

#include <string>

namespace velorin {

class FilePlayer;
class Mp3Encoding;
class RecordCommands;
class RecordDesk;
struct Studio;

///     idle ──Cmdrecord_Click──> recording ──end of the piece, or a click──> stopped
///      ^                                                                     │
///      ├──────────────── five seconds of Timer10 ────────────────────────────┤
///      └──── encoding <──────────── one second, if Check2 is set ────────────┘
///
/// The caption of `Label1` is the state that a click goes by. A recording lives in nested loops:
/// the source plays inside the click that began it, and the click that ends it comes in its waits.
class Capture {
public:
    Capture(Studio& studio, FilePlayer& player, Mp3Encoding& encoding, RecordDesk& desk,
            RecordCommands& commands)
        : studio_(studio), player_(player), encoding_(encoding), desk_(desk), commands_(commands) {}

    void Cmdrecord_Click(); ///< starts or stops, by the caption of `Label1`
    void StartTrackRecording();
    void Recordcontrol(); ///< ends a recording: stops, saves, and starts the encoding
    /// The image `rec`: ends a recording and encodes it, and leaves the captions; with a recording
    /// asked for it starts one more.
    void CmdStart_Click();
    void Timer10_Timer();  ///< takes "Stopped" away
    void Command1_Click(); ///< the system's mixer
    void Check2_Click();

private:
    void nameFiles();
    void takeFormat();
    [[nodiscard]] bool openCapture();
    void startSource();
    void stopByHand();
    void send(const std::string& command);
    void complain(const char* text);

    Studio& studio_;
    FilePlayer& player_;
    Mp3Encoding& encoding_;
    RecordDesk& desk_;
    RecordCommands& commands_;
    int samplesPerSecond_ = 0;
    int bits_ = 0;
    int channels_ = 0;
};

} // namespace velorin
