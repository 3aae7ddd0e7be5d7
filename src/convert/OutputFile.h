// An output file that appears under its name only when it is complete.
#pragma once

#include "convert/Options.h"
#include "host/disk/TempFile.h"
#include "platform/Result.h"

#include <filesystem>
#include <string>

namespace velorin::convert {

/// Written under a temporary name in the same folder, then synced and renamed. Without `finish` it
/// is removed.
class OutputFile {
public:
    explicit OutputFile(const std::filesystem::path& target,
                        Existing existing = Existing::replaced);

    /// Creates the file, empty. Fails if the target's name is too long.
    platform::Result<void> begin();

    /// The temporary name, valid after `begin`.
    [[nodiscard]] const std::filesystem::path& part() const { return part_.path(); }

    /// Appends bytes.
    platform::Result<void> write(const std::string& bytes);

    /// Moves the file to its target, on the disk.
    platform::Result<void> finish();

private:
    std::filesystem::path target_;
    Existing existing_;
    host::TempFile part_;
};

/// Writes a complete file.
platform::Result<void> writeOutput(const std::filesystem::path& target, const std::string& content,
                                   Existing existing = Existing::replaced);

/// The folder of the temporary file for `target`; empty for the current folder.
[[nodiscard]] std::filesystem::path folderOf(const std::filesystem::path& target);

/// Creates a folder and its parents on the disk. Failures are not reported: the next write to the
/// folder fails.
void makeFolders(const std::filesystem::path& folder);

/// Why a file cannot be written, with the message of the system if there is one.
[[nodiscard]] std::string cannotBeWritten(std::error_code why);

} // namespace velorin::convert
