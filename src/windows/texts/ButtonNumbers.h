// Names for the numbers of the picture buttons, `Cmd2`(n).
#pragma once

namespace velorin {

/// On the main window's toolbar, from left to right.
namespace mainButton {
constexpr int clear = 1;
constexpr int open = 2;
constexpr int save = 3;
constexpr int rightClick = 4; ///< shows the right-click mode and opens its menu
constexpr int rewind = 5;
constexpr int play = 6;
constexpr int stop = 7;
constexpr int stopAll = 8;     ///< stops every sound and resets the device
constexpr int whatIsShown = 9; ///< opens the menu of the Setup Toolbar and the tableaux
constexpr int editing = 10;
constexpr int recording = 11;
constexpr int tutorial = 12;
constexpr int help = 13;
constexpr int exit = 14;
constexpr int last = exit;
} // namespace mainButton

/// On the Editing Toolbar. Those from `copy` on work in select mode only.
namespace editButton {
constexpr int newScore = 1;
constexpr int open = 2;
constexpr int save = 3;
constexpr int play = 4;
constexpr int playSelection = 5;
constexpr int pause = 6;
constexpr int stop = 7;
constexpr int rewind = 8;
constexpr int position = 9; ///< shows or hides the playing position
constexpr int loop = 10;
constexpr int mode = 11; ///< switches between drawing and selecting
constexpr int copy = 12;
constexpr int cut = 13;
constexpr int paste = 14;
constexpr int pasteInto = 15;
constexpr int insert = 16;
constexpr int duplicate = 17;
constexpr int last = duplicate;
} // namespace editButton

} // namespace velorin
