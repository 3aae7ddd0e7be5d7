// Recording: the capture device, the source that is played for it, and how a recording ends.
#pragma once

#include <string>

namespace velorin {

class FilePlayer;
class Mp3Encoding;
class RecordDesk;
class Session;
struct Studio;

///     idle ──Cmdrecord_Click──> recording ──end of the piece, or a click──> stopped
///      ^                                                                     │
///      ├──────────────── five seconds of Timer10 ────────────────────────────┤
///      └──── encoding <──────────── one second, if Check2 is set ────────────┘
///
/// The caption of `Label1` is the state that a click tests. The source plays inside the click that
/// started it. The click that ends the recording is handled in a nested loop, during a wait of the
/// source.
class Capture {
public:
    Capture(Session& session, FilePlayer& player, Mp3Encoding& encoding, RecordDesk& desk);

    void Cmdrecord_Click(); ///< starts or stops, by the caption of `Label1`
    void StartTrackRecording();
    void Recordcontrol(); ///< ends a recording: stops, saves, and starts the encoding
    /// A click on the image `rec`.
    ///
    /// Rule: it ends a recording and encodes it, but does not change the captions. If
    /// `RecordingFlag` is set, it starts another recording instead. Held by
    /// recording/through_the_image.
    void CmdStart_Click();
    void Timer10_Timer();  ///< clears "Stopped"
    void Command1_Click(); ///< opens the system's mixer
    void Check2_Click();

private:
    void nameFiles();
    void takeFormat();
    [[nodiscard]] bool openCapture();
    void startSource();
    void stopByHand();
    void send(const std::string& command);
    void showErrorBox(const char* text);

    Session& session_;
    Studio& studio_;
    FilePlayer& player_;
    Mp3Encoding& encoding_;
    RecordDesk& desk_;
    int samplesPerSecond_ = 0;
    int bits_ = 0;
    int channels_ = 0;
};

} // namespace velorin
