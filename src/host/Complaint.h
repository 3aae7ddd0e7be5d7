// A line on standard error that is said once: what the user would want to know and no window tells.
#pragma once

#include <atomic>
#include <string>

namespace velorin::host {

/// One per thing that can go wrong. May be used from any thread.
class Complaint {
public:
    /// Writes "velorin: " and the text, at the first call only.
    void say(const std::string& text);

private:
    std::atomic<bool> said_{false};
};

} // namespace velorin::host
