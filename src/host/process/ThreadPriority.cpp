// The scheduler of Linux, where a priority belongs to a thread.
#include "host/process/ThreadPriority.h"

#include <sched.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cstdint>

namespace velorin::host {

namespace {

constexpr int steps = 10; ///< a busy thread beside it gets about nine times as much of a processor

/// The shortest slice that the scheduler grants. A thread that wakes up interrupts one with a
/// longer slice at once; else it may wait until that one's slice of some milliseconds is over.
constexpr std::uint64_t sliceNs = 100'000;

/// The default slack of 50 us would be most of the lateness of a wait.
constexpr unsigned long slackNs = 1000;

/// What `sched_setattr` takes, in the shape of its first version. The C library has neither the
/// call nor the struct, and the kernel's header for it cannot stand beside <sched.h>.
struct SchedulingRequest {
    std::uint32_t size = sizeof(SchedulingRequest);
    std::uint32_t policy = SCHED_OTHER;
    std::uint64_t flags = 0;
    std::int32_t niceness = 0;
    std::uint32_t realTimePriority = 0;
    std::uint64_t sliceNs = 0; ///< 0 for the usual one
    std::uint64_t deadlineNs = 0;
    std::uint64_t periodNs = 0;
};

/// False if the system does not allow it.
bool setScheduling(const SchedulingRequest& request) {
    return syscall(SYS_sched_setattr, 0, &request, 0U) == 0;
}

int niceness() {
    return getpriority(PRIO_PROCESS, static_cast<id_t>(gettid()));
}

} // namespace

// A batch thread never interrupts another one when it wakes up.
void lowerThreadPriority() {
    SchedulingRequest request;
    request.policy = SCHED_BATCH;
    request.niceness = niceness() + steps;
    static_cast<void>(setScheduling(request));
}

// Kernels before 6.12 ignore the slice.
void keepTimeOnThisThread() {
    prctl(PR_SET_TIMERSLACK, slackNs);
    SchedulingRequest request;
    request.niceness = niceness();
    request.sliceNs = sliceNs;
    static_cast<void>(setScheduling(request));
}

} // namespace velorin::host
