// Locking with the system's own calls.
#include "host/disk/FileLock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

namespace velorin::host {

namespace fs = std::filesystem;

namespace {

/// True if the path still names the open file.
bool isSameFile(int number, const fs::path& path) {
    struct stat opened {};
    struct stat named {};
    return fstat(number, &opened) == 0 && stat(path.c_str(), &named) == 0 &&
           opened.st_dev == named.st_dev && opened.st_ino == named.st_ino;
}

// Another process may remove the file between the open and the lock. The lock would then be on a
// file without a name, so the path is opened again.
Descriptor lockOpened(const fs::path& path, int flags) {
    constexpr int attempts = 10;
    for (int attempt = 0; attempt < attempts; ++attempt) {
        Descriptor file(open(path.c_str(), O_RDWR | O_CLOEXEC | flags, userOnlyMode));
        if (!file.isOpen())
            return file;
        if (flock(file.number(), LOCK_EX | LOCK_NB) != 0) {
            const int reason = errno;
            file = Descriptor();
            errno = reason;
            return file;
        }
        if (isSameFile(file.number(), path))
            return file;
    }
    errno = EWOULDBLOCK; // other processes keep taking it
    return Descriptor();
}

} // namespace

Descriptor lockFile(const fs::path& path) {
    return lockOpened(path, O_CREAT);
}

Descriptor lockExistingFile(const fs::path& path) {
    return lockOpened(path, 0);
}

std::vector<std::string> listFolder(const fs::path& folder) {
    std::vector<std::string> names;
    std::error_code error;
    fs::directory_iterator entry(folder, error);
    const fs::directory_iterator end;
    while (!error && entry != end) {
        names.push_back(entry->path().filename().string());
        entry.increment(error);
    }
    return names;
}

} // namespace velorin::host
