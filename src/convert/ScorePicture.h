// A score as a picture: the music tableau from the first column to the last.
#pragma once

#include <string>

namespace velorin {

struct Studio;

namespace convert {

/// The bytes of a PNG file: every column of the song and every line from two above its highest note
/// to two below its lowest. Changes the studio's view.
[[nodiscard]] std::string pngOf(Studio& studio);

} // namespace convert
} // namespace velorin
