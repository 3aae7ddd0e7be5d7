// The files of one folder as far as keeping needs them: locks that end with their process, writing
// that lasts, and listing.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

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

/// Makes the file if it is missing and locks it. Not open if another process holds the lock, or if
/// the file cannot be made. The lock ends with the descriptor, and so with the process.
[[nodiscard]] Descriptor lockFile(const std::filesystem::path& path);

/// Makes a new file, for the user alone, and writes all of it; what went wrong leaves none. On
/// return the bytes are the system's, so that the end of this process does not lose them.
[[nodiscard]] Descriptor writeNew(const std::filesystem::path& path, const std::string& bytes);

/// On return the bytes, or the folder's names, are on the disk.
bool syncFile(const Descriptor& file);
bool syncFolder(const std::filesystem::path& folder);

/// Writes aside, renames, and waits for the disk. An existing file is not replaced.
bool writeLasting(const std::filesystem::path& path, const std::string& bytes);

/// The content; no value if the file cannot be read.
[[nodiscard]] std::optional<std::string> readWhole(const std::filesystem::path& path);

/// The names in a folder, in no order; none if it cannot be read.
[[nodiscard]] std::vector<std::string> namesIn(const std::filesystem::path& folder);

} // namespace velorin::host
