// The built-in synthesizers as MIDI devices: one for each SoundFont, which is loaded when first
// opened.
#pragma once

#include "host/midi/MidiDevice.h"
#include "host/midi/SequencerPort.h"
#include "host/process/OnceLogger.h"
#include "host/synth/SoundFonts.h"

#include <cstddef>
#include <memory>
#include <vector>

namespace platform {
class Clock;
} // namespace platform

namespace velorin::host {

class SoundEngine;
class SynthSource;
class Worker;

class SynthDevices {
public:
    /// `clock` gives the timestamps of messages, in nanoseconds of the steady clock. `notices`,
    /// which outlives the worker, may be null.
    SynthDevices(platform::Clock& clock, SoundEngine& engine, Worker& worker,
                 std::vector<SoundFont> fonts, platform::Notices* notices = nullptr)
        : clock_(clock),
          engine_(engine),
          worker_(worker),
          fonts_(std::move(fonts)),
          cannotLoad_(std::make_shared<OnceLogger>(notices)),
          noRoom_(std::make_shared<OnceLogger>(notices)) {}
    ~SynthDevices();
    SynthDevices(const SynthDevices&) = delete;
    SynthDevices& operator=(const SynthDevices&) = delete;

    [[nodiscard]] std::size_t count() const { return fonts_.size(); }
    [[nodiscard]] const std::string& name(std::size_t index) const { return fonts_[index].name; }

    /// Opens device `index` [0, count()). Returns at once; the worker loads the SoundFont. It stays
    /// loaded until another one is opened, since the program closes and reopens its device all the
    /// time.
    [[nodiscard]] std::unique_ptr<MidiDevice> open(std::size_t index);

    /// Opens a second synthesizer for a MID file, so that the file and the score do not change each
    /// other's programs. At most one at a time. It stays loaded in the same way.
    [[nodiscard]] std::unique_ptr<SequencerPort> openForSequencer(std::size_t index);

private:
    /// A synthesizer that the engine plays, and the number of its font.
    struct Playing {
        std::shared_ptr<SynthSource> source; ///< null if there is none
        std::size_t index = 0;
    };

    void take(Playing& playing, std::size_t index);
    void release(Playing& playing);

    platform::Clock& clock_;
    SoundEngine& engine_;
    Worker& worker_;
    std::vector<SoundFont> fonts_;
    Playing device_;    ///< plays the score
    Playing sequencer_; ///< plays MID files
    std::shared_ptr<OnceLogger> cannotLoad_;
    std::shared_ptr<OnceLogger> noRoom_;
};

} // namespace velorin::host
