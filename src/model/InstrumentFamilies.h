// The families of the instruments and of the percussion sounds, for the headings of long lists.
#pragma once

#include <string_view>

namespace velorin {

/// The General MIDI family of an instrument by its program [0, 128), "Guitar". Each family is one
/// run of eight programs. Empty for another number.
[[nodiscard]] std::string_view instrumentFamily(int index);

/// What kind of percussion a sound [0, 47) is, "Cymbals". The sounds of a family are not together,
/// since their order is that of their keys. Empty for another number.
[[nodiscard]] std::string_view percussionFamily(int index);

} // namespace velorin
