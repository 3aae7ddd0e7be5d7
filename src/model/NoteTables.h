// The names of the pitches, as the names column shows them.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

namespace velorin {

/// The names of one octave, from low to high.
constexpr std::array<std::string_view, 12> NoteLetters{"C",  "C#", "D",  "D#", "E",  "F",
                                                       "F#", "G",  "G#", "A",  "A#", "B"};

/// The octave and name of a pitch index [0, 127]: 127 is "0C", 67 "5C", 0 "10G". No value for any
/// other index.
[[nodiscard]] std::optional<std::string> NoteName(int pitchIndex);

} // namespace velorin
