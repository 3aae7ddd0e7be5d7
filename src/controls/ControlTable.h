// What is said of the controls: tool tips, long hints, and names and kinds for readers of the
// screen, all in one table.
#pragma once

#include <span>
#include <string>
#include <string_view>

namespace velorin {

/// What a reader of the screen is to take a control for.
enum class ControlKind {
    itself, ///< a control of the toolkit, which says so itself
    button,
    toggle, ///< a button that shows by its picture whether something is on
    option,
    checkBox,
    picture,
    tableau,
    progress,
    grip,
    strip, ///< of buttons
    pages, ///< behind tabs
    alert, ///< a window with news, which the reader tells at once
};

/// A row of the table. In a row for all elements of an array, "TrackHide()", %1 stands for the
/// element's index plus 1 and %2 for the name of the row that it belongs to.
struct ControlText {
    const char* control;   ///< its name; an element of an array as "Cmd2(1)"
    const char* tip;       ///< the tool tip, empty where none is stored
    const char* name = ""; ///< for readers; empty where the tip, or else its own caption, says it
    const char* hint = ""; ///< the long hint, its lines separated by "\r\n"; outside the main
                           ///< window, which alone shows them, what a reader adds to the name
    ControlKind kind = ControlKind::itself;
};

struct WindowTexts {
    const char* window; ///< "Form1"
    std::span<const ControlText> controls;
};

[[nodiscard]] std::span<const WindowTexts> windowTexts();

/// The row of a control, or else that of its array; null if neither is in the table.
[[nodiscard]] const ControlText* findControlText(std::string_view window, std::string_view control);

/// The tool tip of a control, and what a reader calls it, with %1 and %2 filled in; empty if the
/// table has none.
[[nodiscard]] std::string controlTip(std::string_view window, std::string_view control);
[[nodiscard]] std::string controlName(std::string_view window, std::string_view control);

/// The long hint of a control of the main window; empty if it has none.
[[nodiscard]] const char* controlHint(std::string_view control);

/// The name of a row [0, 13): "Channel 1".
[[nodiscard]] const char* rowName(int row);

/// The tip text of the right-click mode [0, 3), on button 4 of the main toolbar.
[[nodiscard]] const char* rightClickTip(int mode);

// Tool tips that are put together under the pointer; %1 is a number.
constexpr char channelTip[] = "Channel %1";
constexpr char percussionChannelTip[] = "Percussion Channel %1";
constexpr char activeTip[] = " (Active)"; ///< behind the tip of the selected row
constexpr char laneTip[] = "Draw Channel %1 Polyphonics";

} // namespace velorin
