// Locks and listing, on the system's own calls.
#include "host/StateFolder.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

namespace velorin::host {

namespace fs = std::filesystem;

namespace {

constexpr mode_t forTheUser = 0600;

/// Whether the name still leads to the file that is open.
bool isSameFile(int number, const fs::path& path) {
    struct stat opened {};
    struct stat named {};
    return fstat(number, &opened) == 0 && stat(path.c_str(), &named) == 0 &&
           opened.st_dev == named.st_dev && opened.st_ino == named.st_ino;
}

} // namespace

// Between the opening and the locking another process may have taken the file away; then the lock
// would guard a name that is free.
Descriptor lockFile(const fs::path& path) {
    constexpr int attempts = 10;
    for (int attempt = 0; attempt < attempts; ++attempt) {
        Descriptor file(open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, forTheUser));
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
    errno = EWOULDBLOCK; // others come and go
    return Descriptor();
}

std::vector<std::string> namesIn(const fs::path& folder) {
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
