// Status bytes of short messages. The channel [0, 15] is added to them.
#pragma once

namespace platform {

inline constexpr int noteOff = 0x80;
inline constexpr int noteOn = 0x90;
inline constexpr int controlChange = 0xB0;
inline constexpr int programChange = 0xC0;

} // namespace platform
