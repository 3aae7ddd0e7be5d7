// Plays a MID file: sends its messages to a MIDI device at the file's times.
#pragma once

#include "host/mci/Transport.h"
#include "host/midi/MidiFile.h"
#include "host/midi/SequencerPort.h"
#include "platform/CheckedArray.h"

#include <condition_variable>
#include <cstddef>
#include <memory>
#include <mutex>
#include <thread>

namespace velorin::host {

/// A unit is a microsecond; every file is at least a millisecond long. A thread of its own keeps
/// time by the port's clock, from the moment when the device is ready.
class MidiFilePlayer final : public Transport {
public:
    MidiFilePlayer(MidiFile file, std::unique_ptr<SequencerPort> port);
    ~MidiFilePlayer() override; ///< ends what sounds
    MidiFilePlayer(const MidiFilePlayer&) = delete;
    MidiFilePlayer& operator=(const MidiFilePlayer&) = delete;

    std::int64_t unitsPerSecond() const override { return 1'000'000; }
    bool countsFrames() const override { return false; }
    std::int64_t length() const override { return file_.lengthUs; }
    std::int64_t position() override;
    TransportMode mode() override;
    void play(std::int64_t from, std::int64_t to) override;
    void pause() override;
    void resume() override;
    void stop() override;
    void seek(std::int64_t position) override;

private:
    using Lock = std::unique_lock<std::mutex>;

    void run();
    void playOn(Lock& lock);
    void begin();
    void haltAt(std::int64_t placeUs, TransportMode mode);
    void send(std::int64_t dueNs, const ShortMessage& message);
    void releaseNotes();
    void restorePedals();
    void chase(std::int64_t placeUs);
    [[nodiscard]] std::size_t firstEventAt(std::int64_t timeUs) const;
    [[nodiscard]] std::int64_t placeNow() const;

    MidiFile file_;
    std::unique_ptr<SequencerPort> port_;

    std::mutex mutex_;
    std::condition_variable changed_;
    TransportMode mode_ = TransportMode::stopped;
    bool counts_ = false; ///< time runs; `startNs_` is the moment of the file's beginning
    bool chases_ = false; ///< programs and controllers before the place are sent first
    bool ending_ = false;
    std::int64_t startNs_ = 0;
    std::int64_t placeUs_ = 0; ///< while time is stopped
    std::int64_t toUs_ = 0;
    std::size_t next_ = 0;                             ///< the first event not sent yet
    platform::CheckedArray<std::uint8_t, 16> pedal_{}; ///< controller 64 of each channel
    std::thread thread_;
};

} // namespace velorin::host
