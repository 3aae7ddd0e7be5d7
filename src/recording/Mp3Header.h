// Reads the first four bytes of a file as the header of an MP3 frame.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>

namespace velorin {

/// Captions for the player's labels.
struct Mp3Header {
    std::optional<std::string> khz; ///< no value for the reserved sampling index
    std::string bitrate;            ///< kilobits per second; "0" for an index without a bitrate
    std::string mode;               ///< "stereo" or "mono"
};

/// Rule: any four bytes are read as a header, also those of a tag, and one table serves for all.
/// Held by recording/command_strings.
[[nodiscard]] Mp3Header readMp3Header(const std::array<std::uint8_t, 4>& bytes);

} // namespace velorin
