// Compares the grids of two scores.
#include "history/NoteDifference.h"

#include "model/Score.h"

#include <algorithm>
#include <iterator>

namespace velorin {

namespace {

bool rowDiffers(const NoteGrid& one, const NoteGrid& other, int row) {
    for (int column = 0; column <= lastGridColumn; ++column)
        if (one.at(row, column) != other.at(row, column))
            return true;
    return false;
}

/// A held cell without a start before it counts as a start.
std::vector<Note> notesOf(const Score& score, int row) {
    std::vector<Note> notes;
    bool sounds = false;
    for (int column = 0; column <= lastGridColumn; ++column) {
        const int cell = score.NoteArray.at(row, column);
        if (!isEmpty(cell) && isHeld(cell) && sounds)
            ++notes.back().columns;
        else if (!isEmpty(cell))
            notes.push_back({column, pitchOf(cell), 1, score.InstrumentArray.at(row, column)});
        sounds = !isEmpty(cell);
    }
    return notes;
}

bool comesBefore(const Note& one, const Note& other) {
    if (one.column != other.column)
        return one.column < other.column;
    if (one.pitch != other.pitch)
        return one.pitch < other.pitch;
    return one.columns < other.columns;
}

/// The notes of `one` that are not in `other`; both are in order.
std::vector<Note> without(const std::vector<Note>& one, const std::vector<Note>& other) {
    std::vector<Note> rest;
    std::set_difference(one.begin(), one.end(), other.begin(), other.end(),
                        std::back_inserter(rest), comesBefore);
    return rest;
}

int lastUsed(const Score& score, int row) {
    int column = lastGridColumn;
    while (column >= 0 && isEmpty(score.NoteArray.at(row, column)))
        --column;
    return column;
}

/// A note is the same note if it lies in the same cells; its instrument does not count here.
RowDifference rowDifference(const Score& before, const Score& after, int row) {
    const std::vector<Note> old = notesOf(before, row);
    const std::vector<Note> now = notesOf(after, row);
    return {row, without(now, old), without(old, now)};
}

/// Whether `after` is `before` with `count` columns more at `at` (fewer if negative), in one row.
/// At least one note must have moved.
bool isShifted(const Score& before, const Score& after, int row, int at, int count) {
    const NoteGrid& from = count > 0 ? before.NoteArray : after.NoteArray;
    const NoteGrid& to = count > 0 ? after.NoteArray : before.NoteArray;
    const int distance = count > 0 ? count : -count;
    if (lastUsed(count > 0 ? before : after, row) < at)
        return false;
    for (int column = at; column + distance <= lastGridColumn; ++column) {
        const int cell = from.at(row, column);
        const int moved = to.at(row, column + distance);
        // The rest of a note that lost its head has become a note.
        const bool isHead =
            column == at && !isEmpty(cell) && !isEmpty(moved) && pitchOf(cell) == pitchOf(moved);
        if (cell != moved && !isHead)
            return false;
    }
    return true;
}

} // namespace

int NoteDifference::added() const {
    int count = 0;
    for (const RowDifference& row : rows)
        count += static_cast<int>(row.added.size());
    return count;
}

int NoteDifference::removed() const {
    int count = 0;
    for (const RowDifference& row : rows)
        count += static_cast<int>(row.removed.size());
    return count;
}

bool removesMost(const Score& before, const NoteDifference& notes) {
    constexpr int aFew = 3;
    int count = 0;
    for (int row = 0; row < scoreRows; ++row)
        count += static_cast<int>(notesOf(before, row).size());
    return notes.removed() > aFew && 2 * notes.removed() > count;
}

NoteDifference differingNotes(const Score& before, const Score& after) {
    NoteDifference all;
    all.firstColumn = lastGridColumn + 1;
    for (int row = 0; row < scoreRows; ++row) {
        if (!rowDiffers(before.NoteArray, after.NoteArray, row))
            continue;
        for (int column = 0; column <= lastGridColumn; ++column) {
            if (before.NoteArray.at(row, column) == after.NoteArray.at(row, column))
                continue;
            all.firstColumn = std::min(all.firstColumn, column);
            all.lastColumn = std::max(all.lastColumn, column);
        }
        all.rows.push_back(rowDifference(before, after, row));
    }
    return all;
}

MarkDifference differingMarks(const Score& before, const Score& after) {
    MarkDifference marks;
    marks.firstColumn = lastGridColumn + 1;
    for (int lane = 1; lane < PolyGrid::rows; ++lane)
        for (int entry = 0; entry < PolyGrid::columns; ++entry) {
            const bool was = before.PolyArray.at(lane, entry) != 0;
            const bool is = after.PolyArray.at(lane, entry) != 0;
            if (was == is)
                continue;
            ++(is ? marks.set : marks.removed);
            marks.firstColumn = std::min(marks.firstColumn, std::max(entry - 1, 0));
        }
    return marks;
}

InstrumentDifference differingInstruments(const Score& before, const Score& after) {
    InstrumentDifference all;
    for (int row = 0; row < scoreRows; ++row) {
        int instrument = after.RowInstrument[row];
        bool differs = before.RowInstrument[row] != instrument;
        for (int column = 0; column <= lastGridColumn && !differs; ++column) {
            instrument = after.InstrumentArray.at(row, column);
            differs = before.InstrumentArray.at(row, column) != instrument;
        }
        if (!differs)
            continue;
        if (all.rows.empty())
            all.instrument = instrument;
        all.rows.push_back(row);
    }
    return all;
}

std::optional<Shift> findShift(const Score& before, const Score& after) {
    const NoteDifference notes = differingNotes(before, after);
    if (notes.rows.empty())
        return std::nullopt;
    // Each changed row moves by as much as its end does.
    const int first = notes.rows.front().row;
    const int count = lastUsed(after, first) - lastUsed(before, first);
    if (count == 0)
        return std::nullopt;
    const int at = notes.firstColumn;
    for (const RowDifference& difference : notes.rows)
        if (!isShifted(before, after, difference.row, at, count))
            return std::nullopt;
    return Shift{at, count};
}

} // namespace velorin
