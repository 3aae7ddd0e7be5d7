// A score as a picture: the music tableau from the first column to the last.
#pragma once

#include <string>

namespace velorin {
struct Studio;
}

/// Into `png` the bytes of a PNG file: every column of the song, and every line from two above its
/// highest note to two below its lowest. Changes the studio's view. Stands in a module that is
/// loaded by name; the name is not mangled for that reason.
extern "C" void velorinPngOf(velorin::Studio& studio, std::string& png);
