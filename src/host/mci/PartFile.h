// The hidden file that a recording grows in until it has its name.
#pragma once

#include "host/DurableFile.h"

#include <filesystem>
#include <system_error>
#include <vector>

namespace velorin::host {

/// Locked as long as it is open. A lock ends with its process, so a file without one is what a
/// crash has left. Nothing here removes a file but `remove`.
class PartFile {
public:
    /// Makes a new file in a folder that is there. The name is that of no other recording, of this
    /// program or another copy. Not open if that cannot be done; `error` says why then.
    [[nodiscard]] static PartFile make(const std::filesystem::path& folder, std::error_code& error);

    /// The files in a folder that nobody has locked, locked for the caller.
    [[nodiscard]] static std::vector<PartFile> left(const std::filesystem::path& folder);

    PartFile() = default;

    [[nodiscard]] bool isOpen() const { return file_.isOpen(); }
    [[nodiscard]] int number() const { return file_.number(); } ///< for reading and writing
    [[nodiscard]] const std::filesystem::path& path() const { return path_; }

    /// Whether the file, under whichever name it was made, has this one now.
    [[nodiscard]] bool isAt(const std::filesystem::path& path) const;

    void remove(); ///< and closes it

private:
    PartFile(std::filesystem::path path, Descriptor file)
        : path_(std::move(path)), file_(std::move(file)) {}

    /// Not open if the file is locked, or has gone or been replaced meanwhile.
    [[nodiscard]] static PartFile locked(std::filesystem::path path, Descriptor file);

    std::filesystem::path path_;
    Descriptor file_;
};

} // namespace velorin::host
