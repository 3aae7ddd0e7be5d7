// What a press on a tableau did, in words.
#pragma once

#include "windows/reader/PlaceWords.h"

#include <string>

namespace velorin {

struct Score;

/// Compares the score before the press with the score after the release, so it says what happened
/// and not what was meant: "Note of 4 columns drawn, G sharp 4, channel 1." Empty if nothing has
/// changed that the press could change. `pressed` is where the press was; of several new notes, the
/// one in its column is said.
[[nodiscard]] std::string strokeWords(const Score& before, const Score& after, const Spot& pressed);

} // namespace velorin
