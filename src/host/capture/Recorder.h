// Writes a recording to the disk while it runs.
#pragma once

#include "host/capture/PartFile.h"
#include "host/engine/SoundTap.h"
#include "host/media/WavWriter.h"

#include <atomic>
#include <condition_variable>
#include <cstdint>
#include <functional>
#include <memory>
#include <mutex>
#include <thread>

namespace velorin::host {

/// A thread of its own moves sound from the tap to a file. The tap holds `tapSeconds` of sound
/// while the disk is busy, so memory does not grow with the length of the recording. Lost blocks
/// become silence in the file, so that the sound after them keeps its time.
class Recorder {
public:
    /// Called once, on the thread, when no more can be written, with the reason and the seconds in
    /// the file.
    using OnCut = std::function<void(const std::error_code& reason, double seconds)>;

    /// `part` outlives this.
    Recorder(const PartFile& part, const WavFormat& format, OnCut onCut,
             std::int64_t mostDataBytes = WavHeader::mostDataBytes);
    ~Recorder();
    Recorder(const Recorder&) = delete;
    Recorder& operator=(const Recorder&) = delete;

    [[nodiscard]] const std::shared_ptr<SoundTap>& tap() const { return tap_; }

    /// Writes all sound so far and syncs the file, which is then a valid WAV file of what could be
    /// written. Call it once.
    void finish();

    [[nodiscard]] std::int64_t frames() const { return frames_; }      ///< of the file, so far
    [[nodiscard]] bool isCut() const { return bool(writer_.error()); } ///< after `finish`

    /// The milliseconds that were lost because the tap was full.
    [[nodiscard]] double lostMs() const;

    static constexpr double tapSeconds = 20.0;

private:
    void run();
    void drain();
    void fillGap(const TappedBlock& block, std::vector<float>& piece);
    void reportIfCut();

    const PartFile& part_;
    OnCut onCut_; ///< of the thread, and empty once it was called
    WavWriter writer_;
    std::shared_ptr<SoundTap> tap_ = std::make_shared<SoundTap>(tapSeconds);
    std::int64_t nextFrame_ = -1;   ///< of the stream, after the last block; -1 before the first
    std::int64_t filledBlocks_ = 0; ///< with silence
    std::atomic<std::int64_t> frames_{0};
    std::mutex mutex_;
    std::condition_variable changed_;
    bool ending_ = false;
    std::thread thread_;
};

} // namespace velorin::host
