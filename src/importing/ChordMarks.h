// Chords that a chord mark says exactly.
#pragma once

#include "importing/Placing.h"

#include <vector>

namespace velorin::importing {

/// A note with a mark sounds with the notes 3, 7 and 12 half tones above it, the chord that is
/// chosen when the program starts. Where a part has exactly these four from the same column to the
/// same column, with one instrument, the lowest gets a mark and the others are part of it.
void markChords(std::vector<PlacedNote>& notes);

} // namespace velorin::importing
