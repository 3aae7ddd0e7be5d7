// Durable writes, on the system's own calls: the standard library's streams cannot wait for the
// disk.
#include "host/disk/DurableFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <fstream>
#include <iterator>
#include <utility>

namespace velorin::host {

namespace fs = std::filesystem;

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

bool writeAll(const Descriptor& file, const std::string& bytes) {
    std::size_t done = 0;
    while (done < bytes.size()) {
        const ssize_t written = write(file.number(), bytes.data() + done, bytes.size() - done);
        if (written < 0 && errno == EINTR)
            continue;
        if (written <= 0)
            return false;
        done += static_cast<std::size_t>(written);
    }
    return true;
}

Descriptor writeNewFile(const fs::path& path, const std::string& bytes) {
    Descriptor file(open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, userOnlyMode));
    if (!file.isOpen())
        return file;
    if (!writeAll(file, bytes)) {
        unlink(path.c_str());
        return Descriptor();
    }
    return file;
}

// Some file systems have no sync, above all for folders. A write there is as safe as it can be.
bool syncFile(const Descriptor& file) {
    return fsync(file.number()) == 0 || errno == EINVAL;
}

// A path without a folder is in the current one.
bool syncFolder(const fs::path& folder) {
    const char* path = folder.empty() ? "." : folder.c_str();
    const Descriptor opened(open(path, O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    return opened.isOpen() && syncFile(opened);
}

bool syncFile(const fs::path& path) {
    const Descriptor opened(open(path.c_str(), O_RDONLY | O_CLOEXEC));
    return opened.isOpen() && syncFile(opened);
}

std::error_code replaceDurably(const fs::path& temp, const fs::path& path) {
    std::error_code failed;
    if (!syncFile(temp))
        return {errno, std::generic_category()};
    fs::rename(temp, path, failed);
    if (!failed && !syncFolder(path.parent_path()))
        failed = {errno, std::generic_category()};
    return failed;
}

std::error_code placeDurably(const fs::path& temp, const fs::path& path) {
    if (!syncFile(temp))
        return {errno, std::generic_category()};
    if (renameat2(AT_FDCWD, temp.c_str(), AT_FDCWD, path.c_str(), RENAME_NOREPLACE) != 0) {
        if (errno != EINVAL && errno != ENOSYS)
            return {errno, std::generic_category()};
        // Some file systems can only replace.
        std::error_code failed;
        if (fs::exists(fs::symlink_status(path, failed)))
            return std::make_error_code(std::errc::file_exists);
        fs::rename(temp, path, failed);
        if (failed)
            return failed;
    }
    return syncFolder(path.parent_path()) ? std::error_code()
                                          : std::error_code(errno, std::generic_category());
}

bool writeDurably(const fs::path& path, const std::string& bytes) {
    fs::path hidden = ".";
    hidden += path.filename();
    hidden += ".part";
    const fs::path temp = path.parent_path() / hidden;
    std::error_code error;
    fs::remove(temp, error); // left by a power cut
    const Descriptor file = writeNewFile(temp, bytes);
    bool done = file.isOpen() && syncFile(file) && !fs::exists(path, error) && !error;
    if (done) {
        fs::rename(temp, path, error);
        done = !error;
    }
    if (!done) {
        fs::remove(temp, error);
        return false;
    }
    // The file is whole under its name, which a power cut could still lose.
    (void)syncFolder(path.parent_path());
    return true;
}

void createFoldersDurably(const fs::path& folder, unsigned mode) {
    constexpr unsigned forAll = 0777;
    std::error_code error;
    if (folder.empty() || fs::is_directory(folder, error))
        return;
    createFoldersDurably(folder.parent_path(), forAll);
    if (mkdir(folder.c_str(), mode) == 0)
        (void)syncFolder(folder.parent_path()); // a folder that is less safe is still of use
}

std::optional<std::string> readFile(const fs::path& path) {
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

} // namespace velorin::host
