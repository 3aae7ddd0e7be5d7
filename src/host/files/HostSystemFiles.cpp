// Escapes in short names, and INI files that are read and written whole.
#include "host/files/HostSystemFiles.h"

#include "host/disk/DurableFile.h"
#include "host/disk/FileReplacement.h"
#include "host/files/IniFile.h"
#include "platform/PathLookup.h"

namespace velorin::host {

namespace fs = std::filesystem;

std::string HostSystemFiles::GetShortPathNameA(const std::string& path) {
    const fs::path found = platform::resolve(path);
    std::error_code failed;
    if (!fs::exists(found, failed))
        return path;
    std::string name;
    for (const char character : found.string()) {
        if (character == ' ')
            name += "%20";
        else if (character == '%')
            name += "%25";
        else
            name += character;
    }
    return name;
}

std::string pathOfShortName(const std::string& name) {
    std::string path;
    for (std::size_t at = 0; at < name.size();) {
        const std::string escape = name.substr(at, 3);
        const bool isEscape = escape == "%20" || escape == "%25";
        path += escape == "%20" ? ' ' : name[at];
        at += isEscape ? 3 : 1;
    }
    return path;
}

std::string HostSystemFiles::GetPrivateProfileStringA(const std::string& section,
                                                      const std::string& key,
                                                      const std::string& fallback,
                                                      const std::string& file) {
    return iniValue(readFile(platform::resolve(file)).value_or(""), section, key)
        .value_or(fallback);
}

// An existing file that cannot be read is left alone: its other keys would be lost.
bool HostSystemFiles::WritePrivateProfileStringA(const std::string& section, const std::string& key,
                                                 const std::string& value,
                                                 const std::string& file) {
    const fs::path path = platform::resolve(file);
    std::error_code ignored; // a missing folder shows when the file is written
    const bool isThere = fs::exists(path, ignored);
    const auto text = readFile(path);
    if (isThere && !text)
        return false;
    fs::create_directories(path.parent_path(), ignored);
    return replaceFile(path, withIniValue(text.value_or(""), section, key, value)) ==
           platform::WriteError::none;
}

} // namespace velorin::host
