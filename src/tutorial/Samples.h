// The contents of the sample files, compiled into the program.
#pragma once

#include <span>
#include <string_view>

namespace velorin {

struct Sample {
    std::string_view name; ///< of the file that it becomes: "101.sng"
    std::span<const unsigned char> bytes;
};

/// All of them: 101 to 105, 201 to 203, 104a, 104b and 301, each ".sng", and "333.mid".
[[nodiscard]] std::span<const Sample> storedSamples();

/// Null for a name under which nothing is stored.
[[nodiscard]] const Sample* findSample(std::string_view name);

} // namespace velorin
