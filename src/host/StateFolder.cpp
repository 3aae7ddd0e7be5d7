// Locks, lasting writes and listing, on the system's own calls: the standard library's streams have
// no way to wait for the disk.
#include "host/StateFolder.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <fstream>
#include <iterator>
#include <utility>

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

bool writeAll(int number, const std::string& bytes) {
    std::size_t done = 0;
    while (done < bytes.size()) {
        const ssize_t written = write(number, bytes.data() + done, bytes.size() - done);
        if (written < 0 && errno == EINTR)
            continue;
        if (written <= 0)
            return false;
        done += static_cast<std::size_t>(written);
    }
    return true;
}

} // namespace

Descriptor::~Descriptor() {
    if (number_ >= 0)
        close(number_);
}

Descriptor& Descriptor::operator=(Descriptor&& other) noexcept {
    if (this != &other) {
        if (number_ >= 0)
            close(number_);
        number_ = other.release();
    }
    return *this;
}

int Descriptor::release() {
    return std::exchange(number_, -1);
}

// Between the opening and the locking another process may have taken the file away; then the lock
// would guard a name that is free.
Descriptor lockFile(const fs::path& path) {
    constexpr int attempts = 10;
    for (int attempt = 0; attempt < attempts; ++attempt) {
        Descriptor file(open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, forTheUser));
        if (!file.isOpen() || flock(file.number(), LOCK_EX | LOCK_NB) != 0)
            return Descriptor();
        if (isSameFile(file.number(), path))
            return file;
    }
    return Descriptor();
}

Descriptor writeNew(const fs::path& path, const std::string& bytes) {
    Descriptor file(open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, forTheUser));
    if (!file.isOpen())
        return file;
    if (!writeAll(file.number(), bytes)) {
        unlink(path.c_str());
        return Descriptor();
    }
    return file;
}

bool syncFile(const Descriptor& file) {
    return fsync(file.number()) == 0;
}

bool syncFolder(const fs::path& folder) {
    const Descriptor opened(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    return opened.isOpen() && syncFile(opened);
}

bool writeLasting(const fs::path& path, const std::string& bytes) {
    fs::path aside = path;
    aside += ".part";
    std::error_code error;
    fs::remove(aside, error);
    const Descriptor file = writeNew(aside, bytes);
    bool done = file.isOpen() && syncFile(file) && !fs::exists(path, error) && !error;
    if (done) {
        fs::rename(aside, path, error);
        done = !error;
    }
    if (!done) {
        fs::remove(aside, error);
        return false;
    }
    syncFolder(path.parent_path());
    return true;
}

std::optional<std::string> readWhole(const fs::path& path) {
    std::error_code error;
    if (!fs::is_regular_file(path, error))
        return std::nullopt;
    std::ifstream file(path, std::ios::binary);
    if (!file)
        return std::nullopt;
    std::string bytes((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
    if (file.bad())
        return std::nullopt;
    return bytes;
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
