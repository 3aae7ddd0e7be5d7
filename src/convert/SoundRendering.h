// Renders scores, MIDI files and WAV files as sound.
#pragma once

#include "convert/SoundTarget.h"
#include "host/synth/Synth.h"

#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace velorin::convert {

struct PlaySetup;

struct SoundRequest {
    std::string source; ///< name of the file
    std::string text;   ///< a score that is in no file; else empty
    std::filesystem::path soundFont;
    int rateHz = 44100; ///< [8000, 96000]
    bool isDry = false; ///< without reverberation and chorus

    /// Score files that are played after the source. The first column of each begins where the
    /// last note of the one before ends, and what rings goes on ringing. Only for scores.
    std::vector<std::string> followers;

    // Each of these may be empty.
    std::function<void(double)> progress; ///< gets the share done [0, 1] from time to time
    /// Gets the length of the sound and its frames per second before anything is written. Fails if
    /// it is too long.
    std::function<platform::Result<void>(double seconds, int rateHz)> checkLength;
    /// Gets what is wrong with a source that is still converted: "has no notes".
    std::function<void(const std::string&)> warning;

    const PlaySetup* setup = nullptr; ///< of all scores; null as in `Task`
};

/// Makes the target once the parameters of the source are known.
using MakeTarget = std::function<MadeTarget(int rateHz, int channels)>;

/// The synthesizer for a request. Fails if its SoundFont or the module cannot be loaded.
[[nodiscard]] platform::Result<std::unique_ptr<host::Synth>> loadSynth(const SoundRequest& request);

/// Plays the score with the sequencer of the program.
platform::Result<void> renderScore(const SoundRequest& request, const MakeTarget& make);

/// Follows the tempo changes of the file.
platform::Result<void> renderMidi(const SoundRequest& request, const MakeTarget& make);

/// Keeps the rate of the header, in one or two channels.
platform::Result<void> copyWav(const SoundRequest& request, const MakeTarget& make);

} // namespace velorin::convert
