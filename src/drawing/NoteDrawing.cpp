// Draws the music tableau: bands and bar lines, the notes row by row, tint and marker.
#include "drawing/NoteDrawing.h"

#include "drawing/CellGrid.h"
#include "drawing/Picture.h"
#include "studio/Setup.h"
#include "studio/Studio.h"

namespace velorin {

namespace {

// A note of three columns in its cells of 12 by 12, with the ring of a chord:
//
//        x  +2         +11                              xe +11
//     y      . ring .
//    +4   ( o highlight  )=================================      the length bar, 4 high
//    +7   (   head       )=================================
//            . . . .

constexpr int blendAlpha = 100; ///< of 255, of tint and marker
constexpr Colour bandColour = rgb(224, 224, 224);
constexpr Colour ringColour = rgb(255, 0, 0);

void drawBands(Picture& target, const View& view) {
    const int last = target.ScaleWidth() - 1;
    for (int i = 0; i <= view.VisibleRows; ++i) {
        if (i < view.SharpRow.size() && view.SharpRow[i].isSet())
            target.fillBox(0, i * cellPx, last, i * cellPx + 11, bandColour);
    }
}

/// The row that is drawn as number i [0, 7]. The active row comes last, so it is on top.
///
/// Rule: an active percussion row takes the last place but is not drawn here, so row 7 is missing.
/// Held by tableaux/drawing_pixels.
int rowDrawn(int i, int current) {
    if (i == 7)
        return current;
    return i < current ? i : i + 1;
}

void drawNote(Picture& target, const Studio& studio, const DrawnNote& note) {
    const int x = (note.column - studio.view.FirstColumn) * cellPx;
    const int y = (note.pitch - studio.view.TopPitch) * cellPx;
    const int end = x + (note.last - note.column) * cellPx;
    // Rule: the ring is filled by the fill state that the note before it left. Held by the unit
    // test NoteDrawing.RingIsFilledAsTheNoteBeforeItLeftIt.
    if (studio.score.PolyArray.read(note.row + 1, note.column + 1) == 1)
        target.circle(x + 5, y + 5, 7, ringColour);
    target.fillBox(x + 2, y + 4, end + 11, y + 7, note.colour);
    target.noteHead(x, y, note.colour);
}

// Rule: a row is not drawn before its option was selected for the first time, except rows 0 and 1.
// Held by tableaux/drawing_pixels.
void visitRow(const Studio& studio, int row, bool isActive,
              const std::function<void(const DrawnNote&)>& visit) {
    const View& view = studio.view;
    const NoteGrid& notes = studio.score.NoteArray;
    if (!isMusicRow(row) || !view.RowOpen[row].isSet())
        return;
    const Colour colour = isActive ? view.ChannelColor[row] : view.PaleColor[row];
    for (int column = view.FirstColumn; column <= view.LastVisibleColumn; ++column) {
        const int value = notes.read(row, column).value_or(emptyCell);
        if (isEmpty(value))
            continue;
        // A held cell also begins a note here, since its start may be left of the view.
        int end = column + 1;
        while (end <= view.LastVisibleColumn && isHeld(notes.read(row, end).value_or(emptyCell)))
            ++end;
        visit({row, column, end - 1, pitchOf(value), colour, isActive});
        column = end - 1;
    }
}

// Rule: the tint covers one pixel more than the last column. Held by tableaux/drawing_pixels.
void drawTint(Picture& target, const Picture& blue, const Studio& studio) {
    const View& view = studio.view;
    const Score& score = studio.score;
    if (score.SelectStart < 0 || score.SelectStart > view.LastVisibleColumn ||
        score.SelectEnd < view.FirstColumn)
        return;
    const int left =
        score.SelectStart < view.FirstColumn ? 0 : (score.SelectStart - view.FirstColumn) * cellPx;
    const int right = score.SelectEnd > view.LastVisibleColumn
                          ? target.ScaleWidth() - 1
                          : (score.SelectEnd - view.FirstColumn) * cellPx + 12;
    target.AlphaBlend(left, 0, right - left + 1, target.ScaleHeight(), blue, blendAlpha);
}

// Rule: the marker is left of its column, so in the first column of the view it is not seen. Held
// by tableaux/drawing_pixels.
void drawStartMarker(Picture& target, const Picture& red, const Studio& studio) {
    const View& view = studio.view;
    const int column = studio.score.StartColumn - view.FirstColumn;
    if (column < 0 || column > view.VisibleColumns)
        return;
    target.AlphaBlend(column * cellPx - 3, 0, 3, target.ScaleHeight(), red, blendAlpha);
}

} // namespace

void visitNotes(Studio& studio, const std::function<void(const DrawnNote& note)>& visit) {
    for (int i = 0; i <= 7; ++i) {
        const int row = rowDrawn(i, studio.score.CurrentRow);
        if (row < 0 || row >= scoreRows || studio.setup.TrackHide(row))
            continue;
        visitRow(studio, row, i == 7, visit);
    }
}

void drawNoteArray(Picture& target, const Picture& blue, const Picture& red, Studio& studio) {
    // Rule: the ring of the first note is filled with horizontal lines, whatever fill style a drag
    // or the playing marker has left; the fill colour stays. Held by
    // tableaux/ring_of_the_first_note.
    target.fillStyle = FillStyle::horizontalLines;
    target.Cls();
    drawBands(target, studio.view);
    drawBarLines(target, studio.view.FirstColumn);
    visitNotes(studio,
               [&target, &studio](const DrawnNote& note) { drawNote(target, studio, note); });
    drawTint(target, blue, studio);
    drawStartMarker(target, red, studio);
    target.fillStyle = FillStyle::horizontalLines;
}

} // namespace velorin
