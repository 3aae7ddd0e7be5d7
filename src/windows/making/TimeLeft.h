// How long a conversion will still take.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace velorin {

/// Works it out from the share done and the time it took. Times are nanoseconds of any clock that
/// does not go back.
class TimeLeft {
public:
    void start(std::int64_t nowNs) { startNs_ = nowNs; }

    /// Whole seconds, rounded up. No value in the first second, and while nothing is done.
    [[nodiscard]] std::optional<int> seconds(double share, std::int64_t nowNs) const;

private:
    std::int64_t startNs_ = 0;
};

/// "about 4 seconds left", "about 1 second left"; from two minutes on "about 2 minutes left".
[[nodiscard]] std::string timeLeftText(int seconds);

} // namespace velorin
