// What a press on a tableau did, in words.
#include "windows/reader/StrokeWords.h"

#include "model/Score.h"
#include "platform/CountedText.h"
#include "windows/strip/StateWords.h"

#include <algorithm>
#include <optional>
#include <vector>

namespace velorin {

namespace {

/// A whole note of the score.
struct WholeNote {
    int row;
    int column;
    int columns;
    int pitch;
    int instrument;
    bool operator==(const WholeNote&) const = default;

    [[nodiscard]] bool covers(int place) const {
        return place >= column && place < column + columns;
    }
};

std::vector<WholeNote> notesOfRow(const Score& score, int row) {
    std::vector<WholeNote> notes;
    for (int column = 0; column < scoreColumns; ++column) {
        const int cell = score.NoteArray.at(row, column);
        if (isEmpty(cell))
            continue;
        const bool goesOn = isHeld(cell) && !notes.empty() && notes.back().covers(column - 1) &&
                            notes.back().pitch == pitchOf(cell);
        if (goesOn)
            ++notes.back().columns;
        else
            notes.push_back({row, column, 1, pitchOf(cell), score.InstrumentArray.at(row, column)});
    }
    return notes;
}

/// The notes of `one` that `other` does not have.
std::vector<WholeNote> notesMissing(const Score& one, const Score& other) {
    std::vector<WholeNote> missing;
    for (int row = 0; row < scoreRows; ++row) {
        const std::vector<WholeNote> others = notesOfRow(other, row);
        for (const WholeNote& note : notesOfRow(one, row)) {
            if (std::ranges::find(others, note) == others.end())
                missing.push_back(note);
        }
    }
    return missing;
}

using platform::counted;

/// "G sharp 4, channel 1"; a beat has its drum in place of a note.
std::string ownerWords(const WholeNote& note) {
    const std::string what = isMusicRow(note.row) ? spokenNote(note.pitch)
                                                  : instrumentName(note.instrument).toStdString();
    return (what.empty() ? std::string() : what + ", ") + spokenRow(note.row);
}

std::string noteDone(const WholeNote& note, const char* done) {
    std::string words = isMusicRow(note.row) ? "Note" : "Beat";
    if (isMusicRow(note.row) || note.columns > 1)
        words += " of " + counted(note.columns, "column");
    return words + " " + done + ", " + ownerWords(note) + ".";
}

/// The note that was drawn. What is left of a note that it has cut is also new.
const WholeNote& drawnOf(const std::vector<WholeNote>& added, const Spot& pressed) {
    const auto at = std::ranges::find_if(
        added, [&pressed](const WholeNote& note) { return note.covers(pressed.column); });
    return at != added.end() ? *at : added.front();
}

std::string coveredWords(const std::vector<WholeNote>& gone, const WholeNote& drawn) {
    std::string words;
    for (const WholeNote& note : gone) {
        if (note.row != drawn.row || note.pitch == drawn.pitch)
            continue;
        const std::string name = spokenNote(note.pitch);
        words += (words.empty() ? " Drawn over " : ", ") + (name.empty() ? "a note" : name);
    }
    return words.empty() ? words : words + ".";
}

std::string noteChanges(const Score& before, const Score& after, const Spot& pressed) {
    if (before.NoteArray == after.NoteArray && before.InstrumentArray == after.InstrumentArray)
        return {};
    const std::vector<WholeNote> added = notesMissing(after, before);
    const std::vector<WholeNote> gone = notesMissing(before, after);
    if (!added.empty()) {
        const WholeNote& drawn = drawnOf(added, pressed);
        return noteDone(drawn, "drawn") +
               (isMusicRow(drawn.row) ? coveredWords(gone, drawn) : std::string());
    }
    if (gone.size() == 1)
        return noteDone(gone.front(), "erased");
    return gone.empty() ? std::string()
                        : counted(static_cast<int>(gone.size()), "note") + " erased.";
}

/// The marks that have changed to one value.
struct MarkChange {
    int row = 0; ///< of the lane
    bool isOneRow = true;
    int first = 0; ///< columns of the score
    int last = 0;
    int count = 0;

    void add(int ofRow, int column) {
        if (count++ == 0) {
            row = ofRow;
            first = last = column;
        }
        isOneRow = isOneRow && ofRow == row;
        first = std::min(first, column);
        last = std::max(last, column);
    }
};

std::optional<MarkChange> marksChangedTo(int value, const Score& before, const Score& after) {
    MarkChange change;
    for (int row = 0; row < musicRows; ++row) {
        for (int column = 0; column + 1 < scoreColumns; ++column) {
            const int now = after.PolyArray.at(row + 1, column + 1);
            if (now == value && before.PolyArray.at(row + 1, column + 1) != now)
                change.add(row, column);
        }
    }
    return change.count > 0 ? std::optional(change) : std::nullopt;
}

std::string markWords(const std::optional<MarkChange>& change, const char* done) {
    if (!change)
        return {};
    const bool isOne = change->count == 1;
    std::string words = isOne ? std::string("Chord mark") : counted(change->count, "chord mark");
    words = words + " " + done;
    if (change->isOneRow)
        words += ", " + spokenRow(change->row);
    words += change->first == change->last ? ", column " : ", columns ";
    words += std::to_string(change->first + 1);
    if (change->last != change->first)
        words += " to " + std::to_string(change->last + 1);
    return words + ".";
}

std::string selectionWords(const Score& before, const Score& after) {
    if (before.SelectStart == after.SelectStart && before.SelectEnd == after.SelectEnd)
        return {};
    if (after.SelectStart < 0)
        return before.SelectStart < 0 ? std::string() : "Nothing is selected any more.";
    const int last = std::max(after.SelectStart, after.SelectEnd);
    if (last == after.SelectStart)
        return "Column " + std::to_string(last + 1) + " selected.";
    return "Columns " + std::to_string(after.SelectStart + 1) + " to " + std::to_string(last + 1) +
           " selected.";
}

} // namespace

std::string strokeWords(const Score& before, const Score& after, const Spot& pressed) {
    std::string words;
    for (const std::string& part :
         {noteChanges(before, after, pressed), markWords(marksChangedTo(1, before, after), "set"),
          markWords(marksChangedTo(0, before, after), "cleared"), selectionWords(before, after)})
        if (!part.empty())
            words += (words.empty() ? "" : " ") + part;
    if (words.empty() && before.StartColumn != after.StartColumn)
        return "Marker at column " + std::to_string(after.StartColumn + 1) + ".";
    return words;
}

} // namespace velorin
