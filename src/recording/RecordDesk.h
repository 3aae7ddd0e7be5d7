// The controls of the Recording Toolbar, `Record`, as its logic reads and sets them.
#pragma once

#include "recording/MakingNews.h"

#include <cstdint>
#include <string>

namespace velorin {

inline constexpr char messageTitle[] = "Velorin"; ///< title of every message box of recording

/// Controls whose text only the program changes.
enum class RecordCaption {
    Label1,
    Label8,
    Status,
    Command20,
    lblKhz,
    lblbitrate,
    lblmode,
    lblTime
};
enum class RecordText { Text6, InputPath, OutPutPath };
enum class RecordCheck { Check2, Check3, Check4 };
enum class RecordList { cbxFormat, Combo4, Combo3 };
enum class RecordPanel { Picture2, Picture7 };
/// What the image `rec` shows: the button up, pressed, recording.
enum class RecordPicture { RecUP, RecDN, RecNT };

/// Implemented by `RecordingToolbar`.
///
/// Rule: every call but the news loads the window if it is not loaded, and it stays hidden. Held by
/// recording/closed_meanwhile.
class RecordDesk : public MakingNews {
public:
    [[nodiscard]] virtual std::string caption(RecordCaption control) = 0;
    virtual void setCaption(RecordCaption control, const std::string& text) = 0;
    [[nodiscard]] virtual std::string text(RecordText box) = 0;
    virtual void setText(RecordText box, const std::string& text) = 0;
    [[nodiscard]] virtual bool isChecked(RecordCheck box) = 0;
    [[nodiscard]] virtual int listIndex(RecordList list) = 0;        ///< -1 for no entry
    [[nodiscard]] virtual std::string listText(RecordList list) = 0; ///< empty for no entry

    [[nodiscard]] virtual bool Optsourcesng() = 0;
    [[nodiscard]] virtual bool Optsourcemid() = 0;
    virtual void selectOptsourcesng() = 0; ///< clears the other option
    virtual void selectOptsourcemid() = 0;

    virtual void enablePanel(RecordPanel panel, bool enabled) = 0;
    virtual void showRec(RecordPicture picture) = 0;
    virtual void showPicture5(bool shown) = 0;

    /// Sets the bar's width to its track's width times `share`. A share below 0 changes nothing.
    virtual void setL2Share(double share) = 0;
    virtual void emptyL2() = 0; ///< sets the bar's width to 1

    /// Starts the timer of five seconds.
    ///
    /// Rule: a timer that runs is not started again. Held by recording/a_recording.
    virtual void enableTimer10() = 0;
    virtual void disableTimer10() = 0;

    virtual void setTopMost(bool topMost) = 0;
    [[nodiscard]] virtual std::int32_t picMP3Handle() = 0; ///< a number that stands for `picMP3`
};

} // namespace velorin
