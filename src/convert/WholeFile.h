// A file that appears under its name only when it is whole.
#pragma once

#include "host/AsideFile.h"

#include <filesystem>
#include <string>

namespace velorin::convert {

/// Written beside its place under another name, then synced and renamed. Without `finish` it goes
/// away again.
class WholeFile {
public:
    explicit WholeFile(const std::filesystem::path& target);

    /// Makes the file, empty. Returns why that failed; empty if it went well.
    [[nodiscard]] std::string begin();

    /// The name to write to from then on.
    [[nodiscard]] const std::filesystem::path& part() const { return part_.path(); }

    /// Appends bytes. Returns why that failed; empty if it went well.
    [[nodiscard]] std::string write(const std::string& bytes);

    /// Puts the file in its place, on the disk. Returns why that failed; empty if it went well.
    [[nodiscard]] std::string finish();

private:
    std::filesystem::path target_;
    host::AsideFile part_;
};

/// Writes a whole file. Returns why that failed; empty if it went well.
[[nodiscard]] std::string writeWhole(const std::filesystem::path& target,
                                     const std::string& content);

/// The folder in which a file is written before it is put in the place of `target`; empty is the
/// current one.
[[nodiscard]] std::filesystem::path folderOf(const std::filesystem::path& target);

/// Makes a folder that is missing, and those that it lies in, on the disk. What fails shows when a
/// file is written there.
void makeFolders(const std::filesystem::path& folder);

/// Why a file cannot be written, in the system's words where it has any.
[[nodiscard]] std::string cannotBeWritten(std::error_code why);

} // namespace velorin::convert
