// The message loop on Qt: processes events, and sleeps until a deadline between them.
#pragma once

#include "host/loop/DeferredPainting.h"
#include "platform/MessageLoop.h"
#include "platform/OwnerThread.h"

#include <QTimer>

namespace platform {
class Clock;
} // namespace platform

namespace velorin::host {

/// For the user-interface thread only, which has a QApplication. A wait sleeps in the event
/// dispatcher until shortly before its deadline and in the thread for the rest. So it ends well
/// within a millisecond of the deadline and takes almost no processor time. Windows are painted in
/// waits; a yield defers that to the next wait, for 20 ms at most.
class QtMessageLoop final : public platform::MessageLoop {
public:
    explicit QtMessageLoop(platform::Clock& clock);

    void Yield() override;
    void waitUntil(std::int64_t counter) override;
    void rest() override;
    void end() override; ///< leaves the application's event loop and all dialogs in it
    [[nodiscard]] bool isEnding() const override { return ending_; }

private:
    [[nodiscard]] bool serveUntilNear(std::int64_t counter);
    void sleepRest(std::int64_t counter);
    [[nodiscard]] std::int64_t nanosecondsTo(std::int64_t counter);

    platform::OwnerThread owner_; ///< the user-interface thread
    platform::Clock& clock_;
    DeferredPainting painting_;
    QTimer wake_;
    bool woken_ = false;
    bool ending_ = false;
};

} // namespace velorin::host
