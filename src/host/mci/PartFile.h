// The hidden file that a recording grows in until it is saved.
#pragma once

#include <filesystem>

namespace velorin::host {

/// Locked as long as this lives, and removed by the destructor if it still has its name. A lock
/// ends with its process, so one without a lock is what a crash has left.
class PartFile {
public:
    /// Makes nothing yet. The name is that of no other recording, of this program or another copy.
    explicit PartFile(const std::filesystem::path& folder);
    ~PartFile();
    PartFile(const PartFile&) = delete;
    PartFile& operator=(const PartFile&) = delete;

    /// Makes the file, empty, and locks it. One that cannot be made is found out by its writer.
    void make();

    [[nodiscard]] const std::filesystem::path& path() const { return path_; }

private:
    std::filesystem::path path_;
    int lock_ = -1;
};

/// Removes the hidden files of recordings in a folder that nobody has locked.
void sweepParts(const std::filesystem::path& folder);

} // namespace velorin::host
