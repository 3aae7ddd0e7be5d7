// A synthesizer with one SoundFont in it.
#pragma once

#include "host/midi/ShortMessage.h"
#include "host/process/StreamThread.h"

#include <cstdint>
#include <filesystem>
#include <memory>

namespace velorin::host {

/// When the samples of a SoundFont are loaded.
enum class FontLoading {
    whole,    ///< all at once: afterwards no message touches a file or the heap
    asNeeded, ///< with the program change that needs them: quick to load, and small
};

/// What is added to the voices.
enum class Effects {
    usual, ///< reverberation and chorus, as the SoundFont asks for them
    none,
};

/// Not for use by two threads at once; it may be made by one and handed to another.
class Synth {
public:
    /// Sound is made in blocks of this many frames: a message takes effect at the next block.
    static constexpr int blockFrames = 64;

    virtual ~Synth() = default;

    /// Executes a channel message; other messages are ignored.
    VELORIN_STREAM_THREAD virtual void send(const ShortMessage& message) = 0;

    /// Ends all sound, including reverberation, and resets every program and controller.
    VELORIN_STREAM_THREAD virtual void reset() = 0;

    /// Writes `frames` frames, left and right interleaved.
    VELORIN_STREAM_THREAD virtual void render(float* stereo, int frames) = 0;
    /// The same with dither, which is the same in every run.
    VELORIN_STREAM_THREAD virtual void render(std::int16_t* stereo, int frames) = 0;

    VELORIN_STREAM_THREAD [[nodiscard]] virtual int activeVoices() = 0;
};

/// Loads a SoundFont into a new synthesizer. Null if the SoundFont cannot be loaded. `sampleRateHz`
/// [8000, 96000].
using LoadSynth = std::unique_ptr<Synth> (*)(const std::filesystem::path& soundFont,
                                             double sampleRateHz, FontLoading loading,
                                             Effects effects);

} // namespace velorin::host
