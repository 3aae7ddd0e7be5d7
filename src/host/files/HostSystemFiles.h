// Short names of files, and INI files in the user's folder for settings.
#pragma once

#include "platform/SystemFiles.h"

#include <filesystem>

namespace velorin::host {

/// This host has no system-wide INI files, so they are in a folder of the user's.
class HostSystemFiles final : public platform::SystemFiles {
public:
    explicit HostSystemFiles(std::filesystem::path folder) : folder_(std::move(folder)) {}

    /// The full path, with "%20" for each blank and "%25" for each percent sign (`pathOfShortName`
    /// reads it).
    std::string GetShortPathNameA(const std::string& path) override;
    std::string GetWindowsDirectoryA() override { return folder_.string(); }
    std::string GetPrivateProfileStringA(const std::string& section, const std::string& key,
                                         const std::string& fallback,
                                         const std::string& file) override;
    bool WritePrivateProfileStringA(const std::string& section, const std::string& key,
                                    const std::string& value, const std::string& file) override;

private:
    std::filesystem::path folder_;
};

/// The path that has this short name.
[[nodiscard]] std::string pathOfShortName(const std::string& name);

} // namespace velorin::host
