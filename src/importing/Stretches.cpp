// Tries the usual divisions of the beat, and even times where the beat does not help.
#include "importing/Stretches.h"

#include "importing/GridCost.h"
#include "importing/Runs.h"
#include "model/Cell.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>
#include <span>
#include <utility>

namespace velorin::importing {

namespace {

/// Columns of a quarter note. 3 and 6 are triplets and swing; 5 and 10 are rare.
constexpr double divisions[] = {1.0 / 64, 1.0 / 32, 1.0 / 16, 1.0 / 8, 1.0 / 4, 1.0 / 2, 1.0,
                                2.0,      3.0,      4.0,      5.0,     6.0,     8.0,     10.0,
                                12.0,     16.0,     24.0,     32.0,    48.0,    64.0,    96.0};
constexpr double columnsOfScores = 4.0; ///< of a quarter note
constexpr double goodCost = 0.12;       ///< a beat that fits so well needs no other grid
constexpr double costOfRare = 0.03;     ///< a division by 5 must be better by this
constexpr double costOfNoBeat = 0.03;   ///< a grid of even times must be better by this
constexpr double shiftGain = 0.01;      ///< and one that is moved by this
constexpr std::size_t mostTried = 6000; ///< notes that are enough to compare grids

struct Choice {
    double cost = std::numeric_limits<double>::max();
    Stretch stretch;
};

bool isTempo(double tempo) {
    return tempo >= slowestTempo - 0.5 && tempo < fastestTempo + 0.5;
}

/// The legs of a grid that follows the beat of a group's main run.
class BeatLegs {
public:
    BeatLegs(const RunGroup& group, const midifile::TempoMap& tempo, double columnsPerBeat)
        : group_(group), tempo_(tempo) {
        const Run& main = group.runs[group.mainRun];
        ticksPerColumn_ = tempo.length().ticksPerQuarter() / columnsPerBeat;
        columnUs_ = main.usPerTick * ticksPerColumn_;
        const double place = gridOf(main) - evenPlace(main.us);
        start_ = place - std::floor(place + 1e-6);
    }

    [[nodiscard]] double columnUs() const { return columnUs_; }

    [[nodiscard]] std::vector<Leg> legs() const {
        std::vector<Leg> legs;
        for (const Run& run : group_.runs) {
            const double place = evenPlace(run.us) + start_;
            if (!followsBeat(run)) {
                legs.push_back({run.us, place, 1.0 / columnUs_});
                continue;
            }
            const double whole = std::round(place - gridOf(run));
            for (std::size_t i = run.firstChange; i < run.endChange; ++i) {
                const auto& change = tempo_.changes()[i];
                legs.push_back({change.us,
                                static_cast<double>(change.tick) / ticksPerColumn_ + whole,
                                1.0 / (change.usPerTick * ticksPerColumn_)});
            }
        }
        return legs;
    }

private:
    // Columns from the start of the group if all of them were as long as those of the main run.
    [[nodiscard]] double evenPlace(double us) const {
        return (us - group_.runs.front().us) / columnUs_;
    }

    // The place of a run's start if columns are counted from tick 0.
    [[nodiscard]] double gridOf(const Run& run) const {
        return static_cast<double>(tempo_.changes()[run.firstChange].tick) / ticksPerColumn_;
    }

    // A run of another tempo follows the beat as long as that moves it by half a column at most.
    [[nodiscard]] bool followsBeat(const Run& run) const {
        constexpr double mostDifference = 0.04;
        const double ratio = run.usPerTick / group_.runs[group_.mainRun].usPerTick;
        const double drift = std::abs(ratio - 1.0) * run.lengthUs() / columnUs_;
        return std::abs(ratio - 1.0) <= mostDifference && drift <= 0.5;
    }

    const RunGroup& group_;
    const midifile::TempoMap& tempo_;
    double ticksPerColumn_ = 1.0;
    double columnUs_ = 1.0;
    double start_ = 0.0; ///< the part of a column by which the group begins late
};

class GridChoice {
public:
    GridChoice(const RunGroup& group, const midifile::TempoMap& tempo,
               std::span<const Onset> onsets)
        : group_(group), tempo_(tempo), onsets_(onsets) {}

