// The built-in synthesizers as MIDI devices: one for each SoundFont, loaded when first opened.
#pragma once

#include "host/Complaint.h"
#include "host/MidiDevice.h"
#include "host/SoundFonts.h"
#include "host/mci/SequencerPort.h"

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
    /// The clock counts nanoseconds of the steady clock; it stamps the messages. `notices`, which
    /// outlives the worker, may be null.
    SynthDevices(platform::Clock& clock, SoundEngine& engine, Worker& worker,
                 std::vector<SoundFont> fonts, platform::Notices* notices = nullptr)
        : clock_(clock),
          engine_(engine),
          worker_(worker),
          fonts_(std::move(fonts)),
          cannotLoad_(std::make_shared<Complaint>(notices)),
          noRoom_(std::make_shared<Complaint>(notices)) {}
    ~SynthDevices();
    SynthDevices(const SynthDevices&) = delete;
    SynthDevices& operator=(const SynthDevices&) = delete;

    [[nodiscard]] std::size_t count() const { return fonts_.size(); }
    [[nodiscard]] const std::string& name(std::size_t index) const { return fonts_[index].name; }

    /// Opens one [0, count()). Returns at once; the SoundFont is loaded by the worker, and kept
    /// until another one is opened, for the program closes and reopens its device all the time.
    [[nodiscard]] std::unique_ptr<MidiDevice> open(std::size_t index);

    /// Opens one for a MID file: a synthesizer by itself, so that the file's programs and the
    /// score's do not meet. At most one at a time. It is kept in the same way.
    [[nodiscard]] std::unique_ptr<SequencerPort> openForSequencer(std::size_t index);

private:
    /// A synthesizer that the engine plays, and the font in it.
    struct Playing {
        std::shared_ptr<SynthSource> source; ///< null if there is none
        std::size_t index = 0;
    };

    void take(Playing& playing, std::size_t index);
    void giveUp(Playing& playing);

    platform::Clock& clock_;
    SoundEngine& engine_;
    Worker& worker_;
    std::vector<SoundFont> fonts_;
    Playing device_;    ///< of the font opened last
    Playing sequencer_; ///< of the font that a MID file played on last
    std::shared_ptr<Complaint> cannotLoad_;
    std::shared_ptr<Complaint> noRoom_;
};

} // namespace velorin::host
