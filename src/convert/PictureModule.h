// The way to the module that draws.
#pragma once

#include <string>

namespace velorin {

struct Studio;

namespace convert {

/// A PNG file's bytes (see ScorePicture.h); empty if the module is not there. The module stays
/// loaded.
[[nodiscard]] std::string drawPng(Studio& studio);

} // namespace convert
} // namespace velorin
