// Scores, MIDI files and WAV files as sound.
#pragma once

#include "convert/SoundTarget.h"

#include <filesystem>
#include <functional>
#include <string>

namespace velorin::convert {

struct SoundRequest {
    std::string source; ///< name of the file
    std::filesystem::path soundFont;
    int rateHz = 44100; ///< [8000, 96000]

    // Each of these may be empty.
    std::function<void(double)> progress; ///< gets the share done [0, 1] now and then
    /// Gets how long the sound will be, before anything is made; not of WAV files. Returns why that
    /// is too long, or nothing.
    std::function<std::string(double seconds)> checkLength;
    /// Gets what is wrong with a source that is converted all the same: "is cut off" and the like.
    std::function<void(const std::string&)> remark;
};

/// Makes the target when the source's parameters are known; null with the reason if that fails.
using MakeTarget =
    std::function<std::unique_ptr<SoundTarget>(int rateHz, int channels, std::string& reason)>;

// Each returns why it failed; empty if it went well.

/// Played by the program's own sequencer.
[[nodiscard]] std::string renderScore(const SoundRequest& request, const MakeTarget& make);

/// At the file's own tempo changes.
[[nodiscard]] std::string renderMidi(const SoundRequest& request, const MakeTarget& make);

/// At the rate that its header tells, in one channel or two.
[[nodiscard]] std::string copyWav(const SoundRequest& request, const MakeTarget& make);

} // namespace velorin::convert
