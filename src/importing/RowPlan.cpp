// Packs voices into rows, the important ones first.
#include "importing/RowPlan.h"

#include "importing/VoiceRanks.h"
#include "model/Cell.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <limits>
#include <map>
#include <numeric>
#include <optional>
#include <set>

namespace velorin::importing {

namespace {

constexpr int noColumn = std::numeric_limits<int>::max();

/// The notes of one row, by their starts.
class Row {
public:
    explicit Row(std::vector<PlacedNote>& notes) : notes_(&notes) {}

    [[nodiscard]] bool isEmpty() const { return at_.empty(); }
    [[nodiscard]] bool hasPart(int part) const { return parts_.contains(part); }
    [[nodiscard]] bool hasInstrument(int instrument) const {
        return instruments_.contains(instrument);
    }

    [[nodiscard]] bool isFree(const PlacedNote& note) const {
        return nextStart(note.start) >= note.end && soundingAt(note.start) == nullptr;
    }

    /// The note that sounds in a column; null for none.
    [[nodiscard]] PlacedNote* soundingAt(int column) const {
        auto after = at_.upper_bound(column);
        if (after == at_.begin())
            return nullptr;
        PlacedNote& note = (*notes_)[(--after)->second];
        return note.end > column ? &note : nullptr;
    }

    /// The first column at or after this one in which a note begins.
    [[nodiscard]] int nextStart(int column) const {
        const auto next = at_.lower_bound(column);
        return next == at_.end() ? noColumn : next->first;
    }

    /// Shortens what sounds there, and the note itself at the next one.
    void put(std::uint32_t index) {
        PlacedNote& note = (*notes_)[index];
        if (PlacedNote* before = soundingAt(note.start))
            before->end = note.start;
        note.end = std::min(note.end, nextStart(note.start));
        at_.emplace(note.start, index);
        parts_.insert(note.part);
        instruments_.insert(note.instrument);
    }

    [[nodiscard]] const std::map<int, std::uint32_t>& notes() const { return at_; }

    /// 0 for an empty row.
    [[nodiscard]] double meanKey() const {
        double sum = 0.0;
        for (const auto& [column, index] : at_)
            sum += (*notes_)[index].key;
        return isEmpty() ? 0.0 : sum / static_cast<double>(at_.size());
    }

private:
    std::vector<PlacedNote>* notes_;
    std::map<int, std::uint32_t> at_;
    std::set<int> parts_;
    std::set<int> instruments_;
};

class Packing {
public:
    Packing(const std::vector<Voice>& voices, std::vector<PlacedNote>& notes)
        : voices_(voices), notes_(notes), rows_(musicRows, Row(notes)) {}

    void pack() {
        const bool isCrowded = voices_.size() > musicRows;
        std::vector<std::size_t> left;
        for (const Rank& rank : ranked(voices_, notes_)) {
            const Voice& voice = voices_[rank.voice];
            if (rank.outer > 0)
                outerParts_.insert(voice.part);
            const auto row = isCrowded && rank.outer == 0 ? sharedRow(voice) : emptyRow();
            if (row)
                putAll(voice, *row);
            else
                left.push_back(rank.voice);
        }
        for (const std::size_t voice : left)
            fillGaps(voices_[voice]);
        number();
    }

private:
    [[nodiscard]] bool fits(const Voice& voice, const Row& row) const {
        return std::all_of(voice.notes.begin(), voice.notes.end(),
                           [&](std::uint32_t i) { return row.isFree(notes_[i]); });
    }

    [[nodiscard]] std::optional<std::size_t> emptyRow() const {
        for (std::size_t r = 0; r < rows_.size(); ++r) {
            if (rows_[r].isEmpty())
                return r;
        }
        return std::nullopt;
    }

    // A row of the same part, else of the same instrument, else any that is not empty, else an
    // empty one: the more voices share rows, the more rows are left.
    [[nodiscard]] std::optional<std::size_t> sharedRow(const Voice& voice) const {
        const int instrument = notes_[voice.notes.front()].instrument;
        std::optional<std::size_t> best;
        int bestGrade = 0;
        for (std::size_t r = 0; r < rows_.size(); ++r) {
            const Row& row = rows_[r];
            const int grade = row.isEmpty()                   ? 1
                              : row.hasPart(voice.part)       ? 4
                              : row.hasInstrument(instrument) ? 3
                                                              : 2;
            if (grade > bestGrade && fits(voice, row)) {
                best = r;
                bestGrade = grade;
            }
        }
        return best;
    }

