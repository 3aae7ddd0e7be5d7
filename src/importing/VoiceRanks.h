// Which voices matter most.
#pragma once

#include "importing/PartVoices.h"

#include <cstddef>
#include <vector>

namespace velorin::importing {

/// What decides how early a voice gets a row.
struct Rank {
    std::size_t voice = 0;
    double notes = 0.0;   ///< weighted by their loudness
    double meanKey = 0.0; ///< weighted by length
    int outer = 0;        ///< 2 for the melody, 1 for the bass, else 0
};

/// The melody, the bass, then the others, those with many loud notes first. The melody and the bass
/// are the highest and the lowest of the voices with many notes.
[[nodiscard]] std::vector<Rank> ranked(const std::vector<Voice>& voices,
                                       const std::vector<PlacedNote>& notes);

} // namespace velorin::importing
