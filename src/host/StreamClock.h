// Which frame of the stream belongs to a moment of the clock.
#pragma once

#include <array>
#include <cstdint>

namespace velorin::host {

/// The sound card pulls the stream in buffers, early or late by what the scheduling adds:
///
///     clock   |----:-----|----:-----|--:-------|----:-----|      : a pull, | a buffer's time
///
/// The line under the earliest pulls of the last seconds is taken as the true course of the stream:
/// no pull is ahead of it, so what is due one buffer behind that line is never due too early. The
/// line follows the card's own idea of a second slowly, so that onsets keep their distances.
/// For the stream's thread alone.
class StreamClock {
public:
    StreamClock(double rateHz, int delayFrames) : rateHz_(rateHz), delayFrames_(delayFrames) {}

    /// Frame number `frame` is about to be pulled, for the moment `nowNs`, which never goes back.
    void observe(std::int64_t nowNs, std::int64_t frame);

    /// The frame at which a message stamped `stampNs` takes effect: the constant delay behind the
    /// frame that the line gives for that moment. Lies in the past for what has waited.
    [[nodiscard]] std::int64_t dueFrame(std::int64_t stampNs) const;

private:
    static constexpr std::int64_t slotNs = 250'000'000;
    static constexpr std::size_t slots = 8; ///< two seconds in all

    void restartAt(double offsetNs, std::int64_t slot);
    [[nodiscard]] double lowest() const;

    double rateHz_;
    int delayFrames_;
    bool running_ = false;
    double offsetNs_ = 0.0; ///< the clock at frame 0, as the line has it
    std::int64_t lastNs_ = 0;
    std::int64_t slot_ = 0;
    std::array<double, slots> lowestOf_{};
};

} // namespace velorin::host
