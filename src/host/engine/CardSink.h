// The sound card as what pulls the stream.
#pragma once

#include "host/card/Card.h"
#include "host/engine/FramePacer.h"
#include "host/engine/SoundSink.h"
#include "host/process/StreamThread.h"
#include "platform/Result.h"

#include <atomic>
#include <cstdint>
#include <memory>

namespace velorin::host {

/// If the card is lost, the stream goes on by the clock, and nothing is heard.
class CardSink final : public SoundSink {
public:
    /// Fails if there is no usable sound card. The card is paused until `start` or `startSilent`.
    static platform::Result<std::unique_ptr<CardSink>> open(PullStream pull, int bufferFrames);

    /// Asks sound servers to buffer more of the stream than they are asked for otherwise, unless
    /// the user has set something else. Writes the environment, so it must be called while there is
    /// one thread.
    static void requestServerLatency();

    void start();       ///< pulls the stream from now on
    void startSilent(); ///< the card asks for sound and gets silence until `start`

    /// How often the card has asked for sound so far. From any thread.
    [[nodiscard]] int requests() const { return requests_.load(std::memory_order_relaxed); }

    VELORIN_STREAM_THREAD [[nodiscard]] bool hasCard() const override;

private:
    explicit CardSink(PullStream pull) : pull_(std::move(pull)) {}
    VELORIN_STREAM_THREAD void fill(float* stereo, int frames);
    /// Returns the moment of the pull.
    VELORIN_STREAM_THREAD [[nodiscard]] std::int64_t waitForPull(int frames);

    PullStream pull_;
    // Of the stream's thread.
    bool first_ = true;           ///< no call has come yet
    FramePacer pacer_;            ///< once the card is lost
    std::int64_t earliestNs_ = 0; ///< for the next pull
    std::atomic<bool> pulls_{false};
    std::atomic<int> requests_{0};
    std::unique_ptr<CardStream> card_; ///< last: no call comes while the others end
};

} // namespace velorin::host
