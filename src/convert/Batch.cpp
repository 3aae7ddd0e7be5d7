// Worker threads that take one task after another.
#include "convert/Batch.h"

#include "convert/Conversion.h"
#include "convert/OutputFile.h"

#include <unistd.h>

#include <atomic>
#include <chrono>
#include <cstdio>
#include <mutex>
#include <set>
#include <thread>

namespace velorin::convert {

namespace fs = std::filesystem;

namespace {

/// The progress of a file in per cent, on one line of a terminal.
class ProgressLine {
public:
    ProgressLine(const std::string& name, bool shown)
        : name_(name), shown_(shown && isatty(STDERR_FILENO) != 0) {}
    ~ProgressLine() {
        if (percent_ >= 0)
            std::fprintf(stderr, "\r\033[K");
    }
    ProgressLine(const ProgressLine&) = delete;
    ProgressLine& operator=(const ProgressLine&) = delete;

    void show(double share) {
        const int percent = static_cast<int>(share * 100.0);
        if (!shown_ || percent == percent_)
            return;
        percent_ = percent;
        std::fprintf(stderr, "\r%s %d %%", name_.c_str(), percent);
    }

private:
    std::string name_;
    bool shown_;
    int percent_ = -1;
};

bool isNewer(const fs::path& target, const fs::path& source) {
    std::error_code failed;
    const auto made = fs::last_write_time(target, failed);
    if (failed)
        return false;
    const auto changed = fs::last_write_time(source, failed);
    return !failed && made >= changed;
}

// Two scores of the same name in two folders would have the same target.
std::vector<bool> repeatedTargets(const std::vector<Task>& tasks) {
    std::set<fs::path> written;
    std::vector<bool> repeated;
    for (const Task& task : tasks) {
        std::error_code failed;
        repeated.push_back(!written.insert(fs::weakly_canonical(task.target, failed)).second);
    }
    return repeated;
}

void removeAbandonedFiles(const Options& options) {
    std::set<fs::path> folders;
    for (const Task& task : options.tasks)
        folders.insert(folderOf(task.target));
    if (!options.report.empty())
        folders.insert(folderOf(options.report));
    for (const fs::path& folder : folders)
        host::removeAbandonedTempFiles(folder);
}

ConversionResult convertOne(const Task& task, const Options& options, bool isRepeated, bool isAlone,
                            const std::function<bool()>& isStopRequested,
                            const WarningCallback& warn) {
    ConversionResult result{task.source, task.target, Outcome::failed, {}, 0.0};
    if (isRepeated) {
        result.reason = task.source + " would replace the output of another score";
        return result;
    }
    if (task.isResumable && isNewer(task.target, task.source)) {
        result.outcome = Outcome::skipped;
        result.reason = "the output is newer";
        return result;
    }
    const auto start = std::chrono::steady_clock::now();
    if (options.makesFolder || task.isResumable)
        makeFolders(task.target.parent_path());
    ProgressLine line(task.source, isAlone);
    const auto progress = [&line](double share) { line.show(share); };
    const auto details = [&result](const std::string& member) { result.details = member; };
    const auto converted =
        convert(task, options, {progress, isStopRequested, warn, isAlone, details});
    result.reason = converted.reason();
    result.outcome = converted ? Outcome::converted : Outcome::failed;
    const std::chrono::duration<double> elapsed = std::chrono::steady_clock::now() - start;
    result.seconds = elapsed.count();
    return result;
}

} // namespace

std::vector<ConversionResult> convertAll(const Options& options, int jobs,
                                         const ResultCallback& take,
                                         const std::function<bool()>& isStopRequested,
                                         const WarningCallback& warn) {
    const std::vector<Task>& tasks = options.tasks;
    removeAbandonedFiles(options);
    const std::vector<bool> repeated = repeatedTargets(tasks);
    std::vector<ConversionResult> results(tasks.size());
    std::atomic<std::size_t> next{0};
    std::mutex taking;
    const WarningCallback warning = [&](const std::string& text) {
        const std::lock_guard lock(taking);
        if (warn)
            warn(text);
    };
    const auto work = [&] {
        for (std::size_t i = next++; i < tasks.size(); i = next++) {
            if (isStopRequested && isStopRequested())
                return;
            results[i] =
                convertOne(tasks[i], options, repeated[i], jobs == 1, isStopRequested, warning);
            const std::lock_guard lock(taking);
            take(results[i]);
        }
    };
    std::vector<std::thread> others;
    const std::size_t workers = std::min(static_cast<std::size_t>(jobs), tasks.size());
    for (std::size_t i = 1; i < workers; ++i)
        others.emplace_back(work);
    work();
    for (std::thread& other : others)
        other.join();
    return results;
}

} // namespace velorin::convert
