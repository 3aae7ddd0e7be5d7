// INI files that programs share, and short names of files.
#pragma once

#include <string>

namespace platform {

class SystemFiles {
public:
    virtual ~SystemFiles() = default;

    /// A form of the path without blanks that names the same file in a command string. The name of
    /// a missing file is returned unchanged.
    [[nodiscard]] virtual std::string GetShortPathNameA(const std::string& path) = 0;

    /// The folder of "system.ini", without a separator at its end.
    [[nodiscard]] virtual std::string GetWindowsDirectoryA() = 0;

    /// The value of a key in a section of an INI file, or `fallback` if it is missing. Sections and
    /// keys are case-insensitive.
    [[nodiscard]] virtual std::string GetPrivateProfileStringA(const std::string& section,
                                                               const std::string& key,
                                                               const std::string& fallback,
                                                               const std::string& file) = 0;

    /// Returns whether the key could be written. The rest of the file stays as it is.
    [[nodiscard]] virtual bool WritePrivateProfileStringA(const std::string& section,
                                                          const std::string& key,
                                                          const std::string& value,
                                                          const std::string& file) = 0;
};

} // namespace platform
