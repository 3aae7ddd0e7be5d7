// Files through the standard library's streams and file system calls.
#include "host/HostFiles.h"

#include "host/Complaint.h"
#include "host/DurableFile.h"
#include "host/FileReplacement.h"
#include "platform/CaseBlind.h"

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

/// Files that the system makes up while they are read have no size, may have no end, and one of
/// them waits for the system's next message.
bool isMadeUp(const fs::path& path) {
#ifdef __linux__
    struct statfs system {};
    if (statfs(path.c_str(), &system) != 0)
        return false;
    constexpr std::array<std::uint32_t, 4> madeUp{PROC_SUPER_MAGIC, SYSFS_MAGIC, DEBUGFS_MAGIC,
                                                  TRACEFS_MAGIC};
    return std::find(madeUp.begin(), madeUp.end(), static_cast<std::uint32_t>(system.f_type)) !=
           madeUp.end();
#else
    return false;
#endif
}

/// A file that nobody may write to is not deleted either, whatever its folder allows.
bool isWriteProtected(const fs::path& path) {
    constexpr fs::perms writable =
        fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write;
    std::error_code error;
    const fs::file_status status = fs::status(path, error);
    return fs::exists(status) && (status.permissions() & writable) == fs::perms::none;
}

/// What is written to it bit by bit, by one who goes on whether it is there or not. Says in the end
/// if it is not, since no window does.
class UpdatedFile final : public std::fstream {
public:
    explicit UpdatedFile(const fs::path& path)
        : std::fstream(path, std::ios::binary | std::ios::in | std::ios::out), path_(path) {}
    ~UpdatedFile() override {
        if (!is_open())
            return;
        bool failed = bad();
        clear(); // of the end that was read to
        close();
        failed = failed || fail();
        if (failed)
            Complaint().say(path_.string() + " could not be written whole; is the disk full?");
    }
    UpdatedFile(const UpdatedFile&) = delete;
    UpdatedFile& operator=(const UpdatedFile&) = delete;

private:
    fs::path path_;
};

// A stream that neither truncates nor appends has to be open for reading too, and then makes no
// file; so a missing file is made first.
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
    if (!fs::is_regular_file(path, error) || isMadeUp(path))
        return nullptr;
    auto stream = std::make_unique<std::ifstream>(path, std::ios::binary);
    if (!stream->is_open())
        return nullptr;
    return stream;
}

std::unique_ptr<std::ostream> HostFiles::openForOutput(const std::string& name) {
    const fs::path path = platform::resolveForWriting(name);
    if (isPipe(path))
        return nullptr;
    auto stream = std::make_unique<std::ofstream>(path, std::ios::binary | std::ios::trunc);
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
    return replaceFile(platform::resolveForWriting(name), bytes, OldTail::stays);
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
    syncFolder(folder.parent_path()); // or what is saved into it could be lost with it
    return true;
}

bool HostFiles::sync(const std::string& name) {
    const fs::path path = platform::resolve(name);
    return syncFile(path) && syncFolder(path.parent_path());
}

} // namespace velorin::host
