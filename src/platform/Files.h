// The host's files, by name: UTF-8 paths in which '\' and '/' both separate. Files to be read are
// found without regard to case; files to be written have exactly the name that is given.
#pragma once

#include "platform/WriteError.h"

#include <iosfwd>
#include <memory>
#include <string>

namespace platform {

/// Every call takes a name as the program has it (see CaseBlind.h). A call that reads tries the
/// exact name first, then one that differs in case only; a call that writes takes the exact name. A
/// stream that is null stands for a failed open.
class Files {
public:
    virtual ~Files() = default;

    /// For reading, binary. Null for what is no readable file, a directory among others.
    [[nodiscard]] virtual std::unique_ptr<std::istream> openForInput(const std::string& name) = 0;

    /// For writing, binary, created or truncated.
    [[nodiscard]] virtual std::unique_ptr<std::ostream> openForOutput(const std::string& name) = 0;

    /// For writing from the first byte on, binary, created if missing and never truncated: what the
    /// file holds behind the last byte written stays.
    [[nodiscard]] virtual std::unique_ptr<std::ostream> openForBinary(const std::string& name) = 0;

    /// For reading and writing, binary, created if missing and never truncated. Both have one place
    /// in the file. A file that is there is found as for reading.
    [[nodiscard]] virtual std::unique_ptr<std::iostream> openForUpdate(const std::string& name) = 0;

    /// Writes the whole file at once, and returns when it is on the disk. At every moment, also of
    /// a crash or a power cut, the old or the new file is whole. On an error the old file is as it
    /// was and no new one is left, unless the error is `damaged`.
    [[nodiscard]] virtual WriteError replace(const std::string& name, const std::string& bytes) = 0;

    /// The same, but a longer file keeps what it holds behind the last new byte.
    [[nodiscard]] virtual WriteError overwrite(const std::string& name,
                                               const std::string& bytes) = 0;

    /// True if the name can be opened for input.
    [[nodiscard]] virtual bool canRead(const std::string& name) = 0;

    // These return whether they did what they say.
    virtual bool remove(const std::string& name) = 0;       ///< found as for reading
    virtual bool createFolder(const std::string& name) = 0; ///< false also if it was there

    /// On return the file's bytes and its name are on the disk, if it is closed. False if there is
    /// no such file or the disk has refused some of it.
    [[nodiscard]] virtual bool sync(const std::string& name) = 0;
};

} // namespace platform
