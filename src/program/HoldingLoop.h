// The message loop as the windows use it: it knows which handlers wait in it.
#pragma once

#include "platform/MessageLoop.h"

#include <cstdint>
#include <functional>
#include <utility>
#include <vector>

namespace velorin {

/// Passes everything on to the host's loop, and keeps the waits that run. A handler that waits is
/// below every event that its wait serves, and what belongs to it must not be destroyed there:
///
///     main loop ─ handler ─ wait ─ event ─ handler ─ wait ─ event that destroys windows
///                 of Form2?                of Record
///
/// Nobody says whose handler a wait belongs to, so it may be that of any window that was there when
/// it began to wait. A handler that waits often, or for good, tells when it began, and whose it is
/// if only one window can be concerned: see `Handler`.
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
    void rest() override {
        const Held held(*this);
        host_.rest();
    }
    [[nodiscard]] int depth() const override { return static_cast<int>(waits_.size()); }
    void end() override { host_.end(); }
    [[nodiscard]] bool isEnding() const override { return host_.isEnding(); }

    /// A point in the order in which handlers begin and windows are made.
    using Moment = std::uint64_t;
    [[nodiscard]] Moment now() const { return now_; }

    /// Whether a handler of the window, which was made at `madeAt`, may be below the event that is
    /// being served.
    [[nodiscard]] bool mayHold(const void* window, Moment madeAt) const {
        for (const Begin& wait : waits_) {
            if (wait.moment > madeAt && (wait.window == nullptr || wait.window == window))
                return true;
        }
        return false;
    }

    class Handler;

private:
    /// When a handler began, and of which window it is; null for one that may be of any.
    struct Begin {
        Moment moment = 0; ///< 0 for none
        const void* window = nullptr;
    };

    struct Held {
        explicit Held(HoldingLoop& loopGiven)
            : loop(loopGiven), handler(std::exchange(loop.handler_, {})) {
            loop.waits_.push_back(handler.moment != 0 ? handler : Begin{++loop.now_, nullptr});
        }
        ~Held() {
            loop.waits_.pop_back();
            loop.handler_ = handler;
        }
        Held(const Held&) = delete;
        Held& operator=(const Held&) = delete;
        HoldingLoop& loop;
        Begin handler; ///< that waits
    };

    platform::MessageLoop& host_;
    Moment now_ = 0;
    std::vector<Begin> waits_; ///< that run, the outermost first
    Begin handler_;            ///< the running handler, if it is registered
};

/// Registers a handler for as long as it runs. In a handler that is registered already
/// it changes nothing.
class HoldingLoop::Handler {
public:
    /// `window` is the one that the handler belongs to, null if that is not known.
    Handler(HoldingLoop& loop, const void* window) : loop_(loop), before_(loop.handler_) {
        if (before_.moment == 0)
            loop_.handler_ = {++loop_.now_, window};
    }
    ~Handler() { loop_.handler_ = before_; }
    Handler(const Handler&) = delete;
    Handler& operator=(const Handler&) = delete;

private:
    HoldingLoop& loop_;
    Begin before_;
};

} // namespace velorin
