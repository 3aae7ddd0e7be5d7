// Real files in a folder of the test; a test can make some of them unwritable.
#pragma once

#include "platform/Files.h"

#include <filesystem>
#include <vector>

namespace scripted {

/// A new empty folder, removed with its contents at the end.
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

/// Refusals are simulated here, since permissions do not apply to root.
class ScriptedFiles final : public platform::Files {
public:
    std::unique_ptr<std::istream> openForInput(const std::string& name) override;
    std::unique_ptr<std::ostream> openForBinary(const std::string& name) override;
    std::unique_ptr<std::iostream> openForUpdate(const std::string& name) override;
    platform::WriteError replace(const std::string& name, const std::string& bytes) override;
    platform::WriteError overwrite(const std::string& name, const std::string& bytes) override;
    bool canRead(const std::string& name) override;
    bool remove(const std::string& name) override;
    bool createFolder(const std::string& name) override;
    bool sync(const std::string& name) override; ///< false for an unwritable file
    bool syncFails = false;

    /// For tests: a stream to a new or truncated file, null if it cannot be written.
    [[nodiscard]] std::unique_ptr<std::ostream> openForOutput(const std::string& name) const;

    /// Makes a file, or everything in a folder, unwritable: no write, rename, deletion or new file.
    void makeReadOnly(const std::string& name);

    /// How every `replace` and `overwrite` fails, unless it is `none`. The file does not change.
    platform::WriteError writeError = platform::WriteError::none;

private:
    [[nodiscard]] platform::WriteError refusalOf(const std::filesystem::path& path) const;
    [[nodiscard]] std::unique_ptr<std::iostream> updated(const std::string& name,
                                                         const std::filesystem::path& path) const;
    [[nodiscard]] bool mayWrite(const std::filesystem::path& path) const;

    std::vector<std::filesystem::path> readOnly_;
};

} // namespace scripted
