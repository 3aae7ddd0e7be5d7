// The job loop of the worker thread.
#include "host/process/Worker.h"

namespace velorin::host {

Worker::Worker(bool held) : held_(held), thread_([this] { run(); }) {}

Worker::~Worker() {
    {
        const std::lock_guard lock(mutex_);
        ending_ = true;
    }
    changed_.notify_all();
    thread_.join();
}

void Worker::post(std::function<void()> job) {
    {
        const std::lock_guard lock(mutex_);
        jobs_.push_back(std::move(job));
    }
    changed_.notify_all();
}

void Worker::release() {
    {
        const std::lock_guard lock(mutex_);
        held_ = false;
    }
    changed_.notify_all();
}

void Worker::waitUntilIdle() {
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [this] { return jobs_.empty() && !busy_; });
}

bool Worker::waitUntilIdle(std::chrono::milliseconds timeout) {
    std::unique_lock lock(mutex_);
    return changed_.wait_for(lock, timeout, [this] { return (held_ || jobs_.empty()) && !busy_; });
}

void Worker::run() {
    std::unique_lock lock(mutex_);
    for (;;) {
        changed_.wait(lock, [this] { return ending_ || (!held_ && !jobs_.empty()); });
        if (ending_)
            return;
        std::function<void()> job = std::move(jobs_.front());
        jobs_.pop_front();
        busy_ = true;
        lock.unlock();
        job();
        job = nullptr; // destroys what it captured outside the lock, before the worker is idle
        lock.lock();
        busy_ = false;
        changed_.notify_all();
    }
}

} // namespace velorin::host
