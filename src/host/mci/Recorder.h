// A recording on its way to the disk.
#pragma once

#include "host/SoundTap.h"
#include "host/media/WavWriter.h"

#include <atomic>
#include <condition_variable>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <mutex>
#include <thread>

namespace velorin::host {

/// A thread of its own empties the tap into a file. The tap holds what comes while the disk is busy
/// for `tapSeconds`, so memory does not grow with the length of the recording.
class Recorder {
public:
    Recorder(std::filesystem::path file, const WavFormat& format);
    ~Recorder();
    Recorder(const Recorder&) = delete;
    Recorder& operator=(const Recorder&) = delete;

    [[nodiscard]] const std::shared_ptr<SoundTap>& tap() const { return tap_; }

    /// Writes all that has come so far, and closes the file. Returns whether the whole recording is
    /// in it. Called once.
    [[nodiscard]] bool finish();

    [[nodiscard]] std::int64_t frames() const { return frames_; } ///< of the file, so far

    static constexpr double tapSeconds = 20.0;

private:
    void run();
    void drain();

    WavWriter writer_;
    std::shared_ptr<SoundTap> tap_ = std::make_shared<SoundTap>(tapSeconds);
    std::atomic<std::int64_t> frames_{0};
    std::mutex mutex_;
    std::condition_variable changed_;
    bool ending_ = false;
    std::thread thread_;
};

} // namespace velorin::host
