// A thread for jobs that may block and must not hold up the windows.
#pragma once

#include <chrono>
#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <thread>

namespace velorin::host {

/// Runs one job after the other. The destructor waits for the current job and drops the rest.
class Worker {
public:
    /// A held worker queues its jobs until `release`.
    explicit Worker(bool held = false);
    ~Worker();
    Worker(const Worker&) = delete;
    Worker& operator=(const Worker&) = delete;

    void post(std::function<void()> job); ///< a job must not throw
    void release();
    void waitUntilIdle(); ///< until every job posted so far is done
    /// The same with a timeout; false if it expired. A held worker counts as idle.
    [[nodiscard]] bool waitUntilIdle(std::chrono::milliseconds timeout);

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
