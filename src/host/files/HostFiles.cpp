// Files through the standard library's streams and file system calls.
#include "host/files/HostFiles.h"

#include "host/disk/DurableFile.h"
#include "host/disk/FileReplacement.h"
#include "host/process/OnceLogger.h"
#include "platform/PathLookup.h"

#ifdef __linux__
#include <linux/magic.h>
#include <sys/vfs.h>
#endif

#include <algorithm>
#include <array>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <system_error>

namespace velorin::host {

namespace fs = std::filesystem;

namespace {

bool isPipe(const fs::path& path) {
    std::error_code error;
    return fs::is_fifo(path, error);
}

/// Virtual files, which the kernel generates while they are read. They have no size and may have no
/// end, and one of them blocks until the next kernel message.
bool isVirtual(const fs::path& path) {
#ifdef __linux__
    struct statfs system {};
    if (statfs(path.c_str(), &system) != 0)
        return false;
    constexpr std::array<std::uint32_t, 4> virtualSystems{PROC_SUPER_MAGIC, SYSFS_MAGIC,
                                                          DEBUGFS_MAGIC, TRACEFS_MAGIC};
    return std::find(virtualSystems.begin(), virtualSystems.end(),
                     static_cast<std::uint32_t>(system.f_type)) != virtualSystems.end();
#else
    return false;
#endif
}

/// A write-protected file is not deleted, whatever its folder allows.
bool isWriteProtected(const fs::path& path) {
    constexpr fs::perms writable =
        fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write;
    std::error_code error;
    const fs::file_status status = fs::status(path, error);
    return fs::exists(status) && (status.permissions() & writable) == fs::perms::none;
}

/// A file written incrementally by a caller that ignores errors. Logs at its end if something could
/// not be written, since no window does.
class UpdatedFile final : public std::fstream {
public:
    explicit UpdatedFile(const fs::path& path)
        : std::fstream(path, std::ios::binary | std::ios::in | std::ios::out), path_(path) {}
    ~UpdatedFile() override {
        if (!is_open())
            return;
        bool failed = bad();
        clear(); // reading may have reached the end
        close();
        failed = failed || fail();
        if (failed)
            OnceLogger().log(path_.string() + " could not be written whole; is the disk full?");
    }
    UpdatedFile(const UpdatedFile&) = delete;
    UpdatedFile& operator=(const UpdatedFile&) = delete;

private:
    fs::path path_;
};

// A stream that neither truncates nor appends must be open for reading too, and then creates no
// file. So a missing file is created first.
std::unique_ptr<std::iostream> updated(const fs::path& path) {
    std::error_code error;
    if (isPipe(path) || fs::is_directory(path, error))
        return nullptr;
    if (!fs::exists(path, error))
        std::ofstream(path, std::ios::binary | std::ios::app).close();
    auto stream = std::make_unique<UpdatedFile>(path);
    if (!stream->is_open())
        return nullptr;
    return stream;
}

} // namespace

std::unique_ptr<std::istream> HostFiles::openForInput(const std::string& name) {
    const fs::path path = platform::resolve(name);
    std::error_code error;
    if (!fs::is_regular_file(path, error) || isVirtual(path))
        return nullptr;
    auto stream = std::make_unique<std::ifstream>(path, std::ios::binary);
    if (!stream->is_open())
        return nullptr;
    return stream;
}

std::unique_ptr<std::iostream> HostFiles::openForUpdate(const std::string& name) {
    return updated(platform::resolve(name));
}

std::unique_ptr<std::ostream> HostFiles::openForBinary(const std::string& name) {
    return updated(platform::resolveForWriting(name));
}

platform::WriteError HostFiles::replace(const std::string& name, const std::string& bytes) {
    return replaceFile(platform::resolveForWriting(name), bytes);
}

platform::WriteError HostFiles::overwrite(const std::string& name, const std::string& bytes) {
    return replaceFile(platform::resolveForWriting(name), bytes, OldTail::kept);
}

bool HostFiles::canRead(const std::string& name) {
    return openForInput(name) != nullptr;
}

bool HostFiles::remove(const std::string& name) {
    const fs::path path = platform::resolve(name);
    std::error_code error;
    if (fs::is_directory(fs::symlink_status(path, error)) || isWriteProtected(path))
        return false;
    return fs::remove(path, error) && !error;
}

bool HostFiles::createFolder(const std::string& name) {
    std::error_code error;
    const fs::path folder = platform::resolve(name);
    if (!fs::create_directory(folder, error) || error)
        return false;
    (void)syncFolder(folder.parent_path()); // so that a power cut does not lose it with its files
    return true;
}

bool HostFiles::sync(const std::string& name) {
    const fs::path path = platform::resolve(name);
    return syncFile(path) && syncFolder(path.parent_path());
}

} // namespace velorin::host
