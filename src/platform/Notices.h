// Reports to the user that need no message box: a failed save, a lost device, a recovered score.
#pragma once

#include <functional>
#include <optional>
#include <string>

namespace platform {

struct Platform;

/// One sentence or two: what happened, and what to do.
struct Notice {
    std::string text;        ///< UTF-8; lines end in "\r\n"
    std::string scoreToOpen; ///< path of a score that a click on the notice opens; empty for none
};

/// Queued notices. The main window shows one after the other; each stays until the user closes it.
class Notices {
public:
    virtual ~Notices() = default;

    /// Adds a notice and logs it on standard error, in one line. Thread-safe; never waits for a
    /// window and runs no handler.
    virtual void post(const Notice& notice) = 0;

    /// Removes and returns the oldest notice; no value if there is none. On the user-interface
    /// thread.
    virtual std::optional<Notice> take() = 0;

    /// Sets the callback for new notices. It runs on the user-interface thread, from the event
    /// loop, and also if notices are already queued. Empty to stop the calls.
    virtual void onPosted(std::function<void()> callback) = 0;
};

/// Posts a notice if the platform has notices.
void notify(const Platform& platform, const Notice& notice);
void notify(const Platform& platform, const std::string& text);

} // namespace platform
