// What stands in a WAV file before its samples.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace velorin::host {

struct WavChunks {
    bool isWav = false; ///< "RIFF" and "WAVE" are there; nothing else is known if they are not
    int form = 0;       ///< of the samples: 1 plain, 3 floating point, ...; 0: there is no "fmt "
    int channels = 0;

    /// Where a byte is missing: every chunk has an even length, but some programs write one of odd
    /// length and begin the next right after it. Ascending.
    std::vector<std::int64_t> missingPads;
};

/// Goes through the chunks up to the samples.
[[nodiscard]] WavChunks readWavChunks(const std::filesystem::path& path);

/// Why a file that exists cannot be read, as a clause that follows its name.
[[nodiscard]] std::string whyNotRead(const WavChunks& chunks);

} // namespace velorin::host
