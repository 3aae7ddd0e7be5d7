// The adapter to SDL, of which only the audio part is used.
#pragma once

#include "host/card/Card.h"

#include <cstdint>
#include <memory>
#include <utility>

namespace velorin::host {

/// SDL's audio part is there while one of these lives. SDL counts its users without a lock: an
/// output that closes on one thread while an input opens on another would take the library away
/// from the other.
class SdlAudio {
public:
    SdlAudio();
    ~SdlAudio();
    SdlAudio(const SdlAudio&) = delete;
    SdlAudio& operator=(const SdlAudio&) = delete;

    [[nodiscard]] bool works() const { return works_; } ///< SDL has a driver

private:
    bool works_;
};

class SdlCard final : public CardStream {
public:
    /// As `OpenCard`.
    [[nodiscard]] static platform::Result<std::unique_ptr<CardStream>> open(CardRequest request);
    ~SdlCard() override;
    SdlCard(const SdlCard&) = delete;
    SdlCard& operator=(const SdlCard&) = delete;

    void run() override;
    void pause() override;
    VELORIN_STREAM_THREAD [[nodiscard]] bool isLost() const override;

private:
    explicit SdlCard(CardCall call) : call_(std::move(call)) {}

    SdlAudio audio_;
    CardCall call_;
    std::uint32_t device_ = 0; ///< SDL's number of it; 0 if it is not open
};

} // namespace velorin::host
