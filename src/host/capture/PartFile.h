// The hidden file that a recording is written to until it gets its name.
#pragma once

#include "host/disk/DurableFile.h"

#include <filesystem>
#include <system_error>
#include <vector>

namespace velorin::host {

/// Locked while it is open. A lock ends with its process, so an unlocked file was left by a crash.
/// Only `remove` deletes the file.
class PartFile {
public:
    /// Creates a file in an existing folder, under a name that no other recording has, of this copy
    /// of the program or another one. Not open if that failed; `error` then says why.
    [[nodiscard]] static PartFile create(const std::filesystem::path& folder,
                                         std::error_code& error);

    /// The unlocked files in a folder, now locked for the caller.
    [[nodiscard]] static std::vector<PartFile> abandoned(const std::filesystem::path& folder);

    PartFile() = default;

    [[nodiscard]] bool isOpen() const { return file_.isOpen(); }
    [[nodiscard]] int number() const { return file_.number(); } ///< for reading and writing
    [[nodiscard]] const std::filesystem::path& path() const { return path_; }

    /// True if `path` names this file now, whatever name it was created under.
    [[nodiscard]] bool isAt(const std::filesystem::path& path) const;

    void remove(); ///< and closes it

private:
    PartFile(std::filesystem::path path, Descriptor file)
        : path_(std::move(path)), file_(std::move(file)) {}

    /// Not open if the file is locked by another process, or was removed or replaced meanwhile.
    [[nodiscard]] static PartFile locked(std::filesystem::path path, Descriptor file);

    std::filesystem::path path_;
    Descriptor file_;
};

} // namespace velorin::host
