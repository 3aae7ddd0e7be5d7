// Which of the eight rows each note gets.
#pragma once

#include "importing/PartVoices.h"

#include <vector>

namespace velorin::importing {

/// Gives the notes of the voices rows 0 to 7. The melody, the bass and the voices with most notes
/// get a row each. If there are more voices than rows, voices that never overlap share a row, and
/// the notes of the others fill the gaps. Where there is no gap, the note that loses least is
/// shortened; a note is dropped only if each row has one that begins in the same column.
void assignRows(const std::vector<Voice>& voices, std::vector<PlacedNote>& notes);

/// Lengthens notes up to the release of their pedal, as far as their row is free.
void holdPedals(std::vector<PlacedNote>& notes);

} // namespace velorin::importing