    /// `isScore`: the file was made of a score, whose columns are known.
    [[nodiscard]] Stretch best(bool isScore) {
        if (isScore && group_.isSteady) {
            tryBeats(std::span(&columnsOfScores, 1));
            if (best_.cost <= goodCost)
                return best_.stretch;
        }
        if (group_.isSteady && tempo_.length().isMetrical())
            tryBeats(divisions);
        if (best_.cost > goodCost)
            tryEvenTimes();
        return best_.stretch;
    }

private:
    void tryBeats(std::span<const double> allColumnsPerBeat) {
        const double quarterUs =
            group_.runs[group_.mainRun].usPerTick * tempo_.length().ticksPerQuarter();
        for (const double columnsPerBeat : allColumnsPerBeat) {
            const double tempo = usOfTempoOne * columnsPerBeat / quarterUs;
            if (!isTempo(tempo))
                continue;
            const BeatLegs legs(group_, tempo_, columnsPerBeat);
            const bool isRare = columnsPerBeat == 5.0 || columnsPerBeat == 10.0;
            consider(legs.legs(), tempo, columnsPerBeat, isRare ? costOfRare : 0.0);
        }
    }

    void tryEvenTimes() {
        for (int tempo = slowestTempo; tempo <= fastestTempo; ++tempo)
            consider({{group_.runs.front().us, 0.0, tempo / usOfTempoOne}}, tempo, 0.0,
                     costOfNoBeat);
    }

    // `extra` is added to the cost of the grid.
    void consider(const std::vector<Leg>& legs, double tempo, double columnsPerBeat, double extra) {
        const double columnUs = usOfTempoOne / tempo;
        const int rounded =
            std::clamp(static_cast<int>(std::lround(tempo)), slowestTempo, fastestTempo);
        extra += std::abs(rounded / tempo - 1.0);
        const double shift = gridShift(onsets_, legs);
        const auto moved = shifted(legs, shift);
        const double cost = gridCost(onsets_, legs, columnUs) + extra;
        const double movedCost = gridCost(onsets_, moved, columnUs) + extra + shiftGain;
        const bool isMoved = movedCost < cost;
        if (std::min(cost, movedCost) < best_.cost)
            best_ = {std::min(cost, movedCost),
                     {legs.front().us, rounded, tempo, columnsPerBeat, 0, isMoved ? moved : legs}};
    }

    const RunGroup& group_;
    const midifile::TempoMap& tempo_;
    std::span<const Onset> onsets_;
    Choice best_;
};

// All of them, or as many from all over the stretch as are enough.
std::vector<Onset> onsetsIn(const std::vector<Note>& notes, double fromUs, double toUs) {
    const auto isBefore = [](const Note& note, double us) { return note.us < us; };
    const auto first = std::lower_bound(notes.begin(), notes.end(), fromUs, isBefore);
    const auto last = std::lower_bound(first, notes.end(), toUs, isBefore);
    const auto count = static_cast<std::size_t>(last - first);
    constexpr std::size_t block = 200; // neighbours show what shares a column
    const std::size_t blocks = (count + block - 1) / block;
    const std::size_t step = std::max<std::size_t>(1, blocks * block / mostTried);
    std::vector<Onset> onsets;
    for (std::size_t b = 0; b < blocks; b += step) {
        const auto from = first + static_cast<std::ptrdiff_t>(b * block);
        const auto to = first + static_cast<std::ptrdiff_t>(std::min(count, (b + 1) * block));
        for (auto note = from; note != to; ++note)
            onsets.push_back(
                {note->us, note->part(), note->key, note->channel == percussionChannel});
    }
    return onsets;
}

} // namespace

TimeGrid gridOf(const Music& music) {
    const double endUs = music.endUs() + 1.0;
    const std::vector<RunGroup> groups = groupsOf(runsOf(music.tempo, endUs));
    std::vector<Stretch> stretches;
    for (std::size_t i = 0; i < groups.size(); ++i) {
        const bool isLast = i + 1 == groups.size();
        const double from = groups[i].runs.front().us;
        const double to =
            isLast ? std::numeric_limits<double>::max() : groups[i + 1].runs.front().us;
        const auto onsets = onsetsIn(music.notes, from, to);
        if (onsets.empty() && !isLast && !stretches.empty())
            continue; // silence has no tempo of its own
        Stretch stretch = GridChoice(groups[i], music.tempo, onsets).best(music.isOfScore());
        if (!stretches.empty()) {
            const double columns = columnIn(stretches.back().legs, from);
            stretch.firstColumn = stretches.back().firstColumn +
                                  std::max(1, static_cast<int>(std::ceil(columns - 0.5)));
        }
        stretches.push_back(std::move(stretch));
    }
    return TimeGrid(std::move(stretches));
}

} // namespace velorin::importing
