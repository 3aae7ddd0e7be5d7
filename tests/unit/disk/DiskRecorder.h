// Records the operations of this program below one folder.
#pragma once

#include "DiskLog.h"

#include <sys/types.h>

#include <filesystem>
#include <functional>
#include <mutex>
#include <optional>
#include <string>
#include <unordered_map>

namespace velorin::disk {

/// This program interposes open, write, fsync, rename and the like (InterposedCalls.cpp), for its
/// libraries too. While a recorder lives, the calls go through it: it executes each call and
/// records the result. A file that is changed by other calls is detected by comparing its bytes, at
/// each sync, rename and removal and at the end. One recorder at a time; calls may come from any
/// thread.
class DiskRecorder {
public:
    /// Assumes that the current content of the folder is on the disk.
    explicit DiskRecorder(const std::filesystem::path& folder);
    ~DiskRecorder();
    DiskRecorder(const DiskRecorder&) = delete;
    DiskRecorder& operator=(const DiskRecorder&) = delete;

    void mark(const std::string& text); ///< for example "saved": what the program has reported
    [[nodiscard]] DiskLog finish();     ///< ends the recording

    /// True if all bytes and names so far have been synced, to wait for a thread that does it.
    [[nodiscard]] bool isAllOnTheDisk();

    // For the interposed calls: `carryOut` makes the system's call; its result is returned.
    int open(int folderNumber, const char* path, int flags, const std::function<int()>& carryOut);
    ssize_t write(int number, std::optional<off_t> at, const std::function<ssize_t()>& carryOut);
    int resize(int number, off_t size, const std::function<int()>& carryOut);
    int sync(int number, const std::function<int()>& carryOut);
    int rename(int fromFolder, const char* from, int toFolder, const char* to,
               const std::function<int()>& carryOut);
    int link(int folderNumber, const char* path, const std::function<int()>& carryOut);
    int remove(int folderNumber, const char* path, const std::function<int()>& carryOut);
    int makeFolder(int folderNumber, const char* path, const std::function<int()>& carryOut);

private:
    [[nodiscard]] std::optional<std::string> nameOf(int folderNumber, const char* path) const;
    [[nodiscard]] int fileOf(int number) const;              ///< -1: no file of the folder
    [[nodiscard]] int fileAt(const std::string& name) const; ///< likewise
    int newFile(ino_t inode);
    void add(Operation operation);
    void compare(int file, const std::string& path, const char* when);

    std::filesystem::path folder_;
    dev_t device_ = 0;
    std::mutex mutex_;
    DiskLog log_;
    std::vector<std::string> contents_; ///< by file, as the calls have made them
    std::unordered_map<ino_t, int> files_;
};

/// The current recorder; null if there is none.
[[nodiscard]] DiskRecorder* activeRecorder();

} // namespace velorin::disk
