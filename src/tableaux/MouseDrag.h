// What the drags on the music and the percussion tableau share: from pixels to cells, the column
// reached, the note written and the note erased.
#pragma once

#include "score/RowColors.h"
#include "tableaux/CellGrid.h"

#include <cstdint>
#include <functional>
#include <optional>

namespace velorin {

class Picture;
class PictureBox;
class TableauDesk;
struct Studio;

/// The screen column or line of a place in pixels: rounded to a whole pixel, halves to even, then
/// divided by 12 towards zero, so that -11..11 is 0. No value outside 16 bits.
[[nodiscard]] std::optional<std::int16_t> pixelToCell(double pixel);

/// The screen column that a tool tip speaks of: rounded down, so that -5 is column -1.
[[nodiscard]] std::optional<std::int16_t> pixelToTipColumn(double x);

/// Stores what there is; an assignment without a value is skipped.
inline void store(std::int16_t& variable, std::optional<std::int16_t> value) {
    if (value)
        variable = *value;
}

/// The cell that a tool tip speaks of: in the row of `HoverRow`, at the column on the screen, so
/// that the tip speaks of the first screen of the score, however far the view is scrolled.
struct TipCell {
    std::int16_t note = 0;
    int instrument = 0;
};
/// No value outside the grid.
[[nodiscard]] std::optional<TipCell> tipCell(const Studio& studio, double x);

/// A press on `box`: keeps its cell, and the drag lasts until the release.
void beginDrag(Studio& studio, PictureBox& box, double x, double y);

/// A press while `EditMode` draws: the left button begins, the right one does what `RightClickMode`
/// says, which is the popup menu of `desk` or to erase. Any other button or mode does nothing.
void pressToDraw(const Studio& studio, TableauDesk& desk, int button,
                 const std::function<void()>& begin, const std::function<void()>& erase);

/// `TopPitch` plus `MouseLine`, the pitch index of the drag; no value outside 16 bits.
[[nodiscard]] std::optional<std::int16_t> draggedPitch(const Studio& studio);

/// The score column of the screen column `MouseColumn`; no value outside 16 bits.
[[nodiscard]] std::optional<std::int16_t> pressedScoreColumn(const Studio& studio);

/// Takes the column under the pointer as `DragColumn`, kept between the press and the right edge of
/// the view. False if it is the column of the last move that counted: the move then ends.
[[nodiscard]] bool takeDragColumn(Studio& studio, double x);

void clampToVisible(Studio& studio);   ///< `MouseColumn` to at most `VisibleColumns`
void clampToDragStart(Studio& studio); ///< `MouseColumn` to at least `DragStart`

// The release, from `DragStart` to `MouseColumn` in `CurrentRow`.
void writeNoteHead(Studio& studio);
/// Returns whether the note is longer than one column.
bool writeHeldCells(Studio& studio);
/// What is left of a note behind the new one becomes a note of its own.
void repairBehindNote(Studio& studio);

/// The release of a selection: `SelectEnd` becomes the column under the pointer, at least that of
/// the press and at most the last in view.
void endSelectionAt(Studio& studio, double x);

// The right button's stroke. `MouseColumn` itself walks, left to the head and right to the end.

/// Calls `passed` for each held cell, steps left of it and lets the message loop through. A cell
/// outside the grid ends the walk; it takes at most as many steps as the grid has columns.
void walkToHead(Studio& studio, const std::function<void()>& passed);
void eraseCell(Studio& studio); ///< the cell at `MouseColumn` and its instrument
/// Erases the held cells from `MouseColumn` on and calls `erased` for each.
void eraseHeldCells(Studio& studio, const std::function<void()>& erased);

// The rubber band of a note, `column` and `line` counted from the edge of the screen.
//
//      .---.
//     ( o   )=========      the head, radius 5, with its highlight, over the band, 4 high
//      '---'

/// Leaves the fill state solid in `colour`.
void drawNoteHead(Picture& picture, int column, int line, Colour colour);
/// The band from the press to `DragColumn` with its head, in the active row's colour. The interior
/// of the band is by the fill state.
void drawRubberBand(Picture& picture, const Studio& studio);

} // namespace velorin
