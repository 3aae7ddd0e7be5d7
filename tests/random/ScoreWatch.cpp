// Checks ranges and the round trip through the file, and implements the drawing of notes a second
// time.
#include "ScoreWatch.h"

#include "model/ScoreReader.h"
#include "model/ScoreWriter.h"
#include "studio/Studio.h"

#include <algorithm>
#include <memory>
#include <sstream>

namespace randomly {

using namespace velorin;

namespace {

constexpr int boxPx = 12;
constexpr int mostPitch =
    400; ///< lines below the last key can be drawn on, down to the end of a screen

bool isNote(int cell) {
    return cell == -1 || (cell >= 0 && cell <= mostPitch) ||
           (cell >= 1000 && cell <= 1000 + mostPitch);
}

/// A closed Setup Toolbar is loaded by the next read of one of its boxes, which lays out the main
/// window again and moves its lines.
bool staysAsItIs(const Studio& studio) {
    return studio.run.IsPlaying == 0 && studio.run.EditMode == 0 && studio.run.Form3Open != 0;
}

bool isFlag(int value) {
    return value == 0 || value == -1;
}

std::string at(const char* grid, int row, int column, int value) {
    return std::string(grid) + "(" + std::to_string(row) + ", " + std::to_string(column) + ") is " +
           std::to_string(value);
}

template <typename Grid>
void addDifferences(std::string& text, const char* name, const Grid& actual, const Grid& expected) {
    int left = 3;
    for (int row = 0; row < Grid::rows; ++row) {
        for (int column = 0; column < Grid::columns && left > 0; ++column) {
            if (actual.at(row, column) == expected.at(row, column))
                continue;
            text += "; " + at(name, row, column, actual.at(row, column)) + ", not " +
                    std::to_string(expected.at(row, column));
            --left;
        }
    }
}

std::string wrongCell(const Score& score) {
    for (int row = 0; row < NoteGrid::rows; ++row) {
        for (int column = 0; column < NoteGrid::columns; ++column) {
            const int note = score.NoteArray.at(row, column);
            const int instrument = score.InstrumentArray.at(row, column);
            if (!isNote(note))
                return at("NoteArray", row, column, note);
            if (instrument < 0 || instrument > 174)
                return at("InstrumentArray", row, column, instrument);
        }
    }
    for (int lane = 0; lane < PolyGrid::rows; ++lane) {
        for (int column = 0; column < PolyGrid::columns; ++column) {
            const int mark = score.PolyArray.at(lane, column);
            if (mark != 0 && mark != 1)
                return at("PolyArray", lane, column, mark);
        }
    }
    return {};
}

struct Range {
    const char* name;
    int value;
    int low;
    int high;
};

std::string outOfRange(std::initializer_list<Range> ranges) {
    for (const Range& range : ranges) {
        if (range.value < range.low || range.value > range.high)
            return std::string(range.name) + " is " + std::to_string(range.value);
    }
    return {};
}

} // namespace

Grids gridsOf(const Score& score) {
    return {score.NoteArray, score.InstrumentArray, score.PolyArray};
}

std::string differences(const Grids& actual, const Grids& expected) {
    std::string text;
    addDifferences(text, "NoteArray", actual.notes, expected.notes);
    addDifferences(text, "InstrumentArray", actual.instruments, expected.instruments);
    addDifferences(text, "PolyArray", actual.marks, expected.marks);
    return text;
}

std::string wrongValue(const Studio& studio) {
    const Score& score = studio.score;
    const Run& run = studio.run;
    for (const Flag flag : {run.IsPlaying, run.PauseFlag, run.LoopSong, run.ShowNotePosition,
                            run.RecordingFlag, run.SoundFinished, run.Form2Open, run.Form3Open,
                            run.RecordToolbarOpen, run.WizOpen, studio.drag.MouseHeld}) {
        if (!isFlag(flag.number))
            return "a flag is " + std::to_string(flag.number);
    }
    const std::string wrong = outOfRange({{"Tempo", score.Tempo, 20, 300},
                                          {"CurrentRow", score.CurrentRow, 0, 12},
                                          {"SelectStart", score.SelectStart, -1, 1100},
                                          {"SelectEnd", score.SelectEnd, -1, 1100},
                                          {"StartColumn", score.StartColumn, -1, 1100},
                                          {"LastColumn", score.LastColumn, 0, 1100},
                                          {"FirstColumn", studio.view.FirstColumn, 0, 1000},
                                          {"TopPitch", studio.view.TopPitch, 0, 127},
                                          {"EditMode", run.EditMode, 0, 2},
                                          {"RightClickMode", run.RightClickMode, 0, 2}});
    return wrong.empty() ? wrongCell(score) : wrong;
}

bool comesBackFromItsFile(const Score& score) {
    const auto again = std::make_unique<Score>();
    std::istringstream file(keptText(score));
    ScoreReader reader(&file, *again);
    reader.readRows();
    reader.readTempo();
    reader.readRowInstruments();
    reader.readChordMarks();
    // The first lane belongs to no row and is not written.
    for (int lane = 1; lane < PolyGrid::rows; ++lane) {
        for (int column = 0; column < PolyGrid::columns; ++column) {
            if (again->PolyArray.at(lane, column) != score.PolyArray.at(lane, column))
                return false;
        }
    }
    return again->NoteArray == score.NoteArray && again->InstrumentArray == score.InstrumentArray &&
           again->Tempo == score.Tempo && again->RowInstrument == score.RowInstrument;
}

std::optional<DrawnNote> DrawnNote::pressed(const Studio& studio, int x, int y) {
    if (studio.score.CurrentRow >= 8 || !staysAsItIs(studio))
        return std::nullopt;
    DrawnNote note;
    note.row_ = studio.score.CurrentRow;
    note.line_ = y / boxPx;
    note.column_ = x / boxPx;
    return note;
}

bool DrawnNote::isStillIn(const Studio& studio) const {
    return studio.score.CurrentRow == row_ && staysAsItIs(studio) &&
           studio.drag.MouseLine == line_ && studio.drag.DragStart == column_;
}

// Writes the head and its held cells. The rest of an overwritten note after them becomes a note of
// its own.
Grids DrawnNote::released(const Studio& studio, Grids before, int x) const {
    const int first = studio.view.FirstColumn;
    const int pitch = studio.view.TopPitch + line_;
    const int row = row_;
    const int last = std::max(std::min<int>(x / boxPx, studio.view.VisibleColumns), column_);
    const std::int16_t instrument = studio.score.RowInstrument[row];
    for (int column = column_; column <= last; ++column) {
        const int cell = column == column_ ? pitch : 1000 + pitch;
        before.notes.write(row, first + column, static_cast<std::int16_t>(cell));
        before.instruments.write(row, first + column, instrument);
    }
    const auto behind = before.notes.read(row, first + last + 1);
    if (behind && *behind >= 1000)
        before.notes.write(row, first + last + 1, static_cast<std::int16_t>(*behind - 1000));
    return before;
}

std::optional<Grids> erased(const Studio& studio, int x, int y) {
    const bool erases =
        studio.score.CurrentRow < 8 && staysAsItIs(studio) && studio.run.RightClickMode == 0;
    if (!erases || y < 0)
        return std::nullopt;
    Grids grids = gridsOf(studio.score);
    const int row = studio.score.CurrentRow;
    const int first = studio.view.FirstColumn;
    int column = x / boxPx; // on the screen; marks are set by screen column
    const auto cell = [&] { return grids.notes.read(row, first + column); };
    if (!cell() || *cell() == -1)
        return grids;
    grids.marks.write(row + 1, column + 1, 1);
    for (; cell() && *cell() >= 1000; --column)
        grids.marks.write(row + 1, column + 1, 0);
    if (!cell())
        return std::nullopt; // held cells without a head, from the first column
    grids.notes.write(row, first + column, -1);
    grids.instruments.write(row, first + column, 0);
    grids.marks.write(row + 1, column + 1, 0);
    for (++column; cell() && *cell() >= 1000; ++column) {
        grids.notes.write(row, first + column, -1);
        grids.instruments.write(row, first + column, 0);
        grids.marks.write(row + 1, column, 0);
    }
    return grids;
}

} // namespace randomly
