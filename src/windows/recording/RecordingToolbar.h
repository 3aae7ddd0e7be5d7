// The Recording Toolbar: its logic, which exists for the whole run, and its window `Record`, which
// is loaded by the first use of one of its controls.
#pragma once

#include "recording/Capture.h"
#include "recording/FilePlayer.h"
#include "recording/Mp3Encoding.h"
#include "recording/Mp3Player.h"
#include "recording/RecordDesk.h"
#include "recording/modMultimedia.h"
#include "windows/frame/ToolWindow.h"

#include <functional>
#include <memory>
#include <string>

namespace velorin {

class Record;
class Session;
class ToolWindows;
struct Studio;

/// One for the run.
///
/// Rule: if the window is closed while one of its handlers runs, the next control that the handler
/// uses loads it again, hidden. Held by recording/closed_meanwhile and
/// recording/closed_while_it_works.
class RecordingToolbar final : public ToolWindow, public RecordDesk {
public:
    RecordingToolbar(Session& session, ToolWindows& windows);
    ~RecordingToolbar() override;

    Record& form(); ///< the window, loaded if it was not; it stays hidden

    /// Stops and closes the four devices.
    ///
    /// Rule: the commands are sent also if no device was ever opened. Held by recording/loading.
    void closeDevices();

    QWidget* window() override;
    QWidget& load() override;
    void unload() override;

    // RecordDesk
    std::string caption(RecordCaption control) override;
    void setCaption(RecordCaption control, const std::string& text) override;
    std::string text(RecordText box) override;
    void setText(RecordText box, const std::string& text) override;
    bool isChecked(RecordCheck box) override;
    int listIndex(RecordList list) override;
    std::string listText(RecordList list) override;
    bool Optsourcesng() override;
    bool Optsourcemid() override;
    void selectOptsourcesng() override;
    void selectOptsourcemid() override;
    void enablePanel(RecordPanel panel, bool enabled) override;
    void showRec(RecordPicture picture) override;
    void showPicture5(bool shown) override;
    void setL2Share(double share) override;
    void emptyL2() override;
    void enableTimer10() override;
    void disableTimer10() override;
    void setTopMost(bool topMost) override;
    std::int32_t picMP3Handle() override;

    // MakingNews; dropped while the window is not loaded
    void recordingBegun(const std::string& wav, int bytesPerSecond, bool fromScore) override;
    void recordingEnded(const std::string& wav) override;
    void encodingBegun(const std::string& mp3) override;
    void encodingAt(double share) override;
    void encodingEnded(const MadeMp3& made) override;
    void explain(const std::string& lines) override;

    std::function<void()> onExport; ///< the user wants an MP3 that sounds right
    std::function<void(const std::string& lines)> onHint; ///< shows lines for some seconds

    // Called by the main window while the score plays. Each loads the window.
    void showProgress(double share, const std::string* caption); ///< as in `MainDesk`
    void endProgress();
    void Recordcontrol();

private:
    Studio& studio_;
    ToolWindows& windows_;
    std::unique_ptr<Record> form_;
    bool ready_ = false;  ///< `Form_Load` was run, so `Form_Unload` must run
    std::string ofScore_; ///< the WAV that was recorded from the score last
    int timer_ = 0;       ///< the number of the running `Timer10`, 0 for none

public:
    modMultimedia media;
    Mp3Player mp3;
    FilePlayer player;
    Mp3Encoding encoding;
    Capture capture;
};

} // namespace velorin
