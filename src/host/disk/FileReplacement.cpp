// Replacing a file: through a temp file, or in place if the folder takes no new file.
#include "host/disk/FileReplacement.h"

#include "host/disk/TempFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <optional>
#include <system_error>

namespace velorin::host {

namespace fs = std::filesystem;
using platform::WriteError;

namespace {

constexpr mode_t anyPermission = 07777;
constexpr mode_t mayBeWritten = S_IWUSR | S_IWGRP | S_IWOTH;

WriteError reasonOf(int error) {
    switch (error) {
    case 0:
        return WriteError::none;
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
        return WriteError::diskFull;
    case ENOENT:
    case ENOTDIR:
        return WriteError::folderMissing;
    case EROFS:
        return WriteError::readOnly;
    case EACCES:
    case EPERM:
        return WriteError::notAllowed;
    case EISDIR:
        return WriteError::notAFile;
    case ENAMETOOLONG:
        return WriteError::nameTooLong;
    default:
        return WriteError::other;
    }
}

/// The target of symbolic links, which need not exist; the last link of a circle.
fs::path followLinks(fs::path path) {
    constexpr int mostLinks = 40; // as many as the system follows
    std::error_code error;
    for (int links = 0; links < mostLinks && fs::is_symlink(path, error); ++links) {
        const fs::path target = fs::read_symlink(path, error);
        if (error)
            break;
        path = path.parent_path() / target;
    }
    return path;
}

/// Writes at offset `at` and leaves the file's position alone. Returns 0 or the error.
int writeAt(const Descriptor& file, off_t at, const char* bytes, std::size_t count) {
    std::size_t done = 0;
    while (done < count) {
        const ssize_t written =
            pwrite(file.number(), bytes + done, count - done, at + static_cast<off_t>(done));
        if (written < 0 && errno == EINTR)
            continue;
        if (written <= 0)
            return written < 0 ? errno : EIO;
        done += static_cast<std::size_t>(written);
    }
    return 0;
}

/// Reads up to `count` bytes; fewer at the file's end. No value if the file cannot be read.
std::optional<std::string> readAt(const Descriptor& file, off_t at, std::size_t count) {
    std::string bytes(count, '\0');
    std::size_t done = 0;
    while (done < count) {
        const ssize_t got =
            pread(file.number(), bytes.data() + done, count - done, at + static_cast<off_t>(done));
        if (got < 0 && errno == EINTR)
            continue;
        if (got < 0)
            return std::nullopt;
        if (got == 0)
            break;
        done += static_cast<std::size_t>(got);
    }
    bytes.resize(done);
    return bytes;
}

int synced(const Descriptor& file) {
    return syncFile(file) ? 0 : errno;
}

/// Copies the access list, which a mode cannot express. Not every file system has one.
void copyAccessList(const Descriptor& file, const fs::path& from) {
    constexpr const char* accessList = "system.posix_acl_access";
    std::array<char, 4096> list{};
    const ssize_t size = getxattr(from.c_str(), accessList, list.data(), list.size());
    if (size > 0)
        fsetxattr(file.number(), accessList, list.data(), static_cast<std::size_t>(size), 0);
    else if (errno == ENODATA)
        fremovexattr(file.number(), accessList); // inherited from the folder
}

/// One save of one file. Every step returns 0 or the error.
class Replacement {
public:
    Replacement(const fs::path& path, const std::string& bytes, OldTail tail)
        : path_(followLinks(path)), bytes_(bytes), tail_(tail) {}

    WriteError run();

private:
    [[nodiscard]] bool isWritable() const;
    int writeTemp();
    int copyPermissions();
    int appendTail();
    int putInPlace();
    WriteError writeInPlace();
    int writeOver(const Descriptor& file, off_t oldSize);

