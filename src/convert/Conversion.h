// One conversion: a score in, a file out.
#pragma once

#include "convert/Options.h"

#include <functional>
#include <string>

namespace velorin::convert {

/// What a conversion tells and asks while it runs, in its own thread; each may be empty.
struct Attendant {
    std::function<void(double)> progress; ///< gets the share done [0, 1] now and then
    std::function<bool()> isBrokenOff;    ///< true: it ends as one that failed
    /// Gets what the user should know of a conversion that goes on, as a sentence that begins with
    /// the name of the file.
    std::function<void(const std::string&)> remark;
};

/// Why it failed, beginning with the name of the file concerned; empty if it went well. What was
/// there before a failure stays.
[[nodiscard]] std::string convert(const Task& task, const Options& options,
                                  const Attendant& attendant);

} // namespace velorin::convert
