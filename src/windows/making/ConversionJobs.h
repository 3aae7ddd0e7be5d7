// Conversions on threads of their own, with progress, a stop and a result.
#pragma once

#include "convert/Conversion.h"

#include <QObject>

#include <functional>
#include <map>
#include <memory>

namespace velorin {

/// Each job has a thread, below the priority of windows and sound. User-interface thread only; it
/// needs the event loop, which delivers progress and results. The destructor stops all jobs and
/// waits for their threads, so that no incomplete file stays.
class ConversionJobs : public QObject {
    Q_OBJECT

public:
    using Result = platform::Result<void>;

    /// Runs in the thread of the job, and uses only what it has got. It gives the callbacks to
    /// `convert`, or calls them itself.
    using Work = std::function<Result(const convert::ConversionCallbacks& callbacks)>;

    /// What its owner gets to hear, on the user-interface thread. Each may be empty.
    struct Listener {
        std::function<void(double share)> progress; ///< [0, 1], ten times a second at most
        /// The last call, after which the number of the job is free. A stopped job fails, unless
        /// it was done before it looked.
        std::function<void(const Result& result)> finished;
    };

    ConversionJobs();
    ~ConversionJobs() override;
    ConversionJobs(const ConversionJobs&) = delete;
    ConversionJobs& operator=(const ConversionJobs&) = delete;

    /// Starts a job and returns its number, above 0.
    int start(Work work, Listener listener);

    /// Asks the job to end. Returns at once; the listener is called when it has ended. An unknown
    /// number does nothing.
    void stop(int number);

    /// The same, and the listener is not called any more.
    void drop(int number);

    [[nodiscard]] bool isRunning(int number) const { return jobs_.count(number) > 0; }

private:
    struct Job;

    void run(Job& job);
    void tellProgress(int number);
    void finish(int number);

    std::map<int, std::unique_ptr<Job>> jobs_;
    int lastNumber_ = 0;
};

} // namespace velorin
