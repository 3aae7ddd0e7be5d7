// Runs of nearly the same tempo in a tempo map.
#pragma once

#include "midifile/TickTime.h"

#include <vector>

namespace velorin::importing {

/// A part of a file in which one tempo is right within a few milliseconds.
struct Run {
    double us = 0.0;
    double endUs = 0.0;
    std::size_t firstChange = 0; ///< of the tempo map
    std::size_t endChange = 0;   ///< after the last
    double usPerTick = 0.0;

    [[nodiscard]] double lengthUs() const { return endUs - us; }
};

/// The runs that cover the time from 0 to `endUs`; at least one.
[[nodiscard]] std::vector<Run> runsOf(const midifile::TempoMap& tempo, double endUs);

/// Runs that share a tempo in the scores. `mainRun` is an index into `runs`.
struct RunGroup {
    std::vector<Run> runs;
    std::size_t mainRun = 0; ///< the longest
    bool isSteady = false;   ///< false: the tempo changes all the time
};

/// A run of at least ten seconds begins a group if its tempo differs from the group's. Shorter runs
/// belong to the group before them, unless there are more than twenty seconds of them.
[[nodiscard]] std::vector<RunGroup> groupsOf(const std::vector<Run>& runs);

} // namespace velorin::importing
