// Keeping a text through the end of the process, and finding what others kept.
#include "host/KeptFolder.h"

#include "platform/CaseBlind.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <ctime>
#include <memory>
#include <optional>

namespace velorin::host {

namespace fs = std::filesystem;

namespace {

/// Process numbers come again, moments do not.
std::string nameOfThisRun() {
    timespec now{};
    clock_gettime(CLOCK_REALTIME, &now);
    return std::to_string(now.tv_sec) + "-" + std::to_string(now.tv_nsec) + "-" +
           std::to_string(getpid());
}

/// The run that a file in the folder belongs to; empty for a file that is none of ours.
std::string runOf(const std::string& name) {
    const std::size_t point = name.find('.');
    const std::string run = name.substr(0, point);
    const bool isOurs =
        name.ends_with(".score") || name.ends_with(".part") || name.ends_with(".lock");
    return isOurs && run.find_first_not_of("0123456789-") == std::string::npos ? run
                                                                               : std::string();
}

void removeFile(const fs::path& path) {
    std::error_code ignored; // a file that stays is found at the next start
    fs::remove(path, ignored);
}

std::time_t timeOfChange(const fs::path& path) {
    struct stat status {};
    return stat(path.c_str(), &status) == 0 ? status.st_mtime : std::time(nullptr);
}

struct Found {
    KeptText kept;
    std::time_t changed = 0;
};

/// The latest whole text among the files of a run.
std::optional<Found> latestOf(const std::vector<fs::path>& files) {
    std::optional<Found> latest;
    for (const fs::path& file : files) {
        const auto bytes = readWhole(file);
        auto kept = bytes ? unsealed(*bytes) : std::nullopt;
        if (kept && (!latest || kept->number > latest->kept.number))
            latest = Found{std::move(*kept), timeOfChange(file)};
    }
    return latest;
}

/// The time of change of a recovered score is that of its text. A failure leaves the present, which
/// makes the file the user's.
void setTimeOfChange(const fs::path& path, std::time_t moment) {
    timespec times[2] = {};
    times[0].tv_nsec = UTIME_OMIT;
    times[1].tv_sec = moment;
    utimensat(AT_FDCWD, path.c_str(), times, 0);
}

/// Returns the name of the new file, empty if none could be made.
std::string putInto(const fs::path& folder, const Found& found) {
    constexpr int mostOfOneMoment = 100;
    std::error_code error;
    for (int count = 1; count <= mostOfOneMoment; ++count) {
        const std::string name = recoveredName(found.changed, count);
        if (fs::exists(folder / name, error))
            continue;
        if (!writeLasting(folder / name, found.kept.text))
            return {};
        setTimeOfChange(folder / name, found.changed);
        return name;
    }
    return {};
}

void log(const platform::RecoveredText& recovered, const fs::path& folder) {
    const char* ending = recovered.endedInOrder ? "ended without saving it" : "was cut short";
    logLine(std::string("the score of a run that ") + ending + " is in " +
            (folder / recovered.name).string());
}

/// What lies in the folder, as the limit of recovered scores needs it.
std::vector<ScoreFile> scoreFilesIn(const fs::path& folder) {
    constexpr std::int64_t nsPerSecond = 1'000'000'000;
    std::vector<ScoreFile> files;
    for (const std::string& name : namesIn(folder)) {
        struct stat status {};
        if (stat((folder / name).c_str(), &status) == 0)
            files.push_back({name, status.st_mtime,
                             status.st_ctim.tv_sec * nsPerSecond + status.st_ctim.tv_nsec});
    }
    return files;
}

/// Takes away the oldest recoveries beyond the limit; the new ones count, and stay.
void limitRecovered(const fs::path& folder, const std::vector<platform::RecoveredText>& isNew) {
    std::vector<ScoreFile> files = scoreFilesIn(folder);
    std::erase_if(files, [&](const ScoreFile& file) {
        return std::any_of(isNew.begin(), isNew.end(),
                           [&](const auto& recovered) { return recovered.name == file.name; });
    });
    const std::size_t most = KeptFolder::mostRecovered;
    for (const std::string& name :
         recoveredBeyond(std::move(files), most - std::min(most, isNew.size())))
        removeFile(folder / name);
}

} // namespace

KeptFolder::KeptFolder(fs::path folder, platform::Notices* notices)
    : folder_(std::move(folder)),
      run_(nameOfThisRun()),
      cannotKeep_(notices),
      cannotRecover_(notices) {}

KeptFolder::~KeptFolder() {
    worker_.waitUntilIdle();
    if (!lock_.isOpen())
        return;
    if (!isKept_)
        removeParts(latest_ + 1);
    removeFile(folder_ / (run_ + ".lock"));
}

fs::path KeptFolder::mainFile() const {
    return folder_ / (run_ + ".score");
}

fs::path KeptFolder::partFile(std::uint64_t number) const {
    return folder_ / (run_ + "." + std::to_string(number) + ".part");
}

bool KeptFolder::isReady() {
    if (lock_.isOpen())
        return true;
    if (folder_.empty())
        return false;
    constexpr unsigned forTheUser = 0700;
    makeFolderLasting(folder_, forTheUser);
    lock_ = lockFile(folder_ / (run_ + ".lock"));
    return lock_.isOpen();
}

void KeptFolder::keep(const std::string& text) {
    std::uint64_t number = 0;
    {
        const std::lock_guard guard(mutex_);
        number = ++latest_;
        isKept_ = true;
        parts_.insert(number);
    }
    auto part = std::make_shared<Descriptor>();
    if (isReady())
        *part = writeNew(partFile(number), sealed({text, number}));
    if (!part->isOpen()) {
        cannotKeep_.say("The score cannot be kept in \"" + folder_.string() +
                        "\"; a crash would lose it. Save often, and make room there or allow "
                        "writing.");
        return;
    }
    worker_.post([this, number, part] { settle(number, *part); });
}

// Runs in the thread. A text that is no longer the latest need not be waited for.
void KeptFolder::settle(std::uint64_t number, const Descriptor& part) {
    {
        const std::lock_guard guard(mutex_);
        if (number != latest_)
            return;
    }
    if (!syncFile(part)) {
        cannotKeep_.say("The disk of \"" + folder_.string() +
                        "\" does not take the score; a power cut would lose it. Save often, and "
                        "look after the disk.");
        return;
    }
    {
        const std::lock_guard guard(mutex_);
        if (parts_.count(number) == 0)
            return; // forgotten meanwhile
        std::error_code error;
        fs::rename(partFile(number), mainFile(), error);
        if (error)
            return;
        parts_.erase(number);
        removeParts(number);
    }
    syncFolder(folder_);
}

void KeptFolder::removeParts(std::uint64_t before) {
    while (!parts_.empty() && *parts_.begin() < before) {
        removeFile(partFile(*parts_.begin()));
        parts_.erase(parts_.begin());
    }
}

// The part goes last. Should the process end in between, what stays is the text that was kept until
// now, and not an older one.
void KeptFolder::forget() {
    const std::lock_guard guard(mutex_);
    if (!isKept_)
        return;
    isKept_ = false;
    ++latest_;
    if (!lock_.isOpen())
        return;
    removeFile(mainFile());
    removeParts(latest_);
}

std::vector<platform::RecoveredText> KeptFolder::recoverInto(const std::string& folder) {
    std::set<std::string> runs;
    for (const std::string& name : namesIn(folder_))
        runs.insert(runOf(name));
    runs.erase(run_);
    runs.erase(std::string()); // files that are none of ours
    const fs::path target = platform::resolve(folder);
    std::vector<platform::RecoveredText> recovered;
    for (const std::string& run : runs) {
        if (const auto text = recover(run, target)) {
            recovered.push_back(*text);
            log(*text, target);
        }
    }
    if (!recovered.empty())
        limitRecovered(target, recovered);
    return recovered;
}

// No value if the run still goes on or has left no whole text. The state files stay until the score
// is safe in its new place.
std::optional<platform::RecoveredText> KeptFolder::recover(const std::string& run,
                                                           const fs::path& target) {
    const fs::path lockPath = folder_ / (run + ".lock");
    std::error_code error;
    const bool endedInOrder = !fs::exists(lockPath, error);
    const Descriptor lock = lockFile(lockPath);
    if (!lock.isOpen())
        return std::nullopt;
    std::vector<fs::path> files;
    for (const std::string& name : namesIn(folder_))
        if (runOf(name) == run && folder_ / name != lockPath)
            files.push_back(folder_ / name);
    std::string name;
    if (const auto found = latestOf(files)) {
        name = putInto(target, *found);
        if (name.empty()) {
            cannotRecover_.say("The score of an earlier run stays in \"" + folder_.string() +
                               "\", since nothing can be written to \"" + target.string() +
                               "\". Make room there or allow writing, and start Velorin again.");
            if (endedInOrder)
                removeFile(lockPath);
            return std::nullopt;
        }
    }
    for (const fs::path& file : files)
        removeFile(file);
    removeFile(lockPath);
    if (name.empty())
        return std::nullopt;
    return platform::RecoveredText{name, endedInOrder};
}

} // namespace velorin::host
