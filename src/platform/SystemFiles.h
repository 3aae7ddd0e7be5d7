// What the host keeps in INI files for all programs, and short names of files.
#pragma once

#include <string>

namespace platform {

class SystemFiles {
public:
    virtual ~SystemFiles() = default;

    /// A form of the path without blanks that names the same file in a command string. A file that
    /// does not exist has its own name as its short form.
    [[nodiscard]] virtual std::string GetShortPathNameA(const std::string& path) = 0;

    /// The folder in which "system.ini" lies, without a separator at its end.
    [[nodiscard]] virtual std::string GetWindowsDirectoryA() = 0;

    /// The value of a key in a section of an INI file, or `fallback` if it is not there. Sections
    /// and keys do not mind case.
    [[nodiscard]] virtual std::string GetPrivateProfileStringA(const std::string& section,
                                                               const std::string& key,
                                                               const std::string& fallback,
                                                               const std::string& file) = 0;

    /// Returns whether the key could be written; everything else in the file stays.
    virtual bool WritePrivateProfileStringA(const std::string& section, const std::string& key,
                                            const std::string& value, const std::string& file) = 0;
};

} // namespace platform
