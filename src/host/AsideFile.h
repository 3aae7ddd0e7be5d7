// A file that is written aside until it is whole.
#pragma once

#include "host/DurableFile.h"

#include <filesystem>
#include <string>
#include <system_error>

namespace velorin::host {

/// A hidden file beside the one that it will replace, under a short name of its own: the name of
/// the other one may be as long as the system allows. It stays locked while its owner lives, so
/// that the files of a process that was killed can be told from those that are being written.
class AsideFile {
public:
    AsideFile() = default;
    ~AsideFile(); ///< removes the file, unless it was renamed
    AsideFile(const AsideFile&) = delete;
    AsideFile& operator=(const AsideFile&) = delete;

    /// Makes it, empty. To be called once.
    [[nodiscard]] std::error_code make(const std::filesystem::path& folder);

    /// Its name; empty before it is made.
    [[nodiscard]] const std::filesystem::path& path() const { return path_; }

    /// Open for reading and writing.
    [[nodiscard]] const Descriptor& file() const { return file_; }

    /// Appends bytes.
    [[nodiscard]] std::error_code write(const std::string& bytes);

private:
    std::filesystem::path path_;
    Descriptor file_; ///< holds the lock
};

/// Removes the files in a folder whose owners were killed. An empty path is the current folder.
void removeAbandoned(const std::filesystem::path& folder);

} // namespace velorin::host
