// When each column of a song sounds.
#pragma once

#include <vector>

namespace velorin::convert {

struct LoadedScore;

/// Plays the loaded song once on its clock, without sound. Entry c is the start of column c in the
/// rendered sound, in seconds; the last entry is the end of the last column. Columns are not all
/// equally long, since a strummed chord holds the song. The score has to be opened again before it
/// is rendered.
[[nodiscard]] std::vector<double> playColumns(LoadedScore& score);

} // namespace velorin::convert
