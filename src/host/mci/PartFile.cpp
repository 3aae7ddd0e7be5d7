// Names, locks, and what is left without one.
#include "host/mci/PartFile.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <string>
#include <vector>

namespace velorin::host {

namespace fs = std::filesystem;

namespace {

constexpr char beginning[] = ".recording-";
constexpr char ending[] = ".part";

bool isPart(const fs::path& path) {
    const std::string name = path.filename().string();
    std::error_code failed;
    return name.starts_with(beginning) && name.ends_with(ending) &&
           fs::is_regular_file(fs::symlink_status(path, failed));
}

void removeUnlocked(const fs::path& path) {
    const int file = open(path.c_str(), O_RDWR | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK);
    if (file < 0)
        return;
    std::error_code ignored; // it stays, and the next one tries again
    if (flock(file, LOCK_EX | LOCK_NB) == 0)
        fs::remove(path, ignored);
    close(file);
}

} // namespace

PartFile::PartFile(const fs::path& folder)
    : path_(folder / (beginning + std::to_string(getpid()) + "-" +
                      std::to_string(reinterpret_cast<std::uintptr_t>(this)) + ending)) {}

PartFile::~PartFile() {
    std::error_code ignored; // it is not there if it was saved
    fs::remove(path_, ignored);
    if (lock_ >= 0)
        close(lock_);
}

void PartFile::make() {
    if (lock_ >= 0) // of a recording before this one, saved or not
        close(lock_);
    lock_ = open(path_.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0666);
    if (lock_ >= 0)
        flock(lock_, LOCK_EX | LOCK_NB);
}

void sweepParts(const fs::path& folder) {
    std::vector<fs::path> found;
    std::error_code failed;
    for (fs::directory_iterator entry(folder, failed), end; !failed && entry != end;
         entry.increment(failed)) {
        if (isPart(entry->path()))
            found.push_back(entry->path());
    }
    for (const fs::path& path : found)
        removeUnlocked(path);
}

} // namespace velorin::host
