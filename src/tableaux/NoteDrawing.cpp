// The drawing of the music tableau: bands and bar lines, the notes row by row, tint and marker.
#include "score/SetupControls.h"
#include "score/Studio.h"
#include "tableaux/CellGrid.h"
#include "tableaux/MusicTableau.h"
#include "tableaux/Picture.h"

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
        const auto line = static_cast<std::size_t>(i);
        if (line < view.SharpRow.size() && view.SharpRow[line] != flagClear)
            target.fillBox(0, i * cellPx, last, i * cellPx + 11, bandColour);
    }
}

/// The row that is drawn as number i [0, 7]: the active row comes last and so lies on top. A
/// percussion row, while it is active, takes the last place without being drawn here; row 7 is then
/// absent.
int rowDrawn(int i, int current) {
    if (i == 7)
        return current;
    return i < current ? i : i + 1;
}

struct Note {
    int row;
    int column; ///< [`FirstColumn`, `LastVisibleColumn`]
    int last;   ///< last column, in view
    int pitch;
};

void drawNote(Picture& target, const Studio& studio, const Note& note, Colour colour) {
    const int x = (note.column - studio.view.FirstColumn) * cellPx;
    const int y = (note.pitch - studio.view.TopPitch) * cellPx;
    const int end = x + (note.last - note.column) * cellPx;
    // The ring is filled by the state that the note before it left.
    if (studio.score.PolyArray.read(note.row + 1, note.column + 1) == 1)
        target.circle(x + 5, y + 5, 7, ringColour);
    target.fillBox(x + 2, y + 4, end + 11, y + 7, colour);
    target.noteHead(x, y, colour);
}

void drawRow(Picture& target, const Studio& studio, int row, Colour colour) {
    const View& view = studio.view;
    const NoteGrid& notes = studio.score.NoteArray;
    const auto open = static_cast<std::size_t>(row);
    if (!isMusicRow(row) || view.RowOpen[open] == flagClear)
        return;
    for (int column = view.FirstColumn; column <= view.LastVisibleColumn; ++column) {
        const int value = notes.read(row, column).value_or(emptyCell);
        if (isEmpty(value))
            continue;
        // A held cell met here begins a note too: the note whose start lies left of the view.
        int end = column + 1;
        while (end <= view.LastVisibleColumn && isHeld(notes.read(row, end).value_or(emptyCell)))
            ++end;
        drawNote(target, studio, {row, column, end - 1, pitchOf(value)}, colour);
        column = end - 1;
    }
}

void drawNotes(Picture& target, Studio& studio) {
    const View& view = studio.view;
    for (int i = 0; i <= 7; ++i) {
        const int row = rowDrawn(i, studio.score.CurrentRow);
        if (row < 0 || row >= scoreRows || studio.setup.TrackHide(row))
            continue;
        const auto place = static_cast<std::size_t>(row);
        drawRow(target, studio, row, i < 7 ? view.PaleColor[place] : view.ChannelColor[place]);
    }
}

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

void drawStartMarker(Picture& target, const Picture& red, const Studio& studio) {
    const View& view = studio.view;
    const int column = studio.score.StartColumn - view.FirstColumn;
    if (column < 0 || column > view.VisibleColumns)
        return;
    target.AlphaBlend(column * cellPx - 3, 0, 3, target.ScaleHeight(), red, blendAlpha);
}

} // namespace

void drawNoteArray(Picture& target, const Picture& blue, const Picture& red, Studio& studio) {
    // The ring of the first note is filled as the picture's state at rest says, whatever a drag or
    // the playing position has left; its colour stays.
    target.fillStyle = FillStyle::horizontalLines;
    target.Cls();
    drawBands(target, studio.view);
    drawBarLines(target, studio.view.FirstColumn);
    drawNotes(target, studio);
    drawTint(target, blue, studio);
    drawStartMarker(target, red, studio);
    target.fillStyle = FillStyle::horizontalLines;
}

} // namespace velorin
