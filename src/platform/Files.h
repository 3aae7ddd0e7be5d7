// The host's files, by name: UTF-8 paths in which '\' and '/' both separate. Files to be read are
// found whatever their case; files to be written get exactly the name given.
#pragma once

#include "platform/WriteError.h"

#include <iosfwd>
#include <memory>
#include <string>

namespace platform {

/// Every call takes a name as the program has it (see PathLookup.h). A call that reads tries the
/// exact name first, then one that differs in case only; a call that writes takes the exact name. A
/// null stream is a failed open.
class Files {
public:
    virtual ~Files() = default;

    /// For reading, binary. Null if there is no readable file; a directory is none.
    [[nodiscard]] virtual std::unique_ptr<std::istream> openForInput(const std::string& name) = 0;

    /// For writing from the first byte on, binary, created if missing and never truncated: bytes
    /// after the last byte written stay.
    [[nodiscard]] virtual std::unique_ptr<std::ostream> openForBinary(const std::string& name) = 0;

    /// For reading and writing, binary, created if missing and never truncated. Both share one
    /// position. An existing file is found as for reading.
    [[nodiscard]] virtual std::unique_ptr<std::iostream> openForUpdate(const std::string& name) = 0;

    /// Writes the whole file at once, and returns when it is on the disk. Even in a crash or a
    /// power cut, the old or the new file is whole. On an error the old file is as it was and no
    /// new one is left, unless the error is `damaged`.
    [[nodiscard]] virtual WriteError replace(const std::string& name, const std::string& bytes) = 0;

    /// The same, but a longer file keeps its bytes after the last new one.
    [[nodiscard]] virtual WriteError overwrite(const std::string& name,
                                               const std::string& bytes) = 0;

    /// True if `openForInput` would open the file.
    [[nodiscard]] virtual bool canRead(const std::string& name) = 0;

    // These return whether they succeeded.
    [[nodiscard]] virtual bool remove(const std::string& name) = 0; ///< found as for reading
    [[nodiscard]] virtual bool
    createFolder(const std::string& name) = 0; ///< false also if it was there

    /// On return the file, which must be closed, is on the disk with its name. False if there is no
    /// such file or that failed.
    [[nodiscard]] virtual bool sync(const std::string& name) = 0;
};

} // namespace platform
