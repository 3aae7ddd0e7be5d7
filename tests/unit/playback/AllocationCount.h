// How often this program has taken memory, so that a test can show where it does not.
#pragma once

namespace velorin {

/// Calls of `operator new` since the start.
[[nodiscard]] long allocationCount();

} // namespace velorin
