// Percussion sounds for the keys of the drum channel, and their rows.
#pragma once

#include "importing/Placing.h"

#include <cstdint>
#include <vector>

namespace velorin::importing {

/// The percussion sound [128, 175) of a drum key, or of one that is like it; 0 if none is.
[[nodiscard]] int drumOf(int key);

/// What has a row of its own: a kind of drum, or a part, as in files of scores.
enum class DrumRows { byKind, byPart };

/// Gives the waiting drums rows 8 to 12. What does not fit into its own row goes to a free one. Of
/// more than five in a column the bass drum, the snare, hi-hats, cymbals and toms are kept first,
/// in this order; equal ones are merged. A drum is as long as it is written, or up to the next in
/// its row.
void placeDrums(std::vector<PlacedNote>& notes, DrumRows rows);

} // namespace velorin::importing
