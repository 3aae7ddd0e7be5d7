// The window on the score, and the mouse in it: which columns and lines are shown, and the drag in
// hand.
#pragma once

#include "score/RowColors.h"

#include <array>
#include <cstdint>
#include <string>

namespace velorin {

/// A 16-bit boolean of the program: -1 for true and 0 for false.
using Flag = std::int16_t;
constexpr Flag flagSet = -1;
constexpr Flag flagClear = 0;

struct View {
    std::int16_t FirstColumn = 0;     ///< score column at the left edge
    std::int16_t VisibleColumns = 39; ///< columns shown beyond the first; 39 until the first layout
    std::int16_t LastVisibleColumn = 39; ///< last column shown, at most 999
    std::int16_t TopPitch = 55;          ///< pitch index on the top line
    std::int16_t VisibleRows = 12;      ///< named lines beyond the first; 12 until the first layout
    std::int16_t BottomPitch = 67;      ///< `TopPitch` + `VisibleRows`, at most 127
    std::int16_t ColumnScrollBias = 20; ///< `HScroll1` stands at `FirstColumn` plus this
    std::int16_t RowScrollBias = 6;     ///< `VScroll1` stands at `TopPitch` plus this
    Flag PolyOpen = flagSet;            ///< the polyphonics strip is shown
    Flag PlayerScroll =
        flagClear; ///< the program itself moves `HScroll1`: its handler does not redraw
    Flag ViewChanged = flagClear; ///< the tableau was redrawn since the marker's strip was saved
    Flag ResizeInProgress = flagClear;             ///< `Form_Resize` runs
    std::array<Flag, 9> RowOpen{flagSet, flagSet}; ///< whether a music row is drawn at all
    std::array<Flag, 101> SharpRow{};              ///< per screen line: its name ends in "#"
    std::array<Colour, scoreRows> ChannelColor = channelColors;
    std::array<Colour, scoreRows> PaleColor = paleColors;
    Colour DrawColor = channelColors[0]; ///< `ChannelColor` of the active row
    std::int16_t HoverRow = 0;           ///< row plus 1 for the tool tip
    std::string LastNoteLabel;           ///< the last letter that `NoteLabel` found
};

/// The drag in hand, shared by the tableaux. Columns and lines count from the edge of the screen.
struct Drag {
    std::int16_t MouseColumn = 0;     ///< column of the press; overwritten at the release
    std::int16_t MouseLine = 0;       ///< line of the press, kept for the whole drag
    std::int16_t DragStart = 0;       ///< column where the note or selection begins
    std::int16_t PressColumn = 0;     ///< column that `StartColumnNotes` sounds
    std::int16_t DragColumn = 0;      ///< column reached, after clamping
    std::int16_t PriorDragColumn = 0; ///< raw column of the last move that counted
    Flag MouseHeld = flagClear;       ///< from a press in a tableau to its release
    std::int16_t PriorLine = 0;       ///< line of the last move on `MusicBox`
    std::int16_t PriorLineBeat = 0;   ///< line of the last move on `Beatbox`
    double PolyDrag = 0.0;            ///< the difference that `Pic1_MouseMove` keeps, in pixels
};

} // namespace velorin
