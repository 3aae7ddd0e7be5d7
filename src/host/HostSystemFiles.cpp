// Escapes in short names, and INI files that are read and written whole.
#include "host/HostSystemFiles.h"

#include "host/IniFile.h"
#include "platform/CaseBlind.h"

#include <fstream>
#include <iterator>

namespace velorin::host {

namespace fs = std::filesystem;

namespace {

std::string textOf(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

} // namespace

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
    return iniValue(textOf(platform::resolve(file)), section, key).value_or(fallback);
}

bool HostSystemFiles::WritePrivateProfileStringA(const std::string& section, const std::string& key,
                                                 const std::string& value,
                                                 const std::string& file) {
    const fs::path path = platform::resolve(file);
    const std::string text = withIniValue(textOf(path), section, key, value);
    std::error_code ignored; // a folder that is missing still shows with the file
    fs::create_directories(path.parent_path(), ignored);
    // Written beside and renamed, so that a full disk takes nothing away.
    fs::path part = path;
    part += ".part";
    std::ofstream out(part, std::ios::binary);
    out << text;
    out.close();
    std::error_code failed;
    if (out)
        fs::rename(part, path, failed);
    const bool done = out && !failed;
    if (!done)
        fs::remove(part, ignored);
    return done;
}

} // namespace velorin::host