    void put(std::uint32_t index, std::size_t row) {
        rows_[row].put(index);
        notes_[index].row = static_cast<std::int16_t>(row);
        notes_[index].fate = Fate::placed;
    }

    void putAll(const Voice& voice, std::size_t row) {
        for (const std::uint32_t i : voice.notes)
            put(i, row);
    }

    // What it costs to give a note this row: the columns that it and the note before it lose. No
    // value if another begins in the same column.
    [[nodiscard]] std::optional<double> costOf(const PlacedNote& note, std::size_t r) const {
        constexpr int longLength = 16;
        constexpr double weightOfOuter = 3.0;
        const Row& row = rows_[r];
        const int next = row.nextStart(note.start);
        if (next == note.start)
            return std::nullopt;
        double cost = std::min(longLength, std::max(0, note.end - next));
        if (const PlacedNote* before = row.soundingAt(note.start)) {
            const double lost = std::min(longLength, before->end - note.start);
            const double share = lost / (before->end - before->start);
            const double weight = outerParts_.contains(before->part) ? weightOfOuter : 1.0;
            cost += weight * lost * (0.5 + share);
        }
        return cost;
    }

    // The cheapest row; of two that cost the same, the one that the voice has used last.
    void fillGaps(const Voice& voice) {
        std::size_t usual = rows_.size();
        for (const std::uint32_t i : voice.notes) {
            std::size_t best = rows_.size();
            double bestCost = 0.0;
            for (std::size_t r = 0; r < rows_.size(); ++r) {
                const auto cost = costOf(notes_[i], r);
                if (!cost)
                    continue;
                const double strange = r == usual ? 0.0 : rows_[r].hasPart(voice.part) ? 0.1 : 0.2;
                if (best == rows_.size() || *cost + strange < bestCost) {
                    best = r;
                    bestCost = *cost + strange;
                }
            }
            if (best == rows_.size()) {
                notes_[i].fate = Fate::crowded;
                continue;
            }
            put(i, best);
            usual = best;
        }
    }

    // A row gets the number of its first note's channel if it is free, so that a file of eight
    // channels keeps its order. The others are in the order of their parts, the higher ones first.
    void number() {
        std::array<int, musicRows> numberOf{};
        numberOf.fill(-1);
        std::vector<std::size_t> order(rows_.size());
        std::iota(order.begin(), order.end(), 0U);
        const auto partOf = [this](std::size_t r) {
            return rows_[r].isEmpty() ? noColumn : notes_[rows_[r].notes().begin()->second].part;
        };
        std::vector<double> keys;
        std::transform(rows_.begin(), rows_.end(), std::back_inserter(keys),
                       [](const Row& row) { return row.meanKey(); });
        std::stable_sort(order.begin(), order.end(), [&](std::size_t a, std::size_t b) {
            return partOf(a) != partOf(b) ? partOf(a) < partOf(b) : keys[a] > keys[b];
        });
        std::set<int> free;
        for (int row = 0; row < musicRows; ++row)
            free.insert(row);
        for (const std::size_t r : order) {
            const int channel = partOf(r) % 16;
            if (!rows_[r].isEmpty() && free.erase(channel) > 0)
                numberOf[r] = channel;
        }
        for (const std::size_t r : order) {
            if (numberOf[r] < 0)
                numberOf[r] = free.extract(free.begin()).value();
        }
        for (std::size_t r = 0; r < rows_.size(); ++r) {
            for (const auto& [column, index] : rows_[r].notes())
                notes_[index].row = static_cast<std::int16_t>(numberOf[r]);
        }
    }

    const std::vector<Voice>& voices_;
    std::vector<PlacedNote>& notes_;
    std::vector<Row> rows_;
    std::set<int> outerParts_;
};

} // namespace

void assignRows(const std::vector<Voice>& voices, std::vector<PlacedNote>& notes) {
    Packing(voices, notes).pack();
}

void holdPedals(std::vector<PlacedNote>& notes) {
    std::array<std::map<int, std::uint32_t>, musicRows> rows;
    for (std::uint32_t i = 0; i < notes.size(); ++i) {
        if (notes[i].fate == Fate::placed && isMusicRow(notes[i].row))
            rows[static_cast<std::size_t>(notes[i].row)].emplace(notes[i].start, i);
    }
    for (const auto& row : rows) {
        for (auto at = row.begin(); at != row.end(); ++at) {
            const auto next = std::next(at);
            const int free = next == row.end() ? noColumn : next->first;
            PlacedNote& note = notes[at->second];
            if (note.end >= note.wantedEnd)
                note.end = std::max(note.end, std::min(note.ringEnd, free));
        }
    }
}

} // namespace velorin::importing
