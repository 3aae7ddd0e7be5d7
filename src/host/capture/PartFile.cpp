// Names and locks of the hidden files.
#include "host/capture/PartFile.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <string>

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

std::string newName() {
    const auto now = std::chrono::steady_clock::now().time_since_epoch().count();
    return beginning + std::to_string(getpid()) + "-" + std::to_string(now) + ending;
}

} // namespace

bool PartFile::isAt(const fs::path& path) const {
    struct stat opened {};
    struct stat named {};
    return fstat(file_.number(), &opened) == 0 && lstat(path.c_str(), &named) == 0 &&
           opened.st_dev == named.st_dev && opened.st_ino == named.st_ino;
}

PartFile PartFile::locked(fs::path path, Descriptor file) {
    if (!file.isOpen() || flock(file.number(), LOCK_EX | LOCK_NB) != 0)
        return {};
    PartFile part(std::move(path), std::move(file));
    return part.isAt(part.path()) ? std::move(part) : PartFile();
}

// Another copy may remove a new file as abandoned before it is locked, so a second attempt makes
// sense.
PartFile PartFile::create(const fs::path& folder, std::error_code& error) {
    constexpr int attempts = 10;
    for (int attempt = 0; attempt < attempts; ++attempt) {
        fs::path path = folder / newName();
        Descriptor file(
            open(path.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC | O_NOFOLLOW, 0666));
        if (!file.isOpen()) {
            error = {errno, std::generic_category()};
            return {};
        }
        PartFile made = locked(std::move(path), std::move(file));
        if (made.isOpen())
            return made;
    }
    error = std::make_error_code(std::errc::device_or_resource_busy);
    return {};
}

std::vector<PartFile> PartFile::abandoned(const fs::path& folder) {
    std::vector<PartFile> found;
    std::error_code failed;
    for (fs::directory_iterator entry(folder, failed), end; !failed && entry != end;
         entry.increment(failed)) {
        const fs::path& path = entry->path();
        if (!isPart(path))
            continue;
        Descriptor file(open(path.c_str(), O_RDWR | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK));
        PartFile part = locked(path, std::move(file));
        if (part.isOpen())
            found.push_back(std::move(part));
    }
    return found;
}

void PartFile::remove() {
    if (isOpen())
        unlink(path_.c_str());
    file_ = Descriptor();
}

} // namespace velorin::host
