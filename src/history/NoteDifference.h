// Compares two states of the score note by note.
#pragma once

#include <optional>
#include <vector>

namespace velorin {

struct Score;

struct Note {
    int column = 0; ///< where it starts, from 0
    int pitch = 0;  ///< the pitch index
    int columns = 1;
    int instrument = 0; ///< at its start
    bool operator==(const Note&) const = default;
};

struct RowDifference {
    int row = 0;
    std::vector<Note> added; ///< by column
    std::vector<Note> removed;
};

struct NoteDifference {
    std::vector<RowDifference> rows; ///< those with a difference, in order
    int firstColumn = 0;             ///< the first and last differing cell of any row
    int lastColumn = 0;

    [[nodiscard]] int columns() const { return lastColumn - firstColumn + 1; }
    [[nodiscard]] int added() const;
    [[nodiscard]] int removed() const;
};

/// True if a change took most of a song away: more than half of its notes, and not just a few.
[[nodiscard]] bool removesMost(const Score& before, const NoteDifference& notes);

/// Notes that differ in more than their instrument.
[[nodiscard]] NoteDifference differingNotes(const Score& before, const Score& after);

struct MarkDifference {
    int set = 0;
    int removed = 0;
    int firstColumn = 0; ///< of the notes that the marks belong to
};

[[nodiscard]] MarkDifference differingMarks(const Score& before, const Score& after);

struct InstrumentDifference {
    std::vector<int> rows; ///< with another instrument in a cell or for the next note
    int instrument = 0;    ///< the new one of the first of these rows
};

[[nodiscard]] InstrumentDifference differingInstruments(const Score& before, const Score& after);

/// Columns that moved as a whole.
struct Shift {
    int at = 0;      ///< the first column that moved or went
    int columns = 0; ///< inserted; negative: cut
};

/// Finds the shift that makes `after` from `before`; no value if there is none. What was inserted
/// may hold notes. Rows that did not take part, as hidden rows, may stay as they were.
[[nodiscard]] std::optional<Shift> findShift(const Score& before, const Score& after);

} // namespace velorin
