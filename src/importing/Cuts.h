// Where a song is cut into scores.
#pragma once

#include "importing/Music.h"
#include "importing/Placing.h"
#include "importing/TimeGrid.h"

#include <vector>

namespace velorin::importing {

/// Columns [from, to) of the grid become a score.
struct Cut {
    int from = 0;
    int to = 0; ///< at most 1000 columns after `from`
};

/// In order; each note begins in one of them. A cut has one tempo. If a stretch is too long, it is
/// cut at a bar line at which few notes sound on. A silence of more than ten seconds before a note
/// is left out, up to the bar of the note, at the start of a cut.
[[nodiscard]] std::vector<Cut> cutsOf(const Music& music, const TimeGrid& grid,
                                      const std::vector<PlacedNote>& notes);

} // namespace velorin::importing
