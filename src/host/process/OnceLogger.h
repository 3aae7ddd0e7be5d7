// Logs a failure once: on standard error, and in the window if there is one.
#pragma once

#include <atomic>
#include <string>

namespace platform {
class Notices;
}

namespace velorin::host {

/// One per kind of failure. Thread-safe.
class OnceLogger {
public:
    /// With `notices`, which outlives this, the text is also shown in the window.
    explicit OnceLogger(platform::Notices* notices = nullptr) : notices_(notices) {}

    /// Logs the text at the first call only: one or two sentences, with what the user can do.
    void log(const std::string& text);

private:
    platform::Notices* notices_;
    std::atomic<bool> logged_{false};
};

/// Writes "velorin: " and the text as one line on standard error, in one call, so that the lines of
/// two threads do not mix. Line breaks become spaces.
void logLine(const std::string& text);

} // namespace velorin::host
