// Draws the music tableau, into any picture.
#pragma once

#include "model/RowColors.h"

#include <functional>

namespace velorin {

class Picture;
struct Studio;

/// A note as the music tableau draws it. One that begins left of the view begins at its first
/// column.
struct DrawnNote {
    int row;    ///< [0, 8)
    int column; ///< [`FirstColumn`, `LastVisibleColumn`]
    int last;   ///< the last column, in view
    int pitch;  ///< may be outside the view, and outside [0, 128)
    Colour colour;
    bool isActive; ///< of the active row
};

/// Visits the notes that are drawn, in the order in which they are drawn. Rows that are hidden or
/// were never opened are left out. Reads the setup, as a draw does.
void visitNotes(Studio& studio, const std::function<void(const DrawnNote& note)>& visit);

/// Draws bands and bar lines, the notes, the tint of the selection and the start marker into
/// `target`. `blue` and `red` are the sources of the tint and of the marker. The bands follow
/// `View::SharpRow`, which the caller sets. Needs no application object.
void drawNoteArray(Picture& target, const Picture& blue, const Picture& red, Studio& studio);

} // namespace velorin
