// The steps that drags on the music and on the percussion tableau share: pixels to cells, the
// column reached, writing a note, erasing a note.
#pragma once

#include "drawing/CellGrid.h"
#include "model/RowColors.h"

#include <cstdint>
#include <functional>
#include <optional>

namespace velorin {

class Picture;
class PictureBox;
class TableauDesk;
struct Studio;

/// The screen column or line of a place in pixels: rounded to a whole pixel (half to even), then
/// divided by 12 towards zero. No value outside 16 bits.
///
/// Rule: -11 to 11 is cell 0, so a drag that leaves the tableau at the left is still in column 0
/// there. Held by the unit test MusicMouseDraw.APlaceLeftOfThePictureIsColumnZeroUpToElevenPixels.
[[nodiscard]] std::optional<std::int16_t> pixelToCell(double pixel);

/// The screen column of a tool tip: rounded down, so -5 is column -1.
[[nodiscard]] std::optional<std::int16_t> pixelToTipColumn(double x);

/// Stores the value if there is one.
inline void store(std::int16_t& variable, std::optional<std::int16_t> value) {
    if (value)
        variable = *value;
}

/// The cell that a tool tip describes, in the row of `HoverRow`.
///
/// Rule: the column on the screen is used as the column of the score, so a tip always describes the
/// first screen of the score, also in a scrolled view. Held by tableaux/music_tooltips.
struct TipCell {
    std::int16_t note = 0;
    int instrument = 0;
};
/// No value outside the grid.
[[nodiscard]] std::optional<TipCell> tipCell(const Studio& studio, double x);

/// A press on `box`: stores its cell. The drag lasts until the release.
void beginDrag(Studio& studio, PictureBox& box, double x, double y);

/// A press while `EditMode` draws. The left button calls `begin`. The right one opens the popup
/// menu of `desk` or calls `erase`, as `RightClickMode` says. Any other button or mode does
/// nothing.
void pressToDraw(const Studio& studio, TableauDesk& desk, int button,
                 const std::function<void()>& begin, const std::function<void()>& erase);

/// The pitch index of the drag, `TopPitch` plus `MouseLine`; no value outside 16 bits.
[[nodiscard]] std::optional<std::int16_t> draggedPitch(const Studio& studio);

/// The score column of the screen column `MouseColumn`; no value outside 16 bits.
[[nodiscard]] std::optional<std::int16_t> pressedScoreColumn(const Studio& studio);

/// Sets `DragColumn` to the column under the pointer, clamped to [press, last visible column].
/// False if it is still the column of the last move that counted: the caller then ignores the move.
[[nodiscard]] bool takeDragColumn(Studio& studio, double x);

void clampToVisible(Studio& studio);   ///< makes `MouseColumn` at most `VisibleColumns`
void clampToDragStart(Studio& studio); ///< makes `MouseColumn` at least `DragStart`

// The release writes the note from `DragStart` to `MouseColumn` in `CurrentRow`.
void writeNoteHead(Studio& studio);
/// Returns true if the note is longer than one column.
bool writeHeldCells(Studio& studio);
/// The rest of an old note after the new one becomes a note of its own.
void repairAfterNote(Studio& studio);

/// The release of a selection sets `SelectEnd` to the column under the pointer, clamped to
/// [column of the press, last visible column].
void endSelectionAt(Studio& studio, double x);

// Erasing with the right button. `MouseColumn` itself moves, left to the head and right to the end.

/// For each held cell: calls `passed`, steps left and processes pending events. Stops at a cell
/// outside the grid, and after as many steps as the grid has columns.
void walkToHead(Studio& studio, const std::function<void()>& passed);
void eraseCell(Studio& studio); ///< the cell at `MouseColumn` and its instrument
/// Erases the held cells from `MouseColumn` on. Calls `erased` for each.
void eraseHeldCells(Studio& studio, const std::function<void()>& erased);

// The rubber band of a note, `column` and `line` counted from the edge of the screen.
//
//      .---.
//     ( o   )=========      the head, radius 5, with its highlight, over the band, 4 high
//      '---'

/// Leaves the fill state solid in `colour`.
void drawNoteHead(Picture& picture, int column, int line, Colour colour);
/// Draws the band from the press to `DragColumn` with its head, in the current row's colour. The
/// fill state decides the interior of the band.
void drawRubberBand(Picture& picture, const Studio& studio);

} // namespace velorin
