// Locks on open files: the system releases them when a process ends, however it ends.
#include "host/disk/TempFile.h"

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
constexpr mode_t forEverybody = 0666; ///< the umask applies

bool isTempFile(const fs::directory_entry& entry) {
    std::error_code failed;
    const std::string name = entry.path().filename().string();
    return name.starts_with(prefix) && name.ends_with(ending) &&
           fs::is_regular_file(entry.symlink_status(failed));
}

bool lock(const Descriptor& file) {
    return flock(file.number(), LOCK_EX | LOCK_NB) == 0;
}

// True if the path still names the open file.
bool isSameFile(const fs::path& path, const Descriptor& file) {
    struct stat opened {};
    struct stat named {};
    return fstat(file.number(), &opened) == 0 && lstat(path.c_str(), &named) == 0 &&
           opened.st_dev == named.st_dev && opened.st_ino == named.st_ino;
}

void removeIfAbandoned(const fs::path& path) {
    const Descriptor file(open(path.c_str(), O_RDWR | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
    if (file.isOpen() && lock(file) && isSameFile(path, file))
        unlink(path.c_str());
}

} // namespace

TempFile::~TempFile() {
    if (file_.isOpen() && isSameFile(path_, file_))
        unlink(path_.c_str());
}

// Without locks in the file system, the file is written all the same and nobody removes it. Before
// the file is locked, another process may remove it as abandoned; then the next name is tried.
std::error_code TempFile::create(const fs::path& folder) {
    const std::string own = prefix + std::to_string(getpid()) + '-';
    for (int number = 0;; ++number) {
        const fs::path path = folder / (own + std::to_string(number) + ending);
        Descriptor file(open(path.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, forEverybody));
        if (!file.isOpen() && errno != EEXIST)
            return {errno, std::generic_category()};
        if (!file.isOpen())
            continue;
        (void)lock(file);
        if (!isSameFile(path, file))
            continue;
        path_ = path;
        file_ = std::move(file);
        return {};
    }
}

std::error_code TempFile::write(const std::string& bytes) {
    return writeAll(file_, bytes) ? std::error_code()
                                  : std::error_code(errno, std::generic_category());
}

void removeAbandonedTempFiles(const fs::path& folder) {
    std::error_code failed;
    std::vector<fs::path> found;
    fs::directory_iterator at(folder.empty() ? fs::path(".") : folder, failed);
    for (; !failed && at != fs::directory_iterator(); at.increment(failed)) {
        if (isTempFile(*at))
            found.push_back(at->path());
    }
    for (const fs::path& path : found)
        removeIfAbandoned(path);
}

} // namespace velorin::host
