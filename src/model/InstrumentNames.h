// The names of the General MIDI instruments and percussion sounds, as the lists show them.
#pragma once

#include <array>
#include <string>
#include <string_view>

namespace velorin {

/// By General MIDI program [0, 128).
extern const std::array<std::string_view, 128> instrumentNames;

/// By percussion sound [0, 47); entry 0 is MIDI key 35.
extern const std::array<std::string_view, 47> percussionNames;

/// List entries, "24 Nylon Guitar" and "128 Acoustic Bass Drum", by table index; empty outside the
/// table.
[[nodiscard]] std::string instrumentEntry(int index);
[[nodiscard]] std::string percussionEntry(int index);

} // namespace velorin
