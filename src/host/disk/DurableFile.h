// Writes that are on the disk when the call returns, so that a power cut cannot undo them.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <system_error>

namespace velorin::host {

/// Owns a file descriptor and closes it.
class Descriptor {
public:
    explicit Descriptor(int number = -1) : number_(number) {}
    ~Descriptor();
    Descriptor(Descriptor&& other) noexcept : number_(other.release()) {}
    Descriptor& operator=(Descriptor&& other) noexcept;
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    [[nodiscard]] int number() const { return number_; }
    [[nodiscard]] bool isOpen() const { return number_ >= 0; }
    [[nodiscard]] int release();

private:
    int number_;
};

/// The mode of a file that only the user can read and write.
constexpr unsigned int userOnlyMode = 0600;

/// Creates a file for the user alone and writes all of it. On failure no file is left, and the
/// result is not open. On return the system has the bytes, so the end of this process does not lose
/// them.
[[nodiscard]] Descriptor writeNewFile(const std::filesystem::path& path, const std::string& bytes);

/// Writes all of the bytes at the file's position. False, with `errno` set, if some could not be
/// written.
[[nodiscard]] bool writeAll(const Descriptor& file, const std::string& bytes);

/// On return the file's bytes are on the disk. False, with `errno` set, if that failed.
[[nodiscard]] bool syncFile(const Descriptor& file);
[[nodiscard]] bool syncFile(const std::filesystem::path& path);

/// On return the folder's entries are on the disk: what was created, renamed and removed in it.
/// False, with `errno` set, if that failed. An empty path is the current folder.
[[nodiscard]] bool syncFolder(const std::filesystem::path& folder);

/// Replaces `path` with `temp`, a file in the same folder: syncs it, renames it, and syncs the
/// folder. Whenever the power fails, the old or the new file is whole. `temp` stays if it could not
/// be synced or renamed.
[[nodiscard]] std::error_code replaceDurably(const std::filesystem::path& temp,
                                             const std::filesystem::path& path);

/// The same for a new name: if `path` exists, it stays as it is, and the error is "File exists".
[[nodiscard]] std::error_code placeDurably(const std::filesystem::path& temp,
                                           const std::filesystem::path& path);

/// Writes a hidden temp file, syncs it, renames it to `path`, and syncs the folder. False if that
/// failed or `path` exists: an existing file is not replaced.
[[nodiscard]] bool writeDurably(const std::filesystem::path& path, const std::string& bytes);

/// Creates a folder and its parents, if they are missing. On return their names are on the disk;
/// otherwise a power cut could lose them with what is written into them. `mode` is that of the last
/// one. Failures show when a file is created there.
void createFoldersDurably(const std::filesystem::path& folder, unsigned mode);

/// The content; no value if the file cannot be read.
[[nodiscard]] std::optional<std::string> readFile(const std::filesystem::path& path);

} // namespace velorin::host
