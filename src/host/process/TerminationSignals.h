// The signals by which the system, or a terminal, asks a program to end.
#pragma once

#include <csignal>

namespace velorin::host {

inline constexpr int terminationSignals[] = {SIGTERM, SIGINT, SIGHUP};

/// Blocks these signals in this thread and in every thread that it starts later, and returns the
/// set. Signals that the parent process has set to be ignored are left out.
[[nodiscard]] sigset_t blockTerminationSignals();

} // namespace velorin::host
