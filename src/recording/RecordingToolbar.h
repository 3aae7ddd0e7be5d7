// The Recording Toolbar as the program holds it: its logic, which is there for the whole run, and
// its window, `Record`, which is loaded by the first use of one of its controls.
#pragma once

#include "recording/Capture.h"
#include "recording/FilePlayer.h"
#include "recording/Mp3Encoding.h"
#include "recording/Mp3Player.h"
#include "recording/RecordDesk.h"
#include "recording/modMultimedia.h"
#include "shell/RecordingLink.h"
#include "shell/ToolWindow.h"

#include <memory>

namespace velorin {

class Record;
class RecordCommands;
class StopWatch;
class ToolDesk;
struct Studio;

/// One for the run. A window that is closed while one of its handlers runs is loaded again, hidden,
/// by the next control that the handler uses.
class RecordingToolbar final : public ToolWindow, public RecordDesk, public RecordingLink {
public:
    RecordingToolbar(Studio& studio, StopWatch& watch, RecordCommands& commands, ToolDesk& desk);
    ~RecordingToolbar() override;

    Record& form(); ///< the window, loaded if it was not; it stays hidden

    /// Stops and closes the four devices.
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

    // RecordingLink
    void showProgress(double share, const std::string* caption) override;
    void endProgress() override;
    void Recordcontrol() override;

private:
    Studio& studio_;
    ToolDesk& desk_;
    std::unique_ptr<Record> form_;
    bool ready_ = false; ///< the window was loaded in order, and is to be unloaded so
    int timer_ = 0;      ///< the number of `Timer10` while it runs, else 0

public:
    modMultimedia media;
    Mp3Player mp3;
    FilePlayer player;
    Mp3Encoding encoding;
    Capture capture;
};

} // namespace velorin
