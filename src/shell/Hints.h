// The long hints that stand beside the main window's controls while the pointer rests on them.
#pragma once

namespace velorin {

/// The hint of button `index` [1, 14] of the main toolbar; empty for any other. Lines are separated
/// by "\r\n".
[[nodiscard]] const char* toolbarHint(int index);

extern const char* const noteNamesHint;  ///< of `PicX`
extern const char* const barNumbersHint; ///< of `TopBar`

/// The tip text of the right-click mode [0, 3).
[[nodiscard]] const char* rightClickTip(int mode);

} // namespace velorin
