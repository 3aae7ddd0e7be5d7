// Threads that take one task after the other.
#include "convert/Batch.h"

#include "convert/Conversion.h"
#include "convert/WholeFile.h"

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

/// One line on a terminal that tells how far a file is.
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

// Two scores of one name, from two folders, would take each other's place.
std::vector<bool> repeatedTargets(const std::vector<Task>& tasks) {
    std::set<fs::path> written;
    std::vector<bool> repeated;
    for (const Task& task : tasks) {
        std::error_code failed;
        repeated.push_back(!written.insert(fs::weakly_canonical(task.target, failed)).second);
    }
    return repeated;
}

void removeAbandonedFiles(const std::vector<Task>& tasks) {
    std::set<fs::path> folders;
    for (const Task& task : tasks)
        folders.insert(folderOf(task.target));
    for (const fs::path& folder : folders)
        host::removeAbandoned(folder);
}

Result convertOne(const Task& task, const Options& options, bool isRepeated, bool showsProgress,
                  const std::function<bool()>& isBrokenOff, const TakeRemark& takeRemark) {
    Result result{task.score, task.target, Outcome::failed, {}, 0.0};
    if (isRepeated) {
        result.reason = task.score + " would replace the output of another score";
        return result;
    }
    if (task.isResumable && isNewer(task.target, task.score)) {
        result.outcome = Outcome::skipped;
        result.reason = "the output is newer";
        return result;
    }
    const auto start = std::chrono::steady_clock::now();
    if (options.makesFolder || task.isResumable)
        makeFolders(task.target.parent_path());
    ProgressLine line(task.score, showsProgress);
    const auto progress = [&line](double share) { line.show(share); };
    result.reason = convert(task, options, {progress, isBrokenOff, takeRemark});
    result.outcome = result.reason.empty() ? Outcome::converted : Outcome::failed;
    const std::chrono::duration<double> elapsed = std::chrono::steady_clock::now() - start;
    result.seconds = elapsed.count();
    return result;
}

} // namespace

std::vector<Result> convertAll(const Options& options, int jobs, const TakeResult& take,
                               const std::function<bool()>& isBrokenOff,
                               const TakeRemark& takeRemark) {
    const std::vector<Task>& tasks = options.tasks;
    removeAbandonedFiles(tasks);
    const std::vector<bool> repeated = repeatedTargets(tasks);
    std::vector<Result> results(tasks.size());
    std::atomic<std::size_t> next{0};
    std::mutex taking;
    const TakeRemark remark = [&](const std::string& text) {
        const std::lock_guard lock(taking);
        if (takeRemark)
            takeRemark(text);
    };
    const auto work = [&] {
        for (std::size_t i = next++; i < tasks.size(); i = next++) {
            if (isBrokenOff && isBrokenOff())
                return;
            results[i] = convertOne(tasks[i], options, repeated[i], jobs == 1, isBrokenOff, remark);
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
