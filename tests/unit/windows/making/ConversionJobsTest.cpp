// Jobs: their progress, their end, and what becomes of them when their owner goes.
#include "windows/making/ConversionJobs.h"

#include <gmock/gmock.h>

#include <QCoreApplication>
#include <QThread>

#include <atomic>
#include <functional>
#include <new>
#include <string>
#include <thread>
#include <vector>

using testing::ElementsAre;
using testing::IsEmpty;

namespace velorin {
namespace {

using Callbacks = convert::ConversionCallbacks;
using Result = ConversionJobs::Result;

void processUntil(const std::function<bool()>& isDone) {
    while (!isDone())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

Result workUntilStopped(const Callbacks& callbacks) {
    while (!callbacks.isStopRequested())
        std::this_thread::yield();
    return platform::Failure{"was interrupted"};
}

struct ConversionJobsTest : testing::Test {
    /// A listener that writes down what it hears.
    ConversionJobs::Listener listener(const std::string& name) {
        return {[this](double share) { shares.push_back(share); },
                [this, name](const Result& result) {
                    isOnOwnThread = QThread::currentThread() == qApp->thread();
                    ended.push_back(name + ": " + (result ? "done" : result.reason()));
                }};
    }

    std::vector<double> shares;
    std::vector<std::string> ended;
    bool isOnOwnThread = false;
    ConversionJobs jobs;
};

TEST_F(ConversionJobsTest, AJobRunsOnAThreadOfItsOwnAndItsEndIsHeardOnThatOfTheWindows) {
    std::atomic<bool> wasElsewhere{false};
    const int number = jobs.start(
        [&](const Callbacks&) {
            wasElsewhere = QThread::currentThread() != qApp->thread();
            return Result();
        },
        listener("song"));
    EXPECT_GT(number, 0);
    EXPECT_THAT(ended, IsEmpty()) << "it is told by the event loop";
    processUntil([this] { return !ended.empty(); });
    EXPECT_THAT(ended, ElementsAre("song: done"));
    EXPECT_TRUE(wasElsewhere);
    EXPECT_TRUE(isOnOwnThread);
    EXPECT_FALSE(jobs.isRunning(number));
}

TEST_F(ConversionJobsTest, TheFirstProgressIsToldWhileTheJobWorks) {
    const int number = jobs.start(
        [](const Callbacks& callbacks) {
            callbacks.progress(0.25);
            return workUntilStopped(callbacks);
        },
        listener("song"));
    processUntil([this] { return !shares.empty(); });
    EXPECT_THAT(shares, ElementsAre(0.25));
    EXPECT_TRUE(jobs.isRunning(number));
    jobs.stop(number);
    processUntil([this] { return !ended.empty(); });
    EXPECT_THAT(ended, ElementsAre("song: was interrupted"));
}

TEST_F(ConversionJobsTest, AThousandStepsAtOnceAreNotAThousandEvents) {
    jobs.start(
        [](const Callbacks& callbacks) {
            for (int step = 0; step <= 1000; ++step)
                callbacks.progress(step / 1000.0);
            return Result();
        },
        listener("song"));
    processUntil([this] { return !ended.empty(); });
    EXPECT_LT(shares.size(), 100U);
}

TEST_F(ConversionJobsTest, JobsRunBesideOneAnotherAndEachIsStoppedAlone) {
    const int first = jobs.start(workUntilStopped, listener("first"));
    const int second = jobs.start(workUntilStopped, listener("second"));
    jobs.stop(second);
    processUntil([this] { return !ended.empty(); });
    EXPECT_THAT(ended, ElementsAre("second: was interrupted"));
    EXPECT_TRUE(jobs.isRunning(first));
    jobs.stop(first);
    processUntil([this] { return ended.size() == 2; });
}

TEST_F(ConversionJobsTest, ADroppedJobIsHeardNoMore) {
    const int dropped = jobs.start(workUntilStopped, listener("dropped"));
    jobs.drop(dropped);
    processUntil([&] { return !jobs.isRunning(dropped); });
    EXPECT_THAT(ended, IsEmpty());
    jobs.drop(dropped);
    jobs.stop(dropped); // unknown by now
}

TEST_F(ConversionJobsTest, ANewJobMayBeStartedWhenOneHasEnded) {
    int next = 0;
    jobs.start([](const Callbacks&) { return Result(); },
               {{}, [&](const Result&) {
                    next = jobs.start([](const Callbacks&) { return Result(); }, listener("next"));
                }});
    processUntil([this] { return !ended.empty(); });
    EXPECT_THAT(ended, ElementsAre("next: done"));
    EXPECT_FALSE(jobs.isRunning(next));
}

TEST_F(ConversionJobsTest, TooLittleMemoryIsAFailureOfTheJob) {
    jobs.start([](const Callbacks&) -> Result { throw std::bad_alloc(); }, listener("song"));
    processUntil([this] { return !ended.empty(); });
    EXPECT_THAT(ended, ElementsAre("song: There is not enough memory."));
}

TEST(ConversionJobsAtTheEnd, TheOwnerWaitsForTheThreadsAndNothingIsToldAfterIt) {
    std::atomic<int> running{0};
    bool isTold = false;
    {
        ConversionJobs jobs;
        for (int i = 0; i < 3; ++i)
            jobs.start(
                [&](const Callbacks& callbacks) {
                    ++running;
                    callbacks.progress(0.5);
                    Result result = workUntilStopped(callbacks);
                    --running;
                    return result;
                },
                {[&](double) { isTold = true; }, [&](const Result&) { isTold = true; }});
        while (running < 3)
            std::this_thread::yield();
    }
    EXPECT_EQ(running, 0);
    QCoreApplication::processEvents();
    EXPECT_FALSE(isTold);
}

} // namespace
} // namespace velorin
