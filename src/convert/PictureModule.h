// Loads the drawing module.
#pragma once

#include <string>

namespace velorin {

struct Studio;

namespace convert {

/// The bytes of a PNG file, or of a thumbnail if `thumbnailPx` is above 0 (see ScorePicture.h);
/// empty if the module is missing. The module stays
/// loaded.
[[nodiscard]] std::string drawPng(Studio& studio, int scale, int thumbnailPx);

} // namespace convert
} // namespace velorin
