// Draws a part of a score for a picture.
#include "drawing/ScorePart.h"

#include "drawing/CellGrid.h"
#include "drawing/NoteDrawing.h"
#include "drawing/Picture.h"
#include "model/NoteTables.h"
#include "studio/Studio.h"

namespace velorin {

namespace {

void showPart(View& view, const ScorePart& part) {
    view.FirstColumn = static_cast<std::int16_t>(part.firstColumn);
    view.VisibleColumns = static_cast<std::int16_t>(part.columns - 1);
    view.LastVisibleColumn = static_cast<std::int16_t>(part.firstColumn + part.columns - 1);
    view.TopPitch = static_cast<std::int16_t>(part.topPitch);
    view.VisibleRows = static_cast<std::int16_t>(part.lines - 1);
    view.BottomPitch = static_cast<std::int16_t>(part.topPitch + part.lines - 1);
    view.RowOpen.fill(flagSet);
    for (int line = 0; line < view.SharpRow.size(); ++line) {
        const auto name = NoteName(part.topPitch + line);
        view.SharpRow[line] = name && name->back() == '#' ? flagSet : flagClear;
    }
}

} // namespace

QImage drawPart(Studio& studio, const ScorePart& part, double ratio) {
    showPart(studio.view, part);
    const Picture blue(rgb(0, 0, 255));
    const Picture red(rgb(255, 0, 0));
    Picture tableau(white, FillStyle::horizontalLines, rgb(192, 255, 255));
    tableau.resize(part.columns * cellPx, part.lines * cellPx, ratio);
    drawNoteArray(tableau, blue, red, studio);
    return tableau.image();
}

} // namespace velorin
