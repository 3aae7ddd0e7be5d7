// Locks on open files: the system releases them when a process ends, however it ends.
#include "host/AsideFile.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <vector>

namespace velorin::host {

namespace fs = std::filesystem;

namespace {

constexpr char prefix[] = ".velorin-";
constexpr char ending[] = ".part";
constexpr mode_t forEverybody = 0666; ///< less what the user's mask takes away

bool isAside(const fs::directory_entry& entry) {
    std::error_code failed;
    const std::string name = entry.path().filename().string();
    return name.starts_with(prefix) && name.ends_with(ending) &&
           fs::is_regular_file(entry.symlink_status(failed));
}

bool lock(const Descriptor& file) {
    return flock(file.number(), LOCK_EX | LOCK_NB) == 0;
}

// Whether the open file is the one of this name.
bool isUnder(const fs::path& path, const Descriptor& file) {
    struct stat opened {};
    struct stat named {};
    return fstat(file.number(), &opened) == 0 && lstat(path.c_str(), &named) == 0 &&
           opened.st_dev == named.st_dev && opened.st_ino == named.st_ino;
}

void removeIfAbandoned(const fs::path& path) {
    const Descriptor file(open(path.c_str(), O_RDWR | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
    if (file.isOpen() && lock(file) && isUnder(path, file))
        unlink(path.c_str());
}

} // namespace

AsideFile::~AsideFile() {
    if (file_.isOpen() && isUnder(path_, file_))
        unlink(path_.c_str());
}

// Where the file system knows no locks, the file is written all the same and nobody removes it.
// Between its making and its lock another process may have taken it for abandoned.
std::error_code AsideFile::make(const fs::path& folder) {
    const std::string own = prefix + std::to_string(getpid()) + '-';
    for (int number = 0;; ++number) {
        const fs::path path = folder / (own + std::to_string(number) + ending);
        Descriptor file(open(path.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, forEverybody));
        if (!file.isOpen() && errno != EEXIST)
            return {errno, std::generic_category()};
        if (!file.isOpen())
            continue;
        (void)lock(file);
        if (!isUnder(path, file))
            continue;
        path_ = path;
        file_ = std::move(file);
        return {};
    }
}

std::error_code AsideFile::write(const std::string& bytes) {
    return writeAll(file_, bytes) ? std::error_code()
                                  : std::error_code(errno, std::generic_category());
}

void removeAbandoned(const fs::path& folder) {
    std::error_code failed;
    std::vector<fs::path> found;
    fs::directory_iterator at(folder.empty() ? fs::path(".") : folder, failed);
    for (; !failed && at != fs::directory_iterator(); at.increment(failed)) {
        if (isAside(*at))
            found.push_back(at->path());
    }
    for (const fs::path& path : found)
        removeIfAbandoned(path);
}

} // namespace velorin::host
