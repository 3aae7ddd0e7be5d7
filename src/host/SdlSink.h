// The sound card, through SDL.
#pragma once

#include "host/ClockPace.h"
#include "host/SoundSink.h"

#include <atomic>
#include <cstdint>
#include <memory>
#include <string>

namespace velorin::host {

/// When the card goes away the stream goes on by the clock, heard by nobody.
class SdlSink final : public SoundSink {
public:
    /// Null, with the reason in `reason`, if there is no sound card that can be used. The card
    /// waits for `begin` or `beginSilent`.
    [[nodiscard]] static std::unique_ptr<SdlSink> open(PullStream pull, int bufferFrames,
                                                       std::string& reason);
    ~SdlSink() override;
    SdlSink(const SdlSink&) = delete;
    SdlSink& operator=(const SdlSink&) = delete;

    /// Asks sound servers to hold more of the stream than the one buffer that SDL asks for, unless
    /// the user has asked for something else. Writes the environment, so it wants to be called
    /// while there is one thread.
    static void askServersForRoom();

    void begin();       ///< to pull
    void beginSilent(); ///< to ask for sound, and get silence until `begin`

    /// How often the card has asked for sound so far. From any thread.
    [[nodiscard]] int asked() const { return asked_.load(std::memory_order_relaxed); }

    [[nodiscard]] bool hasCard() const override;

private:
    explicit SdlSink(PullStream pull) : pull_(std::move(pull)) {}
    static void fill(void* sink, unsigned char* bytes, int count);

    PullStream pull_;
    // Of the stream's thread.
    bool first_ = true; ///< it has not pulled yet
    ClockPace pace_;    ///< once the card has gone
    std::atomic<bool> pulls_{false};
    std::atomic<int> asked_{0};
    std::uint32_t device_ = 0;
};

} // namespace velorin::host
