// A score as sound: played by the program's own sequencer into a WAV file.
#pragma once

#include <filesystem>
#include <functional>
#include <string>

namespace velorin::convert {

struct WavRequest {
    std::string score; ///< name of the score file
    std::filesystem::path target;
    std::filesystem::path soundFont;
    int rateHz = 44100;                   ///< [8000, 96000]
    std::function<void(double)> progress; ///< gets the share done [0, 1] now and then; may be empty
};

/// 16 bit stereo. Returns why it failed; empty if it went well.
[[nodiscard]] std::string renderWav(const WavRequest& request);

} // namespace velorin::convert
