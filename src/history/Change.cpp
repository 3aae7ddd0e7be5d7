// Finds out what changed between two states of the score, and words it.
#include "history/Change.h"

#include "history/NoteDifference.h"
#include "model/InstrumentNames.h"
#include "model/Score.h"
#include "platform/CountedText.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cstdlib>

namespace velorin {

namespace {

using platform::counted;

std::string atColumn(int column) {
    return std::to_string(column + 1);
}

std::string capitalised(std::string text) {
    text[0] = static_cast<char>(std::toupper(static_cast<unsigned char>(text[0])));
    return text;
}

/// As the faces of the rows in the Setup Toolbar.
std::string rowName(int row) {
    static constexpr std::array<const char*, scoreRows - musicRows> drumFaces{"1", "R", "2", "3",
                                                                              "4"};
    if (isMusicRow(row))
        return "channel " + std::to_string(row + 1);
    return std::string("drums ") + drumFaces.at(static_cast<std::size_t>(row - musicRows));
}

std::string instrumentName(int instrument) {
    std::string name = isPercussion(instrument) ? percussionEntry(instrument - firstPercussion)
                                                : instrumentEntry(instrument);
    return name.empty() ? "instrument " + std::to_string(instrument) : name;
}

bool hasCells(const Score& score) {
    for (int row = 0; row < scoreRows; ++row)
        for (int column = 0; column <= lastGridColumn; ++column)
            if (!isEmpty(score.NoteArray.at(row, column)))
                return true;
    return false;
}

std::string markText(const MarkDifference& marks) {
    const int count = marks.set + marks.removed;
    if (count == 1)
        return std::string("Chord mark ") + (marks.set == 1 ? "set" : "removed") + " at column " +
               atColumn(marks.firstColumn);
    const char* const verb = marks.removed == 0 ? "set" : marks.set == 0 ? "removed" : "changed";
    return counted(count, "chord mark") + " " + verb;
}

/// One row's notes: drawn, erased, moved, or made longer or shorter.
Change rowChange(const RowDifference& row) {
    const bool beats = !isMusicRow(row.row);
    const std::string name = rowName(row.row);
    const auto added = static_cast<int>(row.added.size());
    const auto removed = static_cast<int>(row.removed.size());
    const std::string place = " on " + name + ", column ";
    const char* const kind = beats ? changeKind::beats : changeKind::notes;
    const char* const noun = beats ? "Beat" : "Note";
    const auto several = [&](int count, const char* verb) {
        return counted(count, beats ? "beat" : "note") + " " + verb + " on " + name;
    };
    if (removed == 0 && added == 1)
        return {kind, noun + std::string(" drawn") + place + atColumn(row.added[0].column)};
    if (removed == 0 && added > 1)
        return {kind, several(added, "drawn")};
    if (added == 0 && removed == 1)
        return {changeKind::erase,
                noun + std::string(" erased") + place + atColumn(row.removed[0].column)};
    if (added == 0 && removed > 1)
        return {changeKind::erase, several(removed, "erased")};
    if (added == 1 && removed == 1) {
        const Note& before = row.removed[0];
        const Note& after = row.added[0];
        const bool stays = before.column == after.column && before.pitch == after.pitch;
        const char* verb = " moved";
        if (stays && before.columns != after.columns)
            verb = after.columns > before.columns ? " lengthened" : " shortened";
        else if (stays)
            verb = " changed";
        return {kind, noun + std::string(verb) + place + atColumn(after.column)};
    }
    return {kind, several(std::max(added, removed), "changed")};
}

/// One new note in each of several channels, all in the same column: a step of a MIDI keyboard.
bool isChord(const NoteDifference& notes) {
    return notes.removed() == 0 &&
           std::all_of(notes.rows.begin(), notes.rows.end(), [&notes](const RowDifference& row) {
               return isMusicRow(row.row) && row.added.size() == 1 &&
                      row.added[0].column == notes.firstColumn;
           });
}

/// Notes in several rows: columns that were inserted, cut, pasted, erased or changed.
Change blockChange(const Score& before, const Score& after, const NoteDifference& notes) {
    const std::string columns = counted(notes.columns(), "column") + " ";
    if (const auto shift = findShift(before, after)) {
        const int count = std::abs(shift->columns);
        return {changeKind::block,
                counted(count, "column") +
                    (shift->columns > 0 ? " inserted at column " : " cut at column ") +
                    atColumn(shift->at)};
    }
    if (notes.added() == 0)
        return {changeKind::erase, columns + "erased from column " + atColumn(notes.firstColumn)};
    if (isChord(notes))
        return {changeKind::notes,
                counted(notes.added(), "note") + " drawn in column " + atColumn(notes.firstColumn)};
    return {changeKind::block, columns + "pasted at column " + atColumn(notes.firstColumn)};
}

Change noteChange(const Score& before, const Score& after, const NoteDifference& notes) {
    const bool isOneNote = notes.added() <= 1 && notes.removed() <= 1;
    if (notes.rows.size() == 1 && (isOneNote || !findShift(before, after)))
        return rowChange(notes.rows[0]);
    return blockChange(before, after, notes);
}

/// Cells that sound the same notes with other instruments.
Change instrumentChange(const InstrumentDifference& cells) {
    if (cells.rows.size() == 1)
        return {changeKind::instrument,
                capitalised(rowName(cells.rows[0])) + " plays " + instrumentName(cells.instrument)};
    return {changeKind::instrument,
            "Instruments of " + counted(static_cast<int>(cells.rows.size()), "row") + " changed"};
}

/// Marks, instruments or the tempo, with the same notes.
Change valueChange(const Score& before, const Score& after) {
    if (const MarkDifference marks = differingMarks(before, after); marks.set + marks.removed > 0)
        return {marks.set == 0 ? changeKind::erase : changeKind::chords, markText(marks)};
    if (const auto cells = differingInstruments(before, after); !cells.rows.empty())
        return instrumentChange(cells);
    if (before.Tempo != after.Tempo)
        return {changeKind::tempo,
                "Tempo " + std::to_string(after.Tempo) + ", was " + std::to_string(before.Tempo)};
    return {changeKind::block, "Changed"};
}

std::string clearedText(const ChangeNames& names) {
    std::string name = fileNameOf(names.before);
    if (name.ends_with(".sng"))
        name.resize(name.size() - 4);
    return name.empty() ? "Cleared" : "Cleared; " + name + " was kept";
}

} // namespace

Change describeChange(const Score& before, const Score& after, const ChangeNames& names) {
    if (names.opened)
        return {changeKind::open, "Opened " + fileNameOf(*names.opened), true};
    if (const NoteDifference notes = differingNotes(before, after); !notes.rows.empty()) {
        const bool lostName = !names.before.empty() && names.after.empty();
        if (!hasCells(after) && (lostName || notes.removed() > 1))
            return {changeKind::clear, clearedText(names), true};
        Change change = noteChange(before, after, notes);
        change.replacesScore = !hasCells(after) || removesMost(before, notes);
        return change;
    }
    return valueChange(before, after);
}

ChangedPlace changedPlace(const Score& before, const Score& after) {
    ChangedPlace place;
    for (int column = 0; column <= lastGridColumn; ++column)
        for (int row = 0; row < scoreRows; ++row) {
            const int was = before.NoteArray.at(row, column);
            const int is = after.NoteArray.at(row, column);
            const bool isMarked =
                isMusicRow(row) && column < lastGridColumn &&
                before.PolyArray.at(row + 1, column + 1) != after.PolyArray.at(row + 1, column + 1);
            const bool isPlayed =
                before.InstrumentArray.at(row, column) != after.InstrumentArray.at(row, column);
            if (was == is && !isMarked && !isPlayed)
                continue;
            if (place.firstColumn < 0) {
                const int cell = isEmpty(is) ? was : is;
                place = {column, column, row, isEmpty(cell) ? -1 : pitchOf(cell)};
            }
            place.lastColumn = column;
        }
    return place;
}

std::vector<int> changedRows(const Score& before, const Score& after) {
    std::vector<int> rows;
    for (int row = 0; row < scoreRows; ++row) {
        bool differs = before.RowInstrument[row] != after.RowInstrument[row];
        for (int column = 0; column <= lastGridColumn && !differs; ++column)
            differs =
                before.NoteArray.at(row, column) != after.NoteArray.at(row, column) ||
                before.InstrumentArray.at(row, column) != after.InstrumentArray.at(row, column) ||
                (isMusicRow(row) &&
                 before.PolyArray.at(row + 1, column) != after.PolyArray.at(row + 1, column));
        if (differs)
            rows.push_back(row);
    }
    return rows;
}

std::string fileNameOf(const std::string& path) {
    const std::size_t separator = path.find_last_of("/\\");
    return separator == std::string::npos ? path : path.substr(separator + 1);
}

} // namespace velorin
