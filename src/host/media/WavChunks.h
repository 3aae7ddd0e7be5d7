// The chunks of a WAV file up to its samples.
#pragma once

#include "host/media/SplicedFile.h"

#include <filesystem>
#include <string>
#include <vector>

namespace velorin::host {

struct WavChunks {
    /// Begins with "RIFF", "RIFX" or "RF64", and "WAVE". If not, the rest is empty.
    bool isWav = false;

    int form = 0; ///< sample format: 1 PCM, 3 floating point, ...; 0: no "fmt "
    int channels = 0;

    /// What the samples need, in the order of the file: the header, "ds64", "fmt ", "fact", the
    /// samples. Left out are all other chunks, and what is behind the samples: the library that
    /// reads WAV files can hang in a damaged "LIST". A zero stands where a padding byte is missing:
    /// every chunk must have an even length, but some programs write a chunk of odd length and
    /// begin the next right after it. One piece if the whole file is needed; empty without samples.
    std::vector<FilePiece> needed;
};

/// Reads the chunks up to the samples.
[[nodiscard]] WavChunks readWavChunks(const std::filesystem::path& path);

/// Why a file cannot be read, as a clause to follow its name.
[[nodiscard]] std::string unreadableReason(const WavChunks& chunks);

} // namespace velorin::host
