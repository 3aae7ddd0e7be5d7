// Writes the cells of each score, and counts what became of the notes.
#include "importing/Pieces.h"

#include "importing/Cuts.h"
#include "model/Cell.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <iterator>

namespace velorin::importing {

namespace {

// The lines of the percussion tableau that a new window shows: neighbours do not hide each other.
constexpr std::array drumLines{57, 56, 55, 57, 56};

std::int16_t lineOf(const PlacedNote& note) {
    if (note.isDrum())
        return static_cast<std::int16_t>(
            drumLines[static_cast<std::size_t>(note.row - firstPercussionRow)]);
    return static_cast<std::int16_t>(lastPitch - note.key);
}

/// Writes columns [start, end) of a note; columns count from the start of the score.
void write(Score& score, const PlacedNote& note, int start, int end) {
    const std::int16_t line = lineOf(note);
    for (int column = start; column < end; ++column) {
        const int cell = column == start ? line : heldCell(line);
        score.NoteArray.write(note.row, column, static_cast<std::int16_t>(cell));
        score.InstrumentArray.write(note.row, column, note.instrument);
    }
    if (note.hasMark)
        score.PolyArray.write(note.row + 1, start + 1, 1);
}

std::size_t cutOf(const std::vector<Cut>& cuts, int column) {
    const auto after = std::upper_bound(cuts.begin(), cuts.end(), column,
                                        [](int c, const Cut& cut) { return c < cut.from; });
    return static_cast<std::size_t>(after - cuts.begin()) - 1;
}

// Writes the note into each score in which it sounds. A score must not begin with a note that ends
// at once.
void writeEverywhere(std::vector<Piece>& pieces, const std::vector<Cut>& cuts, PlacedNote& note) {
    std::size_t i = cutOf(cuts, note.start);
    const std::size_t first = i;
    int start = note.start;
    for (;;) {
        const Cut& cut = cuts[i];
        const int end = std::min(note.end, cut.to);
        write(pieces[i].score, note, start - cut.from, end - cut.from);
        const bool isLast = i + 1 == cuts.size() || cuts[i + 1].from != cut.to;
        if (note.end <= cut.to + 1 || note.isDrum() || isLast) {
            note.end = end;
            break;
        }
        start = cut.to;
        ++i;
    }
    if (i > first)
        ++pieces[first].account.continued;
}

/// Counts notes.
class Counting {
public:
    explicit Counting(const std::vector<PlacedNote>& notes) : notes_(notes) {}

    void count(const PlacedNote& note) {
        ++account_.notes;
        const PlacedNote& heard = heardAs(note);
        switch (heard.fate) {
        case Fate::placed:
            return countKept(note, heard);
        case Fate::tooFast:
            ++account_.tooFast;
            return;
        case Fate::unknownDrum:
            ++account_.unknownDrums;
            return;
        case Fate::crowdedDrum:
            ++account_.crowdedDrums;
            return;
        default:
            ++account_.crowded;
        }
    }

    Account finish() {
        if (moves_.empty())
            return account_;
        const auto middle = moves_.begin() + static_cast<std::ptrdiff_t>(moves_.size() / 2);
        std::nth_element(moves_.begin(), middle, moves_.end());
        account_.medianMoveMs = *middle;
        return account_;
    }

private:
    // The note whose sound contains this one.
    [[nodiscard]] const PlacedNote& heardAs(const PlacedNote& note) const {
        const PlacedNote* heard = &note;
        while (heard->fate == Fate::merged || heard->fate == Fate::inMark)
            heard = &notes_[heard->into];
        return *heard;
    }

    void countKept(const PlacedNote& note, const PlacedNote& heard) {
        if (note.moveMs <= exactMs) {
            ++account_.exact;
        } else {
            ++account_.moved;
            moves_.push_back(note.moveMs);
            account_.largestMoveMs = std::max<double>(account_.largestMoveMs, note.moveMs);
            account_.largestMoveColumns =
                std::max<double>(account_.largestMoveColumns, note.moveColumns);
        }
        account_.shortened += heard.end < note.wantedEnd ? 1 : 0;
        account_.merged += note.fate == Fate::merged ? 1 : 0;
        account_.inMarks += note.fate == Fate::inMark ? 1 : 0;
    }

    const std::vector<PlacedNote>& notes_;
    Account account_;
    std::vector<float> moves_;
};

// A chord is played softer than a single note.
std::uint8_t volumeFor(const PlacedNote& note) {
    constexpr double chordShare = 0.85;
    const double volume = note.hasMark ? note.loudness / chordShare : note.loudness;
    return static_cast<std::uint8_t>(std::min(std::lround(volume), 127L));
}

// The median of the notes of each row, in all scores.
RowArray<int> volumesOf(const std::vector<PlacedNote>& notes) {
    std::array<std::vector<std::uint8_t>, scoreRows> loudness;
    for (const PlacedNote& note : notes) {
        if (note.fate == Fate::placed)
            loudness[static_cast<std::size_t>(note.row)].push_back(volumeFor(note));
    }
    RowArray<int> volumes;
    for (int row = 0; row < scoreRows; ++row) {
        auto& values = loudness[static_cast<std::size_t>(row)];
        volumes[row] = 127;
        if (values.empty())
            continue;
        const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
        std::nth_element(values.begin(), middle, values.end());
        volumes[row] = *middle;
    }
    return volumes;
}

void setRowInstruments(Score& score) {
    for (int row = 0; row < scoreRows; ++row) {
        for (int column = 0; column < scoreColumns; ++column) {
            if (isStart(score.NoteArray.at(row, column))) {
                score.RowInstrument[row] = score.InstrumentArray.at(row, column);
                break;
            }
        }
    }
}

} // namespace

std::vector<Piece> piecesOf(const Music& music, const TimeGrid& grid,
                            std::vector<PlacedNote>& notes) {
    const std::vector<Cut> cuts = cutsOf(music, grid, notes);
    std::vector<Piece> pieces(cuts.size());
    std::vector<std::vector<std::uint32_t>> begun(cuts.size());
    for (std::uint32_t i = 0; i < notes.size(); ++i) {
        begun[cutOf(cuts, notes[i].start)].push_back(i);
        if (notes[i].fate == Fate::placed)
            writeEverywhere(pieces, cuts, notes[i]);
    }
    const RowArray<int> volumes = volumesOf(notes);
    for (std::size_t i = 0; i < pieces.size(); ++i) {
        Piece& piece = pieces[i];
        const Stretch& stretch = grid.stretches()[grid.stretchOf(cuts[i].from)];
        piece.score.Tempo = static_cast<std::int16_t>(stretch.tempo);
        piece.columnsPerBeat = stretch.columnsPerBeat;
        piece.speed = stretch.speed();
        piece.fromSeconds = std::max(0.0, grid.usAt(cuts[i].from) / 1e6);
        Counting counting(notes);
        for (const std::uint32_t note : begun[i])
            counting.count(notes[note]);
        const auto continued = piece.account.continued;
        piece.account = counting.finish();
        piece.account.continued = continued;
        piece.volumes = volumes;
        setRowInstruments(piece.score);
    }
    return pieces;
}

Account accountOf(const std::vector<PlacedNote>& notes) {
    Counting counting(notes);
    for (const PlacedNote& note : notes)
        counting.count(note);
    return counting.finish();
}

} // namespace velorin::importing
