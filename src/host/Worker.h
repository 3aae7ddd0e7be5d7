// A thread for what may take its time and must not hold up the windows.
#pragma once

#include <chrono>
#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <thread>

namespace velorin::host {

/// Does one job after the other. The destructor waits for the job in hand and drops the rest.
class Worker {
public:
    /// One that is held keeps its jobs until it is released.
    explicit Worker(bool held = false);
    ~Worker();
    Worker(const Worker&) = delete;
    Worker& operator=(const Worker&) = delete;

    void post(std::function<void()> job); ///< a job must not throw
    void release();
    void waitUntilIdle(); ///< until every job posted so far is done
    /// The same for at most that long; false if it was too short. One that is held is idle.
    [[nodiscard]] bool waitUntilIdle(std::chrono::milliseconds most);

private:
    void run();

    std::mutex mutex_;
    std::condition_variable changed_;
    std::deque<std::function<void()>> jobs_;
    bool held_;
    bool busy_ = false;
    bool ending_ = false;
    std::thread thread_;
};

} // namespace velorin::host
