// The controls of the Recording Toolbar, `Record`, as its logic reads and sets them.
#pragma once

#include <cstdint>
#include <string>

namespace velorin {

/// Controls that show a text which only the program changes.
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

/// Implemented beside the window. Every call loads the window, hidden, if it is not loaded.
class RecordDesk {
public:
    virtual ~RecordDesk() = default;

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

    /// The bar's width is its track's width times `share`; a share below 0 leaves the bar.
    virtual void setL2Share(double share) = 0;
    virtual void emptyL2() = 0; ///< a width of 1

    /// Starts the five seconds, unless they run.
    virtual void enableTimer10() = 0;
    virtual void disableTimer10() = 0;

    virtual void setTopMost(bool topMost) = 0;
    [[nodiscard]] virtual std::int32_t picMP3Handle() = 0; ///< a number that stands for `picMP3`
};

} // namespace velorin
