// Looks at the score before and after a press on a tableau.
#include "windows/strip/PressWatch.h"

#include "drawing/ChordLanes.h"
#include "session/Session.h"
#include "windows/strip/StateWords.h"

#include <cmath>

namespace velorin {

namespace {

constexpr double cellSize = 12.0;

int cellAt(double place) {
    constexpr double most = 10'000.0; // pixels, wider than any screen
    return std::abs(place) < most ? static_cast<int>(std::floor(place / cellSize)) : 0;
}

} // namespace

Press PressWatch::before(Tableau where, int button, double x, double y) const {
    const Studio& studio = session_.studio;
    Press press;
    press.where = where;
    press.button = button;
    press.editMode = studio.run.EditMode;
    press.rightClick = studio.run.RightClickMode;
    press.rowBefore = studio.score.CurrentRow;
    press.hasDrum = isPercussion(session_.sounding.PercussionChoice);
    press.column = studio.view.FirstColumn + cellAt(x);
    const int pitch = studio.view.TopPitch + cellAt(y);
    press.isBelowLowest = where == Tableau::music && pitch > lastPitch;
    if (where == Tableau::music || where == Tableau::strip)
        readCell(press, press.column, pitch);
    press.markedColumn = cellAt(x);
    if (where == Tableau::lanes)
        readLane(press, y);
    return press;
}

void PressWatch::readCell(Press& press, int column, int pitch) const {
    const Studio& studio = session_.studio;
    const auto cell = [&](int row) {
        return studio.score.NoteArray.read(row, column).value_or(emptyCell);
    };
    press.hasNote = !isEmpty(cell(press.rowBefore));
    if (press.where != Tableau::music)
        return;
    for (int row = 0; row < musicRows; ++row) {
        const bool isShown =
            studio.view.RowOpen[row].isSet() && !studio.setup.values.options.TrackHide(row);
        if (row != press.rowBefore && isShown && !isEmpty(cell(row)) && pitchOf(cell(row)) == pitch)
            press.otherRow = row;
    }
}

// A mark is one entry and one lane after its cell.
void PressWatch::readLane(Press& press, double y) const {
    const Score& score = session_.studio.score;
    press.lane = laneAt(y) - 1;
    if (press.lane < 0)
        return;
    press.wasMarked = score.PolyArray.read(press.lane + 1, press.markedColumn + 1) == 1;
    const auto cell = score.NoteArray.read(press.lane, press.column);
    press.isNoteStart = cell && isStart(*cell);
}

std::string PressWatch::after(Press press) const {
    const Studio& studio = session_.studio;
    press.rowNow = studio.score.CurrentRow;
    if (!RowOptions::isRow(press.rowNow))
        return {};
    press.isHidden = studio.setup.values.options.TrackHide(press.rowNow);
    if (press.where == Tableau::numbers)
        press.markedColumn = studio.score.StartColumn;
    if (press.rowNow != press.rowBefore)
        press.got = instrumentName(studio.score.RowInstrument[press.rowNow]).toStdString();
    return pressSentence(press);
}

} // namespace velorin
