// A count with its noun, as sentences say it.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace platform {

/// "1 note", "28 notes"; for nouns whose plural takes an s. `digits` is how the count is written:
/// "1,482", "two".
[[nodiscard]] std::string counted(std::int64_t count, std::string_view noun);
[[nodiscard]] std::string counted(std::int64_t count, std::string_view digits,
                                  std::string_view noun);

} // namespace platform
