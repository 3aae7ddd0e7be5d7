// A hidden temp file, written in the folder of the file that it will replace.
#pragma once

#include "host/disk/DurableFile.h"

#include <filesystem>
#include <string>
#include <system_error>

namespace velorin::host {

/// Its name is short, since the name of the other file may be as long as the system allows. It
/// stays locked while its owner lives, which tells the files of a killed process from those that
/// are being written.
class TempFile {
public:
    TempFile() = default;
    ~TempFile(); ///< removes the file, unless it was renamed
    TempFile(const TempFile&) = delete;
    TempFile& operator=(const TempFile&) = delete;

    /// Creates the file, empty. Call it once.
    [[nodiscard]] std::error_code create(const std::filesystem::path& folder);

    /// Its path; empty before `create`.
    [[nodiscard]] const std::filesystem::path& path() const { return path_; }

    /// Open for reading and writing.
    [[nodiscard]] const Descriptor& file() const { return file_; }

    /// Appends bytes.
    [[nodiscard]] std::error_code write(const std::string& bytes);

private:
    std::filesystem::path path_;
    Descriptor file_; ///< holds the lock
};

/// Removes the temp files that killed processes have left in a folder. An empty path is the current
/// folder.
void removeAbandonedTempFiles(const std::filesystem::path& folder);

} // namespace velorin::host
