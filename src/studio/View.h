// Which columns and lines of the score are shown, and the state of a drag on them.
#pragma once

#include "model/RowArray.h"
#include "model/RowColors.h"
#include "platform/CheckedArray.h"
#include "studio/Flag.h"

#include <cstdint>
#include <string>

namespace velorin {

struct View {
    std::int16_t FirstColumn = 0;     ///< score column at the left edge
    std::int16_t VisibleColumns = 39; ///< columns shown beyond the first; 39 until the first layout
    std::int16_t LastVisibleColumn = 39; ///< last column shown, at most 999
    std::int16_t TopPitch = 55;          ///< pitch index on the top line
    std::int16_t VisibleRows = 12;      ///< named lines beyond the first; 12 until the first layout
    std::int16_t BottomPitch = 67;      ///< `TopPitch` + `VisibleRows`, at most 127
    std::int16_t ColumnScrollBias = 20; ///< the value of `HScroll1` is `FirstColumn` plus this
    std::int16_t RowScrollBias = 6;     ///< the value of `VScroll1` is `TopPitch` plus this
    Flag PolyOpen = flagSet;            ///< the polyphonics strip is shown
    Flag PlayerScroll =
        flagClear; ///< the program itself moves `HScroll1`: its handler does not redraw
    Flag ViewChanged = flagClear; ///< the tableau was redrawn since the marker's strip was saved
    Flag ResizeInProgress = flagClear;            ///< `Form_Resize` runs
    RowArray<Flag, 9> RowOpen{flagSet, flagSet};  ///< whether a music row is drawn at all
    platform::CheckedArray<Flag, 101> SharpRow{}; ///< per screen line: its name ends in "#"
    RowArray<Colour> ChannelColor = channelColors;
    RowArray<Colour> PaleColor = paleColors;
    Colour DrawColor = channelColors[0]; ///< `ChannelColor` of the active row
    std::int16_t HoverRow = 0;           ///< row plus 1 for the tool tip
    std::string LastNoteLabel;           ///< the last letter that `NoteLabel` found
};

/// The current drag, shared by the tableaux. Columns and lines count from the edge of the view.
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
