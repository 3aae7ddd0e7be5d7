// Runs many conversions, several at a time.
#pragma once

#include "convert/Options.h"

#include <functional>
#include <string>
#include <vector>

namespace velorin::convert {

enum class Outcome { converted, skipped, failed };

struct ConversionResult {
    std::string source;
    std::filesystem::path target; ///< empty for a skipped source
    Outcome outcome = Outcome::failed;
    std::string reason; ///< why it failed or was skipped
    double seconds = 0.0;
    std::string details = {}; ///< for the report: a member of a JSON object, or nothing
};

/// Gets each result as soon as it is known. Called from any thread, one call at a time.
using ResultCallback = std::function<void(const ConversionResult& result)>;

/// Gets a warning about a file before it is converted, or a sentence about what it became. Called
/// from any thread, never at the same time as another warning or a result.
using WarningCallback = std::function<void(const std::string& warning)>;

/// Converts the tasks of the options, `jobs` at a time. No task may be a folder. Returns the
/// results in the order of the tasks. When `isStopRequested` returns true, running conversions fail
/// and no other starts. It is called from any thread and may be empty. Partial files of killed
/// conversions in the folders of the targets and of the report are removed first.
[[nodiscard]] std::vector<ConversionResult>
convertAll(const Options& options, int jobs, const ResultCallback& take,
           const std::function<bool()>& isStopRequested = {}, const WarningCallback& warn = {});

/// A text as JSON, in quotation marks. Invalid UTF-8 becomes the replacement character.
[[nodiscard]] std::string jsonText(const std::string& text);

/// The results as JSON, for other programs.
[[nodiscard]] std::string reportOf(const std::vector<ConversionResult>& results);

} // namespace velorin::convert
