// The message loop as the windows use it: it knows whether a handler waits in it.
#pragma once

#include "platform/MessageLoop.h"

#include <functional>

namespace velorin {

/// Passes everything on to the host's loop, and counts the waits that run. While one runs, handlers
/// stand below it on the stack, and what belongs to them must not be destroyed.
class HoldingLoop final : public platform::MessageLoop {
public:
    explicit HoldingLoop(platform::MessageLoop& host) : host_(host) {}

    void Yield() override {
        const Held held(*this);
        host_.Yield();
    }
    void waitUntil(std::int64_t counter) override {
        const Held held(*this);
        host_.waitUntil(counter);
    }
    void end() override { host_.end(); }
    [[nodiscard]] bool isEnding() const override { return host_.isEnding(); }

    /// True if no wait runs.
    [[nodiscard]] bool isFree() const { return depth_ == 0; }

    /// Called when the last wait has returned; its handler still runs then.
    std::function<void()> onFree;

private:
    struct Held {
        explicit Held(HoldingLoop& loopGiven) : loop(loopGiven) { ++loop.depth_; }
        ~Held() {
            --loop.depth_;
            if (loop.isFree() && loop.onFree)
                loop.onFree();
        }
        Held(const Held&) = delete;
        Held& operator=(const Held&) = delete;
        HoldingLoop& loop;
    };

    platform::MessageLoop& host_;
    int depth_ = 0;
};

} // namespace velorin
