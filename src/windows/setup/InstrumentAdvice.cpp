// Says how notes that were drawn already get another instrument.
#include "model/Cell.h"
#include "model/Score.h"
#include "session/Session.h"
#include "windows/setup/SetupToolbar.h"
#include "windows/texts/ControlTable.h"

namespace velorin {

namespace {

/// True if a note of the row has another instrument than its next note.
bool hasOtherInstruments(const Score& score, int row) {
    const int current = score.RowInstrument[row];
    for (int column = 0; column < scoreColumns; ++column) {
        if (isStart(score.NoteArray.at(row, column)) &&
            score.InstrumentArray.at(row, column) != current)
            return true;
    }
    return false;
}

} // namespace

void SetupToolbar::instrumentTaken() {
    const Studio& studio = session_.studio;
    const int row = studio.score.CurrentRow;
    if (hasAdvised_ || !onHint || studio.run.EditMode != editMode::draw || row < 0 ||
        row >= scoreRows || !hasOtherInstruments(studio.score, row))
        return;
    hasAdvised_ = true;
    const std::string what = row < firstPercussionRow ? "notes" : "beats";
    onHint(
        "The next " + what + " of " + rowName(row) + " have this instrument. Those drawn before " +
        "keep theirs. To change them: press F2, drag over them and choose the instrument again.");
}

} // namespace velorin
