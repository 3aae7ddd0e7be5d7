// The signals that ask a program without windows to end.
#include "host/BreakOff.h"

#include <gtest/gtest.h>

#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <thread>

namespace velorin::host {
namespace {

// Whoever runs the tests in the background may have switched some of the signals off.
void takeSignals() {
    for (const int signal : {SIGTERM, SIGINT, SIGHUP})
        std::signal(signal, SIG_DFL);
}

// What is told to the whole process, as a terminal does it.
void breakOffBy(int signal, const BreakOff& breakOff) {
    kill(getpid(), signal);
    while (!breakOff.isWanted())
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
}

class ABreakOff : public testing::Test {
protected:
    ABreakOff() { testing::FLAGS_gtest_death_test_style = "threadsafe"; }
};

TEST_F(ABreakOff, IsNotWantedUntilASignalComes) {
    const auto work = [] {
        takeSignals();
        const BreakOff breakOff;
        breakOff.endIfWanted();
        std::_Exit(breakOff.isWanted() ? 1 : 0);
    };
    EXPECT_EXIT(work(), testing::ExitedWithCode(0), "");
}

TEST_F(ABreakOff, EndsTheProcessByItsSignalWhenThatIsAskedFor) {
    const auto work = [] {
        takeSignals();
        const BreakOff breakOff;
        breakOffBy(SIGTERM, breakOff);
        breakOff.endIfWanted();
    };
    EXPECT_EXIT(work(), testing::KilledBySignal(SIGTERM), "");
}

TEST_F(ABreakOff, ThatComesTwiceEndsTheProcessAtOnce) {
    const auto work = [] {
        takeSignals();
        const BreakOff breakOff;
        breakOffBy(SIGINT, breakOff);
        kill(getpid(), SIGINT);
        while (true)
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
    };
    EXPECT_EXIT(work(), testing::KilledBySignal(SIGINT), "");
}

TEST_F(ABreakOff, LeavesASignalAloneThatWasSwitchedOff) {
    const auto work = [] {
        for (const int signal : {SIGTERM, SIGINT, SIGHUP})
            std::signal(signal, SIG_IGN);
        {
            const BreakOff breakOff;
            kill(getpid(), SIGHUP);
            breakOff.endIfWanted();
        }
        std::_Exit(0);
    };
    EXPECT_EXIT(work(), testing::ExitedWithCode(0), "");
}

} // namespace
} // namespace velorin::host
