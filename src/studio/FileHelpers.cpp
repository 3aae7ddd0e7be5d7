// Shared file operations and the wait after a deletion.
#include "studio/FileHelpers.h"

#include "platform/Clock.h"
#include "platform/Files.h"
#include "platform/MessageLoop.h"
#include "platform/Platform.h"

#include <ostream>

namespace velorin {

void yieldFor(platform::Platform& platform, int milliseconds) {
    const std::int64_t frequency = platform.clock.QueryPerformanceFrequency();
    const std::int64_t end =
        platform.clock.QueryPerformanceCounter() + frequency * milliseconds / 1000;
    while (platform.clock.QueryPerformanceCounter() < end && !platform.loop.isEnding())
        platform.loop.waitUntil(end);
}

bool FileExists(platform::Platform& platform, const std::string& name) {
    return platform.files.canRead(name);
}

// A file whose name differs only in case is deleted, and no other is created beside it. A failure
// of either step is ignored; the wait takes place anyway.
void p_DestroyFile(platform::Platform& platform, const std::string& name) {
    if (!FileExists(platform, name))
        platform.files.openForBinary(name).reset();
    (void)platform.files.remove(name);
    constexpr int settlingMs = 200;
    yieldFor(platform, settlingMs);
}

} // namespace velorin
