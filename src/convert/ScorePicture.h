// A score as a picture: the music tableau from the first column to the last.
#pragma once

#include <string>

namespace velorin {
struct Studio;
}

/// Sets `png` to the bytes of a PNG file with every column of the song, and every line from two
/// above its highest note to two below its lowest. `scale` [1, 4] is the pixels for each pixel of
/// the tableau; a song that would have more than 150 million pixels gets a smaller one. With a
/// `thumbnailPx` above 0 the picture shows the beginning of the song, a third wider than high, and
/// is scaled down to fit into a square of that many pixels. Changes the view of the studio. The
/// function is in a module that is loaded at run time, so its name is not mangled.
extern "C" void velorinPngOf(velorin::Studio& studio, int scale, int thumbnailPx, std::string& png);
