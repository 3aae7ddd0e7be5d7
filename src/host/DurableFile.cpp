// Durable writes, on the system's own calls: the standard library's streams cannot wait for the
// disk.
#include "host/DurableFile.h"

#include <fcntl.h>
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

Descriptor writeNew(const fs::path& path, const std::string& bytes) {
    Descriptor file(open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, forTheUser));
    if (!file.isOpen())
        return file;
    if (!writeAll(file, bytes)) {
        unlink(path.c_str());
        return Descriptor();
    }
    return file;
}

// Some file systems know no sync, for folders above all. What is written there is as safe as it
// gets.
bool syncFile(const Descriptor& file) {
    return fsync(file.number()) == 0 || errno == EINVAL;
}

// A path without a folder in it lies in the current one.
bool syncFolder(const fs::path& folder) {
    const char* path = folder.empty() ? "." : folder.c_str();
    const Descriptor opened(open(path, O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    return opened.isOpen() && syncFile(opened);
}

bool syncFile(const fs::path& path) {
    const Descriptor opened(open(path.c_str(), O_RDONLY | O_CLOEXEC));
    return opened.isOpen() && syncFile(opened);
}

std::error_code replaceDurably(const fs::path& aside, const fs::path& path) {
    std::error_code failed;
    if (!syncFile(aside))
        return {errno, std::generic_category()};
    fs::rename(aside, path, failed);
    if (!failed && !syncFolder(path.parent_path()))
        failed = {errno, std::generic_category()};
    return failed;
}

bool writeLasting(const fs::path& path, const std::string& bytes) {
    fs::path hidden = ".";
    hidden += path.filename();
    hidden += ".part";
    const fs::path aside = path.parent_path() / hidden;
    std::error_code error;
    fs::remove(aside, error); // that a power cut has left
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

void makeFolderLasting(const fs::path& folder, unsigned mode) {
    constexpr unsigned forAll = 0777;
    std::error_code error;
    if (folder.empty() || fs::is_directory(folder, error))
        return;
    makeFolderLasting(folder.parent_path(), forAll);
    if (mkdir(folder.c_str(), mode) == 0)
        syncFolder(folder.parent_path());
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

} // namespace velorin::host
