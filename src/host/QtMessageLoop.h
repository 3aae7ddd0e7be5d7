// The message loop on Qt: lets events through, and sleeps to a deadline between them.
#pragma once

#include "host/HeldPainting.h"
#include "platform/MessageLoop.h"

#include <QTimer>

namespace platform {
class Clock;
} // namespace platform

namespace velorin::host {

/// For the user-interface thread alone, which has a QApplication. A wait sleeps in the window
/// system's own wait until shortly before its deadline and in the clock's for the rest, so that it
/// ends well within a millisecond of it and costs next to nothing. Windows are painted in waits; a
/// yield leaves that to the next wait, for 20 ms at most.
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

    platform::Clock& clock_;
    HeldPainting painting_;
    QTimer wake_;
    bool woken_ = false;
    bool ending_ = false;
};

} // namespace velorin::host
