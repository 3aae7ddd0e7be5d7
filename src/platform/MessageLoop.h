// The message loop, as the logic uses it: to process pending events, and to sleep between them.
#pragma once

#include <cstdint>
#include <functional>

namespace platform {

/// All calls come from the user-interface thread. Handlers of other controls run nested inside
/// `Yield` and `waitUntil`, so the caller tests its flags again afterwards.
class MessageLoop {
public:
    virtual ~MessageLoop() = default;

    /// Processes all pending events and returns.
    virtual void Yield() = 0;

    /// Sleeps until the clock's counter reaches `counter` or an event has been processed, whichever
    /// comes first. The caller loops. Returns at once after `end`.
    virtual void waitUntil(std::int64_t counter) = 0;

    /// For a wait whose deadline has passed before it begins: processes events for a millisecond,
    /// so that a loop of such waits does not occupy the processor. With a clock that moves only in
    /// waits, no time passes.
    virtual void rest() {}

    /// How many of these calls are running nested in one another. A loop that does not count
    /// returns 0.
    [[nodiscard]] virtual int depth() const { return 0; }

    /// Runs a handler that may wait often or for long. A host with windows then does not destroy
    /// `window`, to which the handler belongs, meanwhile; with null it destroys no window that is
    /// older than the handler. Nested inside another such handler, it only runs the handler.
    virtual void runHandler(const void* window, const std::function<void()>& handler) {
        static_cast<void>(window);
        handler();
    }

    /// Asks every running loop to end: from now on `isEnding` is true and every wait returns at
    /// once.
    virtual void end() = 0;

    /// True once the program is ending. Every loop that waits tests it.
    [[nodiscard]] virtual bool isEnding() const = 0;
};

} // namespace platform
