// Maps moments of the clock to frames of the stream.
#pragma once

#include "host/process/StreamThread.h"

#include <array>
#include <cstdint>

namespace velorin::host {

/// The sound card pulls the stream in buffers, with the jitter of scheduling:
///
///     clock   |----:-----|----:-----|--:-------|----:-----|      : a pull, | a buffer's time
///
/// The line under the earliest pulls of the last seconds is taken as the true time of the stream.
/// No pull is ahead of it, so a message that is due one buffer after that line is never due too
/// early. The line follows the drift of the card slowly, so that onsets keep their distances.
///
/// After a stall a sound server may take more buffers at once than it needs. Messages would wait
/// behind them and then sound together, so a sink holds such pulls back until `earliestNs`. For the
/// stream's thread alone.
class StreamClock {
public:
    StreamClock(double rateHz, int delayFrames) : rateHz_(rateHz), delayFrames_(delayFrames) {}

    /// Frame number `frame` is about to be pulled, for the moment `nowNs`, which never goes back.
    VELORIN_STREAM_THREAD void observe(std::int64_t nowNs, std::int64_t frame);

    /// The moment before which frame number `frame` must not be pulled, of the same clock as that
    /// of `observe`. In the past while the stream begins and the card fills its buffers.
    VELORIN_STREAM_THREAD [[nodiscard]] std::int64_t earliestNs(std::int64_t frame) const;

    /// The frame at which a message stamped `stampNs` takes effect: the frame on the line at that
    /// moment, plus the constant delay. In the past for a message that has waited.
    VELORIN_STREAM_THREAD [[nodiscard]] std::int64_t dueFrame(std::int64_t stampNs) const;

private:
    static constexpr std::int64_t slotNs = 250'000'000;
    static constexpr std::size_t slots = 8; ///< two seconds in all

    VELORIN_STREAM_THREAD void restartAt(double offsetNs, std::int64_t nowNs);
    VELORIN_STREAM_THREAD [[nodiscard]] bool hasStalled(double lateNs, std::int64_t nowNs);
    VELORIN_STREAM_THREAD void follow(double elapsedNs);
    VELORIN_STREAM_THREAD [[nodiscard]] bool isBeginning() const;
    VELORIN_STREAM_THREAD [[nodiscard]] double lowest() const;

    double rateHz_;
    int delayFrames_;
    bool running_ = false;
    double offsetNs_ = 0.0; ///< the clock at frame 0, as the line has it
    std::int64_t lastNs_ = 0;
    std::int64_t beganNs_ = 0;
    std::int64_t lateSinceNs_ = 0; ///< 0: the last pull was not very late
    std::int64_t slot_ = 0;
    std::array<double, slots> lowestOf_{};
};

} // namespace velorin::host
