// Real files in a folder of the test's own, some of which may be made unwritable.
#pragma once

#include "platform/Files.h"

#include <filesystem>
#include <vector>

namespace scripted {

/// A new empty folder, removed with all it holds at the end.
class TemporaryFolder {
public:
    TemporaryFolder();
    ~TemporaryFolder();
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    [[nodiscard]] const std::filesystem::path& path() const { return path_; }

private:
    std::filesystem::path path_;
};

/// Refusals are decided here and not by the host's permissions, which do not bind every user.
class ScriptedFiles final : public platform::Files {
public:
    std::unique_ptr<std::istream> openForInput(const std::string& name) override;
    std::unique_ptr<std::ostream> openForOutput(const std::string& name) override;
    std::unique_ptr<std::ostream> openForBinary(const std::string& name) override;
    std::unique_ptr<std::iostream> openForUpdate(const std::string& name) override;
    platform::WriteError replace(const std::string& name, const std::string& bytes) override;
    platform::WriteError overwrite(const std::string& name, const std::string& bytes) override;
    bool canRead(const std::string& name) override;
    bool remove(const std::string& name) override;
    bool createFolder(const std::string& name) override;
    bool sync(const std::string& name) override; ///< false for what cannot be written
    bool syncFails = false;

    /// From now on this file, or whatever lies in this folder, cannot be written, renamed or
    /// deleted, and nothing new comes into the folder.
    void makeReadOnly(const std::string& name);

    /// Unless it is `none`, how every `replace` and `overwrite` fails. The file stays as it is.
    platform::WriteError writeError = platform::WriteError::none;

private:
    [[nodiscard]] platform::WriteError refusalOf(const std::filesystem::path& path) const;
    [[nodiscard]] std::unique_ptr<std::iostream> updated(const std::string& name,
                                                         const std::filesystem::path& path) const;
    [[nodiscard]] bool mayWrite(const std::filesystem::path& path) const;

    std::vector<std::filesystem::path> readOnly_;
};

} // namespace scripted
