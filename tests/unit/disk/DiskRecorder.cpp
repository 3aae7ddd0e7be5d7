// Turns calls into operations on named files.
#include "DiskRecorder.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <fstream>
#include <iterator>
#include <set>
#include <stdexcept>

namespace velorin::disk {

namespace fs = std::filesystem;
using Kind = Operation::Kind;

namespace {

std::atomic<DiskRecorder*> active{nullptr};

std::string linkOf(int number) {
    return "/proc/self/fd/" + std::to_string(number);
}

std::string bytesOf(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

std::string bytesOf(const std::string& path, std::int64_t at, std::int64_t count) {
    std::ifstream file(path, std::ios::binary);
    std::string bytes(static_cast<std::size_t>(count), '\0');
    file.seekg(at);
    file.read(bytes.data(), count);
    return bytes;
}

} // namespace

DiskRecorder* activeRecorder() {
    return active;
}

DiskRecorder::DiskRecorder(const fs::path& folder) : folder_(fs::canonical(folder)) {
    struct stat own {};
    stat(folder_.c_str(), &own);
    device_ = own.st_dev;
    for (const auto& entry : fs::recursive_directory_iterator(folder_)) {
        const std::string name = entry.path().lexically_relative(folder_).string();
        if (entry.is_directory()) {
            log_.folders.insert(name);
            continue;
        }
        struct stat status {};
        stat(entry.path().c_str(), &status);
        log_.names[name] = newFile(status.st_ino);
        contents_.back() = bytesOf(entry.path().string());
    }
    log_.contents = contents_;
    if (active.exchange(this))
        throw std::logic_error("one recorder at a time");
}

DiskRecorder::~DiskRecorder() {
    if (active == this)
        active = nullptr;
}

void DiskRecorder::mark(const std::string& text) {
    const std::lock_guard lock(mutex_);
    Operation operation;
    operation.name = text;
    add(std::move(operation));
}

DiskLog DiskRecorder::finish() {
    active = nullptr;
    const std::lock_guard lock(mutex_);
    std::map<std::string, int> names = log_.names;
    for (const Operation& operation : log_.operations) {
        if (operation.kind == Kind::make || operation.kind == Kind::link)
            names[operation.name] = operation.file;
        if (operation.kind == Kind::remove || operation.kind == Kind::rename)
            names.erase(operation.name);
        if (operation.kind == Kind::rename)
            names[operation.newName] = operation.file;
    }
    for (const auto& [name, file] : names)
        compare(file, (folder_ / name).string(), "at the end");
    for (const auto& entry : fs::recursive_directory_iterator(folder_)) {
        const std::string name = entry.path().lexically_relative(folder_).string();
        if (!entry.is_directory() && !names.contains(name))
            log_.missed.push_back(name + " was made unseen");
    }
    return log_;
}

bool DiskRecorder::isAllOnTheDisk() {
    const std::lock_guard lock(mutex_);
    std::set<int> files;
    std::set<std::string> folders;
    for (const Operation& operation : log_.operations) {
        if (operation.kind == Kind::write || operation.kind == Kind::resize)
            files.insert(operation.file);
        else if (operation.kind == Kind::sync)
            files.erase(operation.file);
        else if (operation.kind == Kind::syncFolder)
            folders.erase(operation.name);
        else if (operation.kind != Kind::mark)
            folders.insert(folderOf(operation.name));
        if (operation.kind == Kind::rename)
            folders.insert(folderOf(operation.newName));
    }
    return files.empty() && folders.empty();
}

int DiskRecorder::open(int folderNumber, const char* path, int flags,
                       const std::function<int()>& carryOut) {
    const std::lock_guard lock(mutex_);
    const auto name = nameOf(folderNumber, path);
    const bool wasThere = name && fs::exists(folder_ / *name);
    const int number = carryOut();
    struct stat status {};
    if (number < 0 || fstat(number, &status) != 0 || !S_ISREG(status.st_mode))
        return number;
    if ((flags & O_TMPFILE) == O_TMPFILE && status.st_dev == device_) {
        newFile(status.st_ino); // it may be linked into the folder later
        return number;
    }
    if (!name)
        return number;
    if (!wasThere) {
        add({Kind::make, newFile(status.st_ino), *name, {}, 0, {}});
    } else if ((flags & O_TRUNC) != 0) {
        const int file = fileOf(number);
        if (file >= 0 && !contents_[static_cast<std::size_t>(file)].empty())
            add({Kind::resize, file, {}, {}, 0, {}});
    }
    return number;
}

// The bytes are read back from the file, whichever call wrote them.
ssize_t DiskRecorder::write(int number, std::optional<off_t> at,
                            const std::function<ssize_t()>& carryOut) {
    const std::lock_guard lock(mutex_);
    const int file = fileOf(number);
    if (file < 0)
        return carryOut();
    if (!at && (fcntl(number, F_GETFL) & O_APPEND) != 0)
        at = static_cast<off_t>(contents_[static_cast<std::size_t>(file)].size());
    const off_t place = at ? *at : lseek(number, 0, SEEK_CUR);
    const ssize_t count = carryOut();
    if (count > 0)
        add({Kind::write, file, {}, {}, place, bytesOf(linkOf(number), place, count)});
    return count;
}

int DiskRecorder::resize(int number, off_t size, const std::function<int()>& carryOut) {
    const std::lock_guard lock(mutex_);
    const int file = fileOf(number);
    const int result = carryOut();
    if (file >= 0 && result == 0)
        add({Kind::resize, file, {}, {}, size, {}});
    return result;
}

int DiskRecorder::sync(int number, const std::function<int()>& carryOut) {
    const std::lock_guard lock(mutex_);
    const int result = carryOut();
    if (result != 0)
        return result;
    if (const int file = fileOf(number); file >= 0) {
        compare(file, linkOf(number), "at a sync");
        add({Kind::sync, file, {}, {}, 0, {}});
        return result;
    }
    std::error_code failed;
    const fs::path path = fs::read_symlink(linkOf(number), failed);
    if (path == folder_)
        add({Kind::syncFolder, -1, {}, {}, 0, {}});
    else if (const auto name = nameOf(AT_FDCWD, path.c_str()); name && fs::is_directory(path))
        add({Kind::syncFolder, -1, *name, {}, 0, {}});
    return result;
}

int DiskRecorder::rename(int fromFolder, const char* from, int toFolder, const char* to,
                         const std::function<int()>& carryOut) {
    const std::lock_guard lock(mutex_);
    const auto name = nameOf(fromFolder, from);
    const auto newName = nameOf(toFolder, to);
    const int file = name ? fileAt(*name) : -1;
    const int result = carryOut();
    if (result != 0 || (!name && !newName))
        return result;
    if (file < 0 || !newName) {
        log_.missed.push_back("a folder or a file from elsewhere was renamed");
        return result;
    }
    compare(file, (folder_ / *newName).string(), "at a rename");
    add({Kind::rename, file, *name, *newName, 0, {}});
    return result;
}

int DiskRecorder::link(int folderNumber, const char* path, const std::function<int()>& carryOut) {
    const std::lock_guard lock(mutex_);
    const int result = carryOut();
    const auto name = nameOf(folderNumber, path);
    if (result != 0 || !name)
        return result;
    if (const int file = fileAt(*name); file >= 0)
        add({Kind::link, file, *name, {}, 0, {}});
    else
        log_.missed.push_back("a file from elsewhere was linked");
    return result;
}

int DiskRecorder::remove(int folderNumber, const char* path, const std::function<int()>& carryOut) {
    const std::lock_guard lock(mutex_);
    const auto name = nameOf(folderNumber, path);
    const int file = name ? fileAt(*name) : -1;
    if (file >= 0)
        compare(file, (folder_ / *name).string(), "at a removal");
    const int result = carryOut();
    if (result == 0 && name)
        add({Kind::remove, file, *name, {}, 0, {}});
    return result;
}

int DiskRecorder::makeFolder(int folderNumber, const char* path,
                             const std::function<int()>& carryOut) {
    const std::lock_guard lock(mutex_);
    const int result = carryOut();
    const auto name = nameOf(folderNumber, path);
    if (result == 0 && name)
        add({Kind::makeFolder, -1, *name, {}, 0, {}});
    return result;
}

// Empty for a file that is not below the folder.
std::optional<std::string> DiskRecorder::nameOf(int folderNumber, const char* path) const {
    fs::path whole = path;
    std::error_code failed;
    if (whole.is_relative()) {
        whole = (folderNumber == AT_FDCWD ? fs::current_path(failed)
                                          : fs::read_symlink(linkOf(folderNumber), failed)) /
                whole;
    }
    const std::string relative = whole.lexically_normal().lexically_relative(folder_).string();
    if (relative.empty() || relative == "." || relative.starts_with(".."))
        return std::nullopt;
    return relative;
}

int DiskRecorder::fileOf(int number) const {
    struct stat status {};
    if (fstat(number, &status) != 0 || !S_ISREG(status.st_mode) || status.st_dev != device_)
        return -1;
    const auto known = files_.find(status.st_ino);
    return known == files_.end() ? -1 : known->second;
}

int DiskRecorder::fileAt(const std::string& name) const {
    struct stat status {};
    if (lstat((folder_ / name).c_str(), &status) != 0 || !S_ISREG(status.st_mode))
        return -1;
    const auto known = files_.find(status.st_ino);
    return known == files_.end() ? -1 : known->second;
}

// The number of an inode is used again after its file is gone.
int DiskRecorder::newFile(ino_t inode) {
    const int file = static_cast<int>(contents_.size());
    contents_.emplace_back();
    files_[inode] = file;
    return file;
}

void DiskRecorder::add(Operation operation) {
    if (operation.kind == Kind::write || operation.kind == Kind::resize)
        change(contents_[static_cast<std::size_t>(operation.file)], operation);
    log_.operations.push_back(std::move(operation));
}

void DiskRecorder::compare(int file, const std::string& path, const char* when) {
    if (bytesOf(path) != contents_[static_cast<std::size_t>(file)])
        log_.missed.push_back("file " + std::to_string(file) + " was changed unseen, " + when);
}

} // namespace velorin::disk
