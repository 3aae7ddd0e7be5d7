// Compares the columns near the end of a score.
#include "importing/Cuts.h"

#include "model/Cell.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace velorin::importing {

namespace {

constexpr int mostColumns = lastShownColumn + 1;

/// Knows the bar lines.
class Bars {
public:
    Bars(const Music& music, const TimeGrid& grid) : music_(music), grid_(grid) {}

    /// True if a bar begins in the column. Without a beat there are no bars.
    [[nodiscard]] bool isLine(int column) const {
        if (!music_.tempo.length().isMetrical())
            return false;
        const double tick = music_.tempo.tickAt(grid_.usAt(column));
        const double next = music_.tempo.tickAt(grid_.usAt(column + 1));
        const auto after = std::upper_bound(
            music_.meters.begin(), music_.meters.end(), tick + 1.0,
            [](double t, const auto& change) { return t < static_cast<double>(change.tick); });
        const midifile::Meter meter =
            after == music_.meters.begin() ? midifile::Meter() : *(after - 1);
        const double bar = music_.tempo.length().ticksPerQuarter() * 4.0 * meter.beats / meter.unit;
        const double half = (next - tick) / 2.0;
        const double place = std::fmod(tick - static_cast<double>(meter.tick) + half, bar);
        return place < 2.0 * half;
    }

private:
    const Music& music_;
    const TimeGrid& grid_;
};

/// Chooses the cuts of one stretch.
class Cutting {
public:
    Cutting(const Bars& bars, const TimeGrid& grid, std::vector<const PlacedNote*> notes)
        : bars_(bars), grid_(grid), notes_(std::move(notes)) {}

    /// Keeps every silence.
    void keepSilence() { keepsSilence_ = true; }

    /// Appends the cuts of the notes that begin in [from, to).
    void cut(int from, int to, std::vector<Cut>& cuts) {
        const auto first = std::lower_bound(
            notes_.begin(), notes_.end(), from,
            [](const PlacedNote* note, int column) { return note->start < column; });
        int end = from;
        for (auto note = first; note != notes_.end() && (*note)->start < to; ++note)
            end = std::max(end, std::min((*note)->end, to));
        countSounding(from, end);
        from = afterSilence(from, end);
        while (end - from > mostColumns) {
            const int at = bestCut(from, end);
            cuts.push_back({from, at});
            from = afterSilence(at, end);
        }
        if (end > from)
            cuts.push_back({from, end});
    }

private:
    // For each column the number of notes that began before it and sound on.
    void countSounding(int from, int end) {
        from_ = from;
        sounding_.assign(static_cast<std::size_t>(std::max(0, end - from)) + 1, 0);
        for (const PlacedNote* note : notes_) {
            if (note->start >= end)
                break;
            const int first = std::clamp(note->start + 1, from, end);
            const int last = std::clamp(note->end, from, end);
            if (first < last) {
                ++sounding_[static_cast<std::size_t>(first - from)];
                --sounding_[static_cast<std::size_t>(last - from)];
            }
        }
        for (std::size_t i = 1; i < sounding_.size(); ++i)
            sounding_[i] += sounding_[i - 1];
    }

    // The bar line before the next note if that is far away, else the same column.
    [[nodiscard]] int afterSilence(int from, int end) const {
        constexpr double longUs = 10e6;
        constexpr int mostBar = 200; // columns
        const auto next = std::lower_bound(
            notes_.begin(), notes_.end(), from,
            [](const PlacedNote* note, int column) { return note->start < column; });
        if (keepsSilence_ || from >= end || sounding_[static_cast<std::size_t>(from - from_)] > 0 ||
            next == notes_.end() || (*next)->start >= end)
            return from;
        const int start = (*next)->start;
        if (grid_.usAt(start) - grid_.usAt(from) <= longUs)
            return from;
        for (int column = start; column > std::max(from, start - mostBar); --column) {
            if (bars_.isLine(column))
                return column;
        }
        return start;
    }

    // Scores of about equal lengths, cut at a bar line at which few notes sound on.
    [[nodiscard]] int bestCut(int from, int end) const {
        constexpr double costOfNoBar = 3.0;
        constexpr double costOfDistance = 1.0 / 50.0; // of a column
        const int scores = (end - from + mostColumns - 1) / mostColumns;
        const int ideal = from + (end - from) / scores;
        const int least = std::max(from + 1, end - (scores - 1) * mostColumns);
        int best = from + mostColumns;
        double bestCost = std::numeric_limits<double>::max();
        for (int column = least; column <= from + mostColumns; ++column) {
            const double cost = sounding_[static_cast<std::size_t>(column - from_)] +
                                (bars_.isLine(column) ? 0.0 : costOfNoBar) +
                                costOfDistance * std::abs(column - ideal);
            if (cost < bestCost) {
                bestCost = cost;
                best = column;
            }
        }
        return best;
    }

    const Bars& bars_;
    const TimeGrid& grid_;
    std::vector<const PlacedNote*> notes_;
    std::vector<int> sounding_;
    bool keepsSilence_ = false;
    int from_ = 0;
};

} // namespace

std::vector<Cut> cutsOf(const Music& music, const TimeGrid& grid,
                        const std::vector<PlacedNote>& notes) {
    std::vector<const PlacedNote*> begun;
    begun.reserve(notes.size());
    for (const PlacedNote& note : notes)
        begun.push_back(&note);
    std::stable_sort(begun.begin(), begun.end(),
                     [](const PlacedNote* a, const PlacedNote* b) { return a->start < b->start; });
    const Bars bars(music, grid);
    Cutting cutting(bars, grid, begun);
    if (music.isOfScore())
        cutting.keepSilence();
    std::vector<Cut> cuts;
    const auto& stretches = grid.stretches();
    const int lead = music.isOfScore() ? nearestColumn(grid.columnAt(music.leadUs)) : 0;
    const int first = std::min(lead, begun.front()->start);
    for (std::size_t i = 0; i < stretches.size(); ++i) {
        const int to = i + 1 < stretches.size() ? stretches[i + 1].firstColumn
                                                : std::numeric_limits<int>::max();
        cutting.cut(i == 0 ? first : stretches[i].firstColumn, to, cuts);
    }
    return cuts;
}

} // namespace velorin::importing
