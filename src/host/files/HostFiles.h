// The files of the machine the program runs on.
#pragma once

#include "platform/Files.h"

namespace velorin::host {

/// Names are resolved as platform/PathLookup.h says. No call throws.
class HostFiles : public platform::Files {
public:
    /// Null for all but regular files: reading a pipe, a device or a file in /proc could block for
    /// ever.
    std::unique_ptr<std::istream> openForInput(const std::string& name) override;
    std::unique_ptr<std::ostream> openForBinary(const std::string& name) override;
    std::unique_ptr<std::iostream> openForUpdate(const std::string& name) override;
    platform::WriteError replace(const std::string& name, const std::string& bytes) override;
    platform::WriteError overwrite(const std::string& name, const std::string& bytes) override;
    bool canRead(const std::string& name) override;

    bool remove(const std::string& name) override; ///< no folder, no write-protected file
    bool createFolder(const std::string& name) override;
    bool sync(const std::string& name) override;
};

} // namespace velorin::host
