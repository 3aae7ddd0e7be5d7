// One table with the texts of all controls: tool tips, long hints, and names and kinds for screen
// readers.
#pragma once

#include <span>
#include <string>
#include <string_view>

namespace velorin {

/// The kind of control that a screen reader announces.
enum class ControlKind {
    itself, ///< a Qt control, which reports its kind itself
    button,
    toggle, ///< a button whose picture shows whether something is on
    option,
    checkBox,
    picture,
    tableau,
    progress,
    grip,
    strip,  ///< a strip of buttons
    pages,  ///< tabs with pages
    alert,  ///< a window with news, which is read out at once
    status, ///< a line of words, which is read when they matter
    window,
};

/// A row of the table. "TrackHide()" is a row for all elements of an array: %1 is the element's
/// index plus 1, %2 is the name of the row that it belongs to.
struct ControlText {
    const char* control; ///< its name; an element of an array as "Cmd2(1)"
    const char* tip;     ///< the tool tip; empty for none
    /// For screen readers; empty if the tip, or else the caption, is the name.
    const char* name = "";
    /// The long hint, its lines separated by "\r\n". Only the main window shows hints; in other
    /// windows this is what a screen reader adds to the name.
    const char* hint = "";
    ControlKind kind = ControlKind::itself;
};

struct WindowTexts {
    const char* window; ///< "Form1"
    std::span<const ControlText> controls;
};

/// The windows of the studio.
[[nodiscard]] std::span<const WindowTexts> windowTexts();
/// The window of the converter, which is another program.
[[nodiscard]] const WindowTexts& converterTexts();

/// The row of a control, or else of its array; null if neither is in the table.
[[nodiscard]] const ControlText* findControlText(std::string_view window, std::string_view control);

/// The tool tip of a control, and its name for screen readers, with %1 and %2 filled in; empty if
/// the table has none.
[[nodiscard]] std::string controlTip(std::string_view window, std::string_view control);
[[nodiscard]] std::string controlName(std::string_view window, std::string_view control);

/// The long hint of a control of the main window; empty if it has none.
[[nodiscard]] const char* controlHint(std::string_view control);

/// The name of a row [0, 13): "Channel 1".
[[nodiscard]] const char* rowName(int row);

/// The tool tip of button 4 of the main toolbar in right-click mode [0, 3).
[[nodiscard]] const char* rightClickTip(int mode);

// Tool tips that are made when the pointer comes; %1 is a number.
constexpr char channelTip[] = "Channel %1";
constexpr char percussionChannelTip[] = "Percussion Channel %1";
constexpr char activeTip[] = " (Active)"; ///< after the tip of the selected row
constexpr char laneTip[] = "Draw Channel %1 Polyphonics";

} // namespace velorin
