// How soon a thread gets a processor: one that works in the background, one that keeps time.
#pragma once

namespace velorin::host {

/// Puts the calling thread below all others of the process, so that it gets the processor only when
/// the windows and the sound do not need it. Threads that it starts later are below as well. If
/// the system does not allow it, the priority stays.
void lowerThreadPriority();

/// Asks for exact waits: the calling thread runs as soon as a wait of it ends, also while threads
/// of the background use all processors. Its priority stays. Threads that it starts later ask for
/// the same until they lower their priority. If the system does not know the request, waits end as
/// on that system.
void keepTimeOnThisThread();

} // namespace velorin::host
