// The scheduler's word on threads that ask for more or for less.
#include "host/process/ThreadPriority.h"

#include <gtest/gtest.h>

#include <sched.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/utsname.h>
#include <unistd.h>

#include <fstream>
#include <optional>
#include <sstream>
#include <string>
#include <thread>

namespace {

using namespace velorin::host;

int niceness() {
    return getpriority(PRIO_PROCESS, static_cast<id_t>(gettid()));
}

/// The slice of the calling thread in nanoseconds; no value if the kernel does not tell it.
std::optional<long> sliceNs() {
    std::ifstream file("/proc/thread-self/sched");
    for (std::string line; std::getline(file, line);) {
        if (line.starts_with("se.slice"))
            return std::stol(line.substr(line.find(':') + 1));
    }
    return std::nullopt;
}

/// Kernels before 6.12 have one slice for all threads.
bool hasSlicesOfThreads() {
    utsname system{};
    int major = 0;
    int minor = 0;
    char point = 0;
    uname(&system);
    std::istringstream(system.release) >> major >> point >> minor;
    return major > 6 || (major == 6 && minor >= 12);
}

TEST(ThreadPriorityTest, AThreadOfTheBackgroundIsBelowTheOneThatStartedIt) {
    const int before = niceness();
    int lowered = before;
    int policy = -1;
    std::thread([&lowered, &policy] {
        lowerThreadPriority();
        lowered = niceness();
        policy = sched_getscheduler(0);
    }).join();
    EXPECT_GT(lowered, before);
    EXPECT_EQ(policy, SCHED_BATCH);
    EXPECT_EQ(niceness(), before);
}

TEST(ThreadPriorityTest, AThreadThatKeepsTimeKeepsItsPriority) {
    std::thread([] {
        const int before = niceness();
        keepTimeOnThisThread();
        EXPECT_EQ(niceness(), before);
        EXPECT_EQ(sched_getscheduler(0), SCHED_OTHER);
        EXPECT_LE(prctl(PR_GET_TIMERSLACK), 1000);
    }).join();
}

TEST(ThreadPriorityTest, AThreadThatKeepsTimeHasAShortSliceAndOneOfTheBackgroundDoesNot) {
    if (!hasSlicesOfThreads() || !sliceNs())
        GTEST_SKIP() << "the kernel has one slice for all threads, or does not tell";
    std::thread([] {
        const long before = *sliceNs();
        keepTimeOnThisThread();
        EXPECT_LT(*sliceNs(), before);
        std::thread([before] {
            lowerThreadPriority();
            EXPECT_EQ(*sliceNs(), before);
        }).join();
    }).join();
}

} // namespace
