// Records what this program asks of the disk below one folder.
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

/// This program's own open, write, fsync, rename and the like stand before the system's
/// (InterposedCalls.cpp), for the libraries too. While a recorder lives they go through it; it
/// carries each call out and keeps what came of it. A file that a library changes past those calls
/// is found by comparing its bytes, at each sync, rename and removal and at the end. One recorder
/// at a time; calls may come from any thread.
class DiskRecorder {
public:
    /// Takes what is in the folder now as being on the disk.
    explicit DiskRecorder(const std::filesystem::path& folder);
    ~DiskRecorder();
    DiskRecorder(const DiskRecorder&) = delete;
    DiskRecorder& operator=(const DiskRecorder&) = delete;

    void mark(const std::string& text); ///< "saved": what the program has told the user
    [[nodiscard]] DiskLog finish();     ///< ends the recording

    /// How often the names in a folder were synced so far: for waiting for a thread that writes.
    [[nodiscard]] int syncsOfFolder(const std::string& name);

    // For the calls: `carryOut` is the system's own, and its result goes back.
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
    [[nodiscard]] int fileOf(int number) const;              ///< -1: none of the folder's
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

/// The recorder that lives; null if none does.
[[nodiscard]] DiskRecorder* activeRecorder();

} // namespace velorin::disk
