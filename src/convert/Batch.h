// Many conversions, several at a time.
#pragma once

#include "convert/Options.h"

#include <functional>
#include <string>
#include <vector>

namespace velorin::convert {

enum class Outcome { converted, skipped, failed };

struct Result {
    std::string source;
    std::filesystem::path target; ///< empty for a source that was left out
    Outcome outcome = Outcome::failed;
    std::string reason; ///< why it failed or was skipped
    double seconds = 0.0;
};

/// Gets each result when it is there, from any thread, one at a time.
using TakeResult = std::function<void(const Result& result)>;

/// Gets what the user should know of a file that is converted all the same, before that is done;
/// from any thread, not beside another remark or a result.
using TakeRemark = std::function<void(const std::string& remark)>;

/// Converts the tasks of the options, none of which is a folder, `jobs` at a time. Returns the
/// results in the order of the tasks. Once `isBrokenOff` is true the conversions that run fail, and
/// no other begins; it is asked from any thread and may be empty. What conversions that were killed
/// left in the folders that are written to is removed first.
[[nodiscard]] std::vector<Result> convertAll(const Options& options, int jobs,
                                             const TakeResult& take,
                                             const std::function<bool()>& isBrokenOff = {},
                                             const TakeRemark& takeRemark = {});

/// The results as JSON, for other programs.
[[nodiscard]] std::string reportOf(const std::vector<Result>& results);

} // namespace velorin::convert
