// The names of the instruments: the General MIDI programs and the percussion sounds.
#pragma once

#include <string>
#include <string_view>

namespace velorin {

/// The name of a General MIDI program [0, 128); empty outside.
[[nodiscard]] std::string_view programName(int program);

/// The name of a percussion sound by its place in the list [0, 47), "Acoustic Bass Drum" first;
/// empty outside.
[[nodiscard]] std::string_view percussionName(int index);

/// An entry of the instrument list: "24 Nylon Guitar". Empty outside the list.
[[nodiscard]] std::string programEntry(int program);

/// An entry of the percussion list, by its place in it: "128 Acoustic Bass Drum" is the first.
/// Empty outside the list.
[[nodiscard]] std::string percussionEntry(int index);

} // namespace velorin
