// The window system's message loop, as the logic sees it: it can be let through, and slept in.
#pragma once

#include <cstdint>

namespace platform {

/// All calls come from the one user-interface thread. Handlers of other controls run nested inside
/// `Yield` and `waitUntil`; whoever calls them tests its flags again afterwards.
class MessageLoop {
public:
    virtual ~MessageLoop() = default;

    /// Serves every event that is waiting now, and returns.
    virtual void Yield() = 0;

    /// Sleeps until the clock's counter reaches `counter`, or until an event has been served,
    /// whichever comes first, and returns. The caller loops. Returns at once after `end`.
    virtual void waitUntil(std::int64_t counter) = 0;

    /// For a wait that is over at its beginning: serves events for a millisecond, so that a loop of
    /// such waits leaves the processor to others. Where time moves in waits alone, none goes by.
    virtual void rest() {}

    /// How many of these calls are running, each in an event that the one before it serves. A loop
    /// that does not count answers 0.
    [[nodiscard]] virtual int depth() const { return 0; }

    /// Asks every running loop to end: from now on `isEnding` holds and no wait lasts.
    virtual void end() = 0;

    /// True once the program is ending. Every loop of the program that waits tests it.
    [[nodiscard]] virtual bool isEnding() const = 0;
};

} // namespace platform
