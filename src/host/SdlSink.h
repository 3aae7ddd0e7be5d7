// The sound card, through SDL.
#pragma once

#include "host/SoundSink.h"

#include <cstdint>
#include <memory>
#include <string>

namespace velorin::host {

class SdlSink final : public SoundSink {
public:
    /// Null, with the reason in `reason`, if there is no sound card that can be used.
    [[nodiscard]] static std::unique_ptr<SdlSink> open(PullStream pull, int bufferFrames,
                                                       std::string& reason);
    ~SdlSink() override;
    SdlSink(const SdlSink&) = delete;
    SdlSink& operator=(const SdlSink&) = delete;

    [[nodiscard]] bool isLost() const override;

private:
    explicit SdlSink(PullStream pull) : pull_(std::move(pull)) {}
    static void fill(void* sink, unsigned char* bytes, int count);

    PullStream pull_;
    bool first_ = true; ///< of the stream's thread: it has not pulled yet
    std::uint32_t device_ = 0;
};

} // namespace velorin::host
