// One conversion: a score in, a file out.
#pragma once

#include "convert/Options.h"

#include <functional>
#include <string>

namespace velorin::convert {

/// Why it failed, beginning with the name of the file concerned; empty if it went well. `progress`
/// as `WavRequest` has it.
[[nodiscard]] std::string convert(const Task& task, const Options& options,
                                  const std::function<void(double)>& progress);

} // namespace velorin::convert
