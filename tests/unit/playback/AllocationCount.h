// Counts the allocations of this program, so that a test can check that there are none.
#pragma once

namespace velorin {

/// Calls of `operator new` since the start.
[[nodiscard]] long allocationCount();

} // namespace velorin
