// Termination signals in a program without an event loop.
#include "host/process/StopRequest.h"

#include <gtest/gtest.h>

#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <thread>

namespace velorin::host {
namespace {

// A shell that runs the tests in the background may have set some of the signals to be ignored.
void restoreSignals() {
    for (const int signal : {SIGTERM, SIGINT, SIGHUP})
        std::signal(signal, SIG_DFL);
}

// Sends a signal to the whole process, as a terminal does.
void sendSignal(int signal, const StopRequest& stopRequest) {
    kill(getpid(), signal);
    while (!stopRequest.hasArrived())
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
}

class AStopRequest : public testing::Test {
protected:
    AStopRequest() { testing::FLAGS_gtest_death_test_style = "threadsafe"; }
};

TEST_F(AStopRequest, HasNotArrivedBeforeASignal) {
    const auto work = [] {
        restoreSignals();
        const StopRequest stopRequest;
        stopRequest.endProcessIfArrived();
        std::_Exit(stopRequest.hasArrived() ? 1 : 0);
    };
    EXPECT_EXIT(work(), testing::ExitedWithCode(0), "");
}

TEST_F(AStopRequest, EndsTheProcessWithItsSignal) {
    const auto work = [] {
        restoreSignals();
        const StopRequest stopRequest;
        sendSignal(SIGTERM, stopRequest);
        stopRequest.endProcessIfArrived();
    };
    EXPECT_EXIT(work(), testing::KilledBySignal(SIGTERM), "");
}

TEST_F(AStopRequest, ThatComesTwiceEndsTheProcessAtOnce) {
    const auto work = [] {
        restoreSignals();
        const StopRequest stopRequest;
        sendSignal(SIGINT, stopRequest);
        kill(getpid(), SIGINT);
        while (true)
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
    };
    EXPECT_EXIT(work(), testing::KilledBySignal(SIGINT), "");
}

TEST_F(AStopRequest, LeavesAnIgnoredSignalAlone) {
    const auto work = [] {
        for (const int signal : {SIGTERM, SIGINT, SIGHUP})
            std::signal(signal, SIG_IGN);
        {
            const StopRequest stopRequest;
            kill(getpid(), SIGHUP);
            stopRequest.endProcessIfArrived();
        }
        std::_Exit(0);
    };
    EXPECT_EXIT(work(), testing::ExitedWithCode(0), "");
}

} // namespace
} // namespace velorin::host
