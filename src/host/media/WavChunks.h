// The chunks of a WAV file before its samples.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace velorin::host {

struct WavChunks {
    bool isWav = false; ///< begins with "RIFF" and "WAVE"; if not, the rest is empty
    int form = 0;       ///< sample format: 1 PCM, 3 floating point, ...; 0: no "fmt "
    int channels = 0;

    /// Offsets of missing padding bytes, ascending. Every chunk must have an even length, but some
    /// programs write a chunk of odd length and begin the next right after it.
    std::vector<std::int64_t> missingPads;
};

/// Reads the chunks up to the samples.
[[nodiscard]] WavChunks readWavChunks(const std::filesystem::path& path);

/// Why a file cannot be read, as a clause to follow its name.
[[nodiscard]] std::string unreadableReason(const WavChunks& chunks);

} // namespace velorin::host
