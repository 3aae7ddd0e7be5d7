// The signals by which the system, or a terminal, asks a program to end.
#pragma once

#include <csignal>

namespace velorin::host {

inline constexpr int endSignals[] = {SIGTERM, SIGINT, SIGHUP};

/// The set of them, except those that whoever started the program has switched off. They are held
/// back from this thread and from every one that it starts from now on.
[[nodiscard]] sigset_t holdBackEndSignals();

} // namespace velorin::host
