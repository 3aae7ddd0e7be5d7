// Chooses the tempo and the columns for each part of a file.
#pragma once

#include "importing/Music.h"
#include "importing/TimeGrid.h"

namespace velorin::importing {

/// The grid on which most notes of the music begin on a column. The music has at least one note.
[[nodiscard]] TimeGrid gridOf(const Music& music);

} // namespace velorin::importing
