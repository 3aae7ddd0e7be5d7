// Fits a line to the tempo map as far as it goes, again and again.
#include "importing/Runs.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <span>

namespace velorin::importing {

namespace {

constexpr double toleranceUs = 20e3;
constexpr double steadyUs = 10e6;       ///< a tempo that lasts so long gets a score of its own
constexpr double mostUnsteadyUs = 20e6; ///< more than that is no passing change
constexpr double sameTempo = 0.004;     ///< as a share

using Change = midifile::TempoMap::Change;

// The tempo of a run is that of its longest piece, if it fits.
double tempoOf(const std::vector<Change>& changes, const Run& run, double low, double high) {
    double longest = -1.0;
    double usPerTick = 0.0;
    for (std::size_t i = run.firstChange; i < run.endChange; ++i) {
        const double end = i + 1 < run.endChange ? changes[i + 1].us : run.endUs;
        if (end - changes[i].us > longest) {
            longest = end - changes[i].us;
            usPerTick = changes[i].usPerTick;
        }
    }
    return std::clamp(usPerTick, low, high);
}

// The line goes through the start of the run; the time of each change that it passes limits its
// slope.
Run runFrom(const midifile::TempoMap& tempo, std::size_t first, double endUs) {
    const std::vector<Change>& changes = tempo.changes();
    const auto endOf = [&](std::size_t i) {
        const bool isLast = i + 1 == changes.size() || changes[i + 1].us >= endUs;
        return isLast ? std::max(endUs, changes[i].us) : changes[i + 1].us;
    };
    double low = 0.0;
    double high = std::numeric_limits<double>::max();
    std::size_t end = first;
    for (; end < changes.size() && (end == first || changes[end].us < endUs); ++end) {
        const double us = endOf(end) - changes[first].us;
        const double ticks = tempo.tickAt(endOf(end)) - static_cast<double>(changes[first].tick);
        if (ticks <= 0.0)
            continue;
        const double nextLow = std::max(low, (us - toleranceUs) / ticks);
        const double nextHigh = std::min(high, (us + toleranceUs) / ticks);
        if (end > first && nextLow > nextHigh)
            break;
        low = nextLow;
        high = nextHigh;
    }
    Run run{changes[first].us, endOf(end - 1), first, end, 0.0};
    run.usPerTick = tempoOf(changes, run, low, high);
    return run;
}

/// Collects the groups in order.
class Grouping {
public:
    /// Runs that are short, between two that are steady.
    void addShort(std::span<const Run> runs) {
        const double us = runs.back().endUs - runs.front().us;
        if (us > mostUnsteadyUs && runs.size() > 1) {
            groups_.push_back({{runs.begin(), runs.end()}, 0, false});
        } else if (groups_.empty() || !groups_.back().isSteady) {
            groups_.push_back({{runs.begin(), runs.end()}, longest(runs), true});
            isStart_ = true;
        } else {
            groups_.back().runs.insert(groups_.back().runs.end(), runs.begin(), runs.end());
        }
    }

    void addSteady(const Run& run) {
        RunGroup* group = groups_.empty() || !groups_.back().isSteady ? nullptr : &groups_.back();
        if (group == nullptr || (!isStart_ && !isSameTempo(*group, run))) {
            groups_.push_back({{run}, 0, true});
        } else {
            group->runs.push_back(run);
            if (isStart_ || run.lengthUs() > group->runs[group->mainRun].lengthUs())
                group->mainRun = group->runs.size() - 1;
        }
        isStart_ = false;
    }

    std::vector<RunGroup> finish() { return std::move(groups_); }

private:
    static std::size_t longest(std::span<const Run> runs) {
        return static_cast<std::size_t>(std::max_element(runs.begin(), runs.end(),
                                                         [](const Run& a, const Run& b) {
                                                             return a.lengthUs() < b.lengthUs();
                                                         }) -
                                        runs.begin());
    }

    static bool isSameTempo(const RunGroup& group, const Run& run) {
        return std::abs(run.usPerTick / group.runs[group.mainRun].usPerTick - 1.0) <= sameTempo;
    }

    std::vector<RunGroup> groups_;
    bool isStart_ = false; ///< the last group has only short runs yet
};

} // namespace

std::vector<Run> runsOf(const midifile::TempoMap& tempo, double endUs) {
    const std::vector<Change>& changes = tempo.changes();
    std::vector<Run> runs;
    for (std::size_t first = 0; first == 0 || (first < changes.size() && changes[first].us < endUs);
         first = runs.back().endChange)
        runs.push_back(runFrom(tempo, first, endUs));
    return runs;
}

std::vector<RunGroup> groupsOf(const std::vector<Run>& runs) {
    Grouping grouping;
    for (std::size_t i = 0; i < runs.size();) {
        std::size_t end = i;
        while (end < runs.size() && runs[end].lengthUs() < steadyUs)
            ++end;
        if (end > i)
            grouping.addShort(std::span(runs).subspan(i, end - i));
        if (end < runs.size())
            grouping.addSteady(runs[end++]);
        i = end;
    }
    return grouping.finish();
}

} // namespace velorin::importing
