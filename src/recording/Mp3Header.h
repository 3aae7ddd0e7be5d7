// What the first four bytes of a file say as the header of an MP3 frame.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>

namespace velorin {

/// Captions for the player's labels.
struct Mp3Header {
    std::optional<std::string> khz; ///< none for the sampling index that stands for nothing
    std::string bitrate;            ///< kilobits per second; "0" for what is no bitrate
    std::string mode;               ///< "stereo" or "mono"
};

/// Reads any four bytes: there is no test that they begin a frame, and one table for all of them.
[[nodiscard]] Mp3Header readMp3Header(const std::array<std::uint8_t, 4>& bytes);

} // namespace velorin
