// What many commands share: is a file there, take it away, and let a moment pass.
#pragma once

#include <string>

namespace platform {
struct Platform;
}

namespace velorin {

/// Serves events until `milliseconds` have gone by on the high-resolution clock, to the tick, or
/// the program ends.
void yieldFor(platform::Platform& platform, int milliseconds);

/// True if the file can be opened for input.
[[nodiscard]] bool FileExists(platform::Platform& platform, const std::string& name);

/// Makes the file if it is missing, deletes it, and then yields for 0.2 seconds.
void p_DestroyFile(platform::Platform& platform, const std::string& name);

} // namespace velorin
