// How well a grid of columns fits the notes of a stretch.
#pragma once

#include "importing/TimeGrid.h"

#include <span>
#include <vector>

namespace velorin::importing {

/// The start of a note for the choice of a grid.
struct Onset {
    double us = 0.0;
    int part = 0; ///< see Note
    int key = 0;
    bool isDrum = false;
};

/// What a grid costs; the cheapest one is chosen. A note costs from 0 for one that begins on a
/// column to 1 for one that begins far from it, or that shares its column with another moment of
/// its part. One that repeats a note within a column is lost and costs 2. This is the mean of all
/// notes. Each column in a second costs a little.
[[nodiscard]] double gridCost(std::span<const Onset> onsets, const std::vector<Leg>& legs,
                              double columnUs);

/// How far the columns must move, in [-0.5, 0.5) columns, for most onsets to begin on one. Add it
/// to the legs.
[[nodiscard]] double gridShift(std::span<const Onset> onsets, const std::vector<Leg>& legs);

/// The same legs, later by a part of a column.
[[nodiscard]] std::vector<Leg> shifted(std::vector<Leg> legs, double columns);

} // namespace velorin::importing
