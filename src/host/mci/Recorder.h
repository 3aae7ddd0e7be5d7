// A recording on its way to the disk.
#pragma once

#include "host/SoundTap.h"
#include "host/mci/PartFile.h"
#include "host/media/WavWriter.h"

#include <atomic>
#include <condition_variable>
#include <cstdint>
#include <functional>
#include <memory>
#include <mutex>
#include <thread>

namespace velorin::host {

/// A thread of its own empties the tap into a file. The tap holds what comes while the disk is busy
/// for `tapSeconds`, so memory does not grow with the length of the recording. Blocks that found no
/// room in the tap are silence in the file, so that what follows keeps its time.
class Recorder {
public:
    /// Called once, in the thread, when the file takes no more: the reason, and the seconds that
    /// are in it.
    using WhenCut = std::function<void(const std::error_code& reason, double seconds)>;

    /// `part` outlives this.
    Recorder(const PartFile& part, const WavFormat& format, WhenCut whenCut,
             std::int64_t mostDataBytes = WavHeader::mostDataBytes);
    ~Recorder();
    Recorder(const Recorder&) = delete;
    Recorder& operator=(const Recorder&) = delete;

    [[nodiscard]] const std::shared_ptr<SoundTap>& tap() const { return tap_; }

    /// Writes all that has come so far, and waits until the disk has it. The file is a whole WAV
    /// file of what could be written. Called once.
    void finish();

    [[nodiscard]] std::int64_t frames() const { return frames_; }      ///< of the file, so far
    [[nodiscard]] bool isCut() const { return bool(writer_.error()); } ///< after `finish`

    /// The milliseconds that found no room in the tap.
    [[nodiscard]] double lostMs() const;

    static constexpr double tapSeconds = 20.0;

private:
    void run();
    void drain();
    void fillGap(const TappedBlock& block, std::vector<float>& piece);
    void reportIfCut();

    const PartFile& part_;
    WhenCut whenCut_; ///< of the thread, and empty once it was called
    WavWriter writer_;
    std::shared_ptr<SoundTap> tap_ = std::make_shared<SoundTap>(tapSeconds);
    std::int64_t nextFrame_ = -1;   ///< of the stream, behind the last block; -1 before the first
    std::int64_t filledBlocks_ = 0; ///< with silence
    std::atomic<std::int64_t> frames_{0};
    std::mutex mutex_;
    std::condition_variable changed_;
    bool ending_ = false;
    std::thread thread_;
};

} // namespace velorin::host
