// A failure that is reported once: on standard error, and in the window if there is one.
#pragma once

#include <atomic>
#include <string>

namespace platform {
class Notices;
}

namespace velorin::host {

/// One per thing that can go wrong. May be used from any thread.
class Complaint {
public:
    /// With `notices`, which outlives this, the text is also shown in the window.
    explicit Complaint(platform::Notices* notices = nullptr) : notices_(notices) {}

    /// Reports the text, at the first call only: one or two sentences with what to do.
    void say(const std::string& text);

private:
    platform::Notices* notices_;
    std::atomic<bool> said_{false};
};

/// Writes "velorin: " and the text as one line on standard error, in one call so that two threads
/// do not mix theirs. Line breaks become blanks.
void logLine(const std::string& text);

} // namespace velorin::host
