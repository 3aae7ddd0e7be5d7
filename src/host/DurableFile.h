// Files that are on the disk when a call returns, whatever happens to the power afterwards.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <system_error>

namespace velorin::host {

/// A file descriptor, closed by its owner.
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

/// Makes a new file, for the user alone, and writes all of it; what went wrong leaves none. On
/// return the bytes are the system's, so that the end of this process does not lose them.
[[nodiscard]] Descriptor writeNew(const std::filesystem::path& path, const std::string& bytes);

/// Writes all of the bytes at the file's place. False with `errno` set if the disk refused some.
bool writeAll(const Descriptor& file, const std::string& bytes);

/// On return the file's bytes are on the disk. False with `errno` set if the disk refused them.
bool syncFile(const Descriptor& file);
bool syncFile(const std::filesystem::path& path);

/// On return the folder's names are on the disk: what was made, renamed and removed in it. An empty
/// path is the current folder.
bool syncFolder(const std::filesystem::path& folder);

/// Puts a file that was written aside, in the same folder, in place of `path`: syncs it, renames
/// it, and syncs the folder. At every moment of a power cut either the old or the new file is
/// whole. `aside` stays where it is if it could not be synced or renamed.
[[nodiscard]] std::error_code replaceDurably(const std::filesystem::path& aside,
                                             const std::filesystem::path& path);

/// Writes aside under a hidden name, renames, and waits for the disk. An existing file is not
/// replaced.
bool writeLasting(const std::filesystem::path& path, const std::string& bytes);

/// Makes a folder, if it is missing, and the folders that it is in. On return their names are on
/// the disk, or what is written into them would be lost with them. `mode` is of the last one.
void makeFolderLasting(const std::filesystem::path& folder, unsigned mode);

/// The content; no value if the file cannot be read.
[[nodiscard]] std::optional<std::string> readWhole(const std::filesystem::path& path);

} // namespace velorin::host
