// Recovered scores get the time of their last change, in the name and as modification time.
#include "host/state/RecoveryFolder.h"

#include "host/disk/DurableFile.h"
#include "host/disk/FileLock.h"
#include "host/process/OnceLogger.h"
#include "host/state/RecoveredScores.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <system_error>
#include <utility>

namespace velorin::host {

namespace fs = std::filesystem;

namespace {

/// If this fails, the file counts as the user's.
void setModificationTime(const fs::path& path, std::time_t moment) {
    timespec times[2] = {};
    times[0].tv_nsec = UTIME_OMIT;
    times[1].tv_sec = moment;
    utimensat(AT_FDCWD, path.c_str(), times, 0);
}

/// The files in the folder, with what the limit of recovered scores needs.
std::vector<ScoreFile> scoreFilesIn(const fs::path& folder) {
    constexpr std::int64_t nsPerSecond = 1'000'000'000;
    std::vector<ScoreFile> files;
    for (const std::string& name : listFolder(folder)) {
        struct stat status {};
        if (stat((folder / name).c_str(), &status) == 0)
            files.push_back({name, status.st_mtime,
                             status.st_ctim.tv_sec * nsPerSecond + status.st_ctim.tv_nsec});
    }
    return files;
}

} // namespace

bool RecoveryFolder::add(const LeftScore& score) {
    std::string name = write(score);
    if (name.empty())
        return false;
    const char* ending = score.endedCleanly ? "ended without saving it" : "was cut short";
    logLine(std::string("the score of a run that ") + ending + " is in " +
            (folder_ / name).string());
    added_.push_back({std::move(name), score.endedCleanly});
    return true;
}

// Returns the name of the new file, empty if none could be made.
std::string RecoveryFolder::write(const LeftScore& score) const {
    constexpr int mostOfOneSecond = 100;
    std::error_code error;
    for (int count = 1; count <= mostOfOneSecond; ++count) {
        std::string name = recoveredName(score.changed, count);
        if (fs::exists(folder_ / name, error))
            continue;
        if (!writeDurably(folder_ / name, score.text))
            return {};
        setModificationTime(folder_ / name, score.changed);
        return name;
    }
    return {};
}

std::vector<platform::RecoveredFile> RecoveryFolder::finish() {
    if (!added_.empty())
        removeOldest();
    return std::move(added_);
}

// The new ones count, and stay.
void RecoveryFolder::removeOldest() const {
    std::vector<ScoreFile> files = scoreFilesIn(folder_);
    std::erase_if(files, [this](const ScoreFile& file) {
        return std::any_of(added_.begin(), added_.end(),
                           [&](const auto& recovered) { return recovered.name == file.name; });
    });
    for (const std::string& name : oldestUntouched(
             std::move(files), mostRecovered - std::min(mostRecovered, added_.size()))) {
        std::error_code ignored; // the next recovery tries again
        fs::remove(folder_ / name, ignored);
    }
}

} // namespace velorin::host
