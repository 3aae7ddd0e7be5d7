// The parts of a song as lines of one note at a time.
#pragma once

#include "importing/Placing.h"

#include <cstdint>
#include <vector>

namespace velorin::importing {

/// A line of one part in which no two notes overlap.
struct Voice {
    int part = 0;
    std::vector<std::uint32_t> notes; ///< indices, in the order of their starts
};

/// The waiting notes that are not drums, as voices. Chords are split so that the notes of a voice
/// are near each other. A note that overlaps the next one by a column or a third of its length, or
/// that has the same key, is shortened.
[[nodiscard]] std::vector<Voice> voicesOf(std::vector<PlacedNote>& notes);

} // namespace velorin::importing