    fs::path path_;
    const std::string& bytes_;
    OldTail tail_;
    struct stat old_ {};
    bool isThere_ = false;
    TempFile temp_;
};

WriteError Replacement::run() {
    isThere_ = stat(path_.c_str(), &old_) == 0;
    if (!isThere_ && errno != ENOENT)
        return reasonOf(errno);
    if (path_.filename().empty() || (isThere_ && !S_ISREG(old_.st_mode)))
        return WriteError::notAFile;
    if (isThere_ && !isWritable())
        return WriteError::readOnly;
    int error = writeTemp();
    if (error == 0)
        error = putInPlace();
    if (error == 0) {
        removeAbandonedTempFiles(path_.parent_path());
        return WriteError::none;
    }
    // The folder takes no new file, the owner cannot be set, or something is mounted on the file.
    const bool takesNoOther = error == EACCES || error == EPERM || error == EBUSY;
    return isThere_ && takesNoOther ? writeInPlace() : reasonOf(error);
}

/// A write-protected file is not replaced, whatever its folder allows.
bool Replacement::isWritable() const {
    return (old_.st_mode & mayBeWritten) != 0 &&
           faccessat(AT_FDCWD, path_.c_str(), W_OK, AT_EACCESS) == 0;
}

// The permissions are set before the bytes are written, so that nobody reads what they could not
// read before.
int Replacement::writeTemp() {
    int error = temp_.create(path_.parent_path()).value();
    if (error == 0 && isThere_)
        error = copyPermissions();
    if (error == 0)
        error = temp_.write(bytes_).value();
    return error == 0 && isThere_ && tail_ == OldTail::kept ? appendTail() : error;
}

int Replacement::copyPermissions() {
    const int temp = temp_.file().number();
    struct stat made {};
    if (fstat(temp, &made) != 0)
        return errno;
    const bool hasOwner = made.st_uid == old_.st_uid && made.st_gid == old_.st_gid;
    if (!hasOwner && fchown(temp, old_.st_uid, old_.st_gid) != 0)
        return errno;
    const mode_t wanted = old_.st_mode & anyPermission;
    if ((made.st_mode & anyPermission) != wanted && fchmod(temp, wanted) != 0)
        return errno;
    copyAccessList(temp_.file(), path_);
    return 0;
}

int Replacement::appendTail() {
    constexpr std::size_t most = 1 << 20;
    const Descriptor old(open(path_.c_str(), O_RDONLY | O_CLOEXEC));
    if (!old.isOpen())
        return errno;
    for (auto at = static_cast<off_t>(bytes_.size());;) {
        const auto piece = readAt(old, at, most);
        if (!piece)
            return EIO;
        if (piece->empty())
            return 0;
        if (const auto error = temp_.write(*piece))
            return error.value();
        at += static_cast<off_t>(piece->size());
    }
}

// A folder that cannot be opened for reading cannot be synced alone, so the file system is.
int Replacement::putInPlace() {
    const std::error_code failed = replaceDurably(temp_.path(), path_);
    std::error_code ignored;
    const bool isRenamed = !fs::exists(fs::symlink_status(temp_.path(), ignored));
    if (isRenamed && failed.value() == EACCES)
        return syncfs(temp_.file().number()) == 0 ? 0 : errno;
    return failed.value();
}

// The steps that may fail come first: room for a longer file is allocated before a byte changes,
// and a shorter file is truncated last. Of the old file, only what the new bytes cover is held in
// memory.
WriteError Replacement::writeInPlace() {
    const Descriptor file(open(path_.c_str(), O_RDWR | O_CLOEXEC));
    if (!file.isOpen())
        return WriteError::readOnly;
    const auto held = readAt(file, 0, bytes_.size());
    if (!held)
        return WriteError::other;
    const int error = writeOver(file, old_.st_size);
    if (error == 0)
        return WriteError::none;
    const bool isBack = writeAt(file, 0, held->data(), held->size()) == 0 &&
                        ftruncate(file.number(), old_.st_size) == 0 && syncFile(file);
    return isBack ? reasonOf(error) : WriteError::damaged;
}

int Replacement::writeOver(const Descriptor& file, off_t oldSize) {
    const auto size = static_cast<off_t>(bytes_.size());
    if (size > oldSize) {
        const int error = posix_fallocate(file.number(), 0, size);
        if (error != 0 && error != EINVAL && error != EOPNOTSUPP)
            return error;
    }
    int error = writeAt(file, 0, bytes_.data(), bytes_.size());
    if (error == 0)
        error = synced(file);
    if (error != 0 || tail_ == OldTail::kept || size >= oldSize)
        return error;
    return ftruncate(file.number(), size) == 0 ? synced(file) : errno;
}

} // namespace

WriteError replaceFile(const fs::path& path, const std::string& bytes, OldTail tail) {
    return Replacement(path, bytes, tail).run();
}

} // namespace velorin::host
