// The view that takes in a whole song.
#include "convert/ScorePicture.h"

#include "score/SetupControls.h"
#include "score/Studio.h"
#include "tableaux/CellGrid.h"
#include "tableaux/MusicTableau.h"
#include "tableaux/NoteTables.h"
#include "tableaux/Picture.h"

#include <QBuffer>

#include <algorithm>

namespace velorin {

namespace {

constexpr int marginLines = 2;

struct PitchRange {
    int highest = 60; ///< as indices, so the highest sound has the lowest number
    int lowest = 67;
};

PitchRange pitchesOf(const Score& score) {
    PitchRange found{lastPitch, 0};
    for (int row = 0; row < musicRows; ++row) {
        for (int column = 0; column < scoreColumns; ++column) {
            const int cell = score.NoteArray.at(row, column);
            if (isEmpty(cell))
                continue;
            const int pitch = std::min(pitchOf(cell), lastPitch);
            found.highest = std::min(found.highest, pitch);
            found.lowest = std::max(found.lowest, pitch);
        }
    }
    return found.highest > found.lowest ? PitchRange{} : found;
}

// In a window the rows open one by one as the user turns to them; a picture shows them all.
void showWholeSong(Studio& studio) {
    View& view = studio.view;
    studio.score.FindLastColumn(studio.setup);
    const int last = std::clamp<int>(studio.score.LastColumn, 0, lastShownColumn);
    view.FirstColumn = 0;
    view.VisibleColumns = static_cast<std::int16_t>(last);
    view.LastVisibleColumn = view.VisibleColumns;
    const PitchRange pitches = pitchesOf(studio.score);
    const int top = std::max(pitches.highest - marginLines, 0);
    const int bottom = std::min(pitches.lowest + marginLines, lastPitch);
    view.TopPitch = static_cast<std::int16_t>(top);
    view.VisibleRows = static_cast<std::int16_t>(bottom - top);
    view.BottomPitch = static_cast<std::int16_t>(bottom);
    view.RowOpen.fill(flagSet);
    for (std::size_t line = 0; line < view.SharpRow.size(); ++line) {
        const auto name = NoteName(top + static_cast<int>(line));
        view.SharpRow[line] = name && name->back() == '#' ? flagSet : flagClear;
    }
}

} // namespace

} // namespace velorin

void velorinPngOf(velorin::Studio& studio, std::string& png) {
    using namespace velorin;
    showWholeSong(studio);
    const View& view = studio.view;
    const int width = (view.VisibleColumns + 1) * cellPx;
    const int height = (view.VisibleRows + 1) * cellPx;
    const Picture blue(rgb(0, 0, 255));
    const Picture red(rgb(255, 0, 0));
    Picture tableau(rgb(255, 255, 255), FillStyle::horizontalLines, rgb(192, 255, 255));
    tableau.resize(width, height);
    drawNoteArray(tableau, blue, red, studio);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    tableau.image().save(&buffer, "PNG");
    png = bytes.toStdString();
}
