// The message loop of the windows. It knows which handlers are waiting in it.
#pragma once

#include "platform/MessageLoop.h"
#include "platform/Platform.h"

#include <cstdint>
#include <functional>
#include <utility>
#include <vector>

namespace velorin {

/// Forwards every call to the host's loop and records the waits that are running. A waiting handler
/// is on the stack below every event that its wait processes. Its window must not be destroyed by
/// such an event:
///
///     main loop ─ handler ─ wait ─ event ─ handler ─ wait ─ event that destroys windows
///                 of Form2?                of Record
///
/// A wait does not say whose handler it belongs to. It may belong to any window that existed when
/// the wait began. A handler that waits often, or for a long time, registers when it begins, and
/// with its window if only one window can be concerned: see `Handler`.
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
    void runHandler(const void* window, const std::function<void()>& handler) override;
    void end() override { host_.end(); }
    [[nodiscard]] bool isEnding() const override { return host_.isEnding(); }

    /// Orders the begins of handlers and the making of windows in time.
    using Moment = std::uint64_t;
    [[nodiscard]] Moment now() const { return now_; }

    /// True if a handler of the window may be on the stack below the current event. The window was
    /// made at `madeAt`.
    [[nodiscard]] bool mayHold(const void* window, Moment madeAt) const {
        for (const Begin& wait : waits_) {
            if (wait.moment > madeAt && (wait.window == nullptr || wait.window == window))
                return true;
        }
        return false;
    }

    class Handler;

private:
    /// When a handler began, and its window; null if it may belong to any window.
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
        Begin handler; ///< the one that waits
    };

    platform::MessageLoop& host_;
    Moment now_ = 0;
    std::vector<Begin> waits_; ///< the running ones, outermost first
    Begin handler_;            ///< the running handler, if it is registered
};

/// Registers a handler while it runs. Changes nothing inside a handler that is registered already.
class HoldingLoop::Handler {
public:
    /// `window` is the handler's window, or null if it is not known.
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

/// The host, with `loop` in place of its own loop.
[[nodiscard]] inline platform::Platform withLoop(const platform::Platform& host,
                                                 platform::MessageLoop& loop) {
    return {host.clock,   loop,
            host.midi,    host.mci,
            host.dialogs, host.boxes,
            host.files,   host.settings,
            host.desktop, host.menus,
            host.timers,  host.systemFiles,
            host.encoder, host.programFolder,
            host.history, host.notices,
            host.midiIn};
}

inline void HoldingLoop::runHandler(const void* window, const std::function<void()>& handler) {
    const Handler running(*this, window);
    handler();
}

} // namespace velorin
