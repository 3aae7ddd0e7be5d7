// The worker: the order of its jobs, holding and waiting.
#include "host/process/Worker.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <thread>
#include <vector>

namespace velorin::host {
namespace {

TEST(AWorker, ThatIsHeldKeepsItsJobsUntilItIsReleased) {
    std::atomic<int> done{0};
    Worker worker(true);
    worker.post([&done] { ++done; });
    EXPECT_EQ(done, 0);
    worker.release();
    worker.waitUntilIdle();
    EXPECT_EQ(done, 1);
}

TEST(AWorker, IsNotWaitedForLongerThanAskedFor) {
    using namespace std::chrono_literals;
    std::atomic<bool> goOn{false};
    Worker worker(true);
    worker.post([&goOn] {
        while (!goOn)
            std::this_thread::sleep_for(1ms);
    });
    EXPECT_TRUE(worker.waitUntilIdle(10s)) << "it is held";
    worker.release();
    EXPECT_FALSE(worker.waitUntilIdle(1ms));
    goOn = true;
    EXPECT_TRUE(worker.waitUntilIdle(10s));
}

TEST(AWorker, ThatIsHeldEndsWithItsJobsUndone) {
    std::atomic<int> done{0};
    {
        Worker worker(true);
        worker.post([&done] { ++done; });
    }
    EXPECT_EQ(done, 0);
}

TEST(AWorker, DoesItsJobsInOrder) {
    std::vector<int> done;
    Worker worker;
    for (int job = 0; job < 5; ++job) {
        worker.post([&done, job] { done.push_back(job); });
    }
    worker.waitUntilIdle();
    EXPECT_EQ(done, (std::vector<int>{0, 1, 2, 3, 4}));
}

} // namespace
} // namespace velorin::host
