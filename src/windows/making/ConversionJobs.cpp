// The threads of conversions.
#include "windows/making/ConversionJobs.h"

#include "host/process/SystemClock.h"
#include "host/process/ThreadPriority.h"

#include <QMetaObject>

#include <atomic>
#include <new>
#include <optional>
#include <thread>
#include <utility>

namespace velorin {

namespace {

constexpr std::int64_t progressEveryNs = 100'000'000;

} // namespace

/// `listener` belongs to the user-interface thread; the atomic members to both; `work` and
/// `result` to the job's thread until it has ended.
struct ConversionJobs::Job {
    Job(int numberGiven, Work workGiven, Listener listenerGiven)
        : number(numberGiven), work(std::move(workGiven)), listener(std::move(listenerGiven)) {}

    const int number;
    Work work;
    Listener listener;
    Result result;
    std::atomic<bool> isStopped{false};
    std::atomic<double> share{0.0};
    std::atomic<bool> isProgressPosted{false};
    std::int64_t nextProgressNs = 0; ///< of the job's thread
    std::thread thread;
};

ConversionJobs::ConversionJobs() = default;

// All are asked first, so that they end at the same time.
ConversionJobs::~ConversionJobs() {
    for (const auto& [number, job] : jobs_)
        job->isStopped = true;
    for (const auto& [number, job] : jobs_)
        job->thread.join();
}

int ConversionJobs::start(Work work, Listener listener) {
    const int number = ++lastNumber_;
    auto job = std::make_unique<Job>(number, std::move(work), std::move(listener));
    Job& started = *job;
    jobs_[number] = std::move(job);
    started.thread = std::thread([this, &started] { run(started); });
    return number;
}

void ConversionJobs::stop(int number) {
    if (const auto found = jobs_.find(number); found != jobs_.end())
        found->second->isStopped = true;
}

void ConversionJobs::drop(int number) {
    const auto found = jobs_.find(number);
    if (found == jobs_.end())
        return;
    found->second->listener = {};
    found->second->isStopped = true;
}

// In the job's thread. Events of a receiver that is being destroyed are dropped.
void ConversionJobs::run(Job& job) {
    host::lowerThreadPriority();
    convert::ConversionCallbacks callbacks;
    callbacks.isStopRequested = [&job] { return job.isStopped.load(); };
    callbacks.progress = [this, &job](double share) {
        job.share = share;
        const std::int64_t now = host::steadyNs();
        if (now < job.nextProgressNs || job.isProgressPosted.exchange(true))
            return;
        job.nextProgressNs = now + progressEveryNs;
        QMetaObject::invokeMethod(
            this, [this, number = job.number] { tellProgress(number); }, Qt::QueuedConnection);
    };
    try {
        job.result = job.work(callbacks);
    } catch (const std::bad_alloc&) {
        job.result = platform::Failure{"There is not enough memory."};
    }
    job.work = nullptr;
    QMetaObject::invokeMethod(
        this, [this, number = job.number] { finish(number); }, Qt::QueuedConnection);
}

void ConversionJobs::tellProgress(int number) {
    const auto found = jobs_.find(number);
    if (found == jobs_.end())
        return;
    Job& job = *found->second;
    job.isProgressPosted = false;
    const auto tell = job.listener.progress; // a copy: the call may drop the job
    if (tell)
        tell(job.share);
}

void ConversionJobs::finish(int number) {
    const auto found = jobs_.find(number);
    if (found == jobs_.end())
        return;
    const std::unique_ptr<Job> job = std::move(found->second);
    jobs_.erase(found);
    job->thread.join();
    if (job->listener.finished)
        job->listener.finished(job->result);
}

} // namespace velorin
