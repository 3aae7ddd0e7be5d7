// Helpers that many commands share: test for a file, delete a file, wait for a while.
#pragma once

#include <string>

namespace platform {
struct Platform;
}

namespace velorin {

/// Processes events until `milliseconds` have passed on the high-resolution clock, to the tick, or
/// the program ends.
void yieldFor(platform::Platform& platform, int milliseconds);

/// True if the file can be opened for input.
[[nodiscard]] bool FileExists(platform::Platform& platform, const std::string& name);

/// Rule: creates the file if it is missing, deletes it, and then yields for 0.2 seconds, also if
/// there was no file. Held by shell/sample_files.
void p_DestroyFile(platform::Platform& platform, const std::string& name);

} // namespace velorin
