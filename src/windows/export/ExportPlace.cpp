// Names and folders of exports.
#include "windows/export/ExportPlace.h"

#include "platform/Text.h"

#include <system_error>

namespace velorin {

namespace fs = std::filesystem;

std::string proposedExportName(const std::string& path) {
    std::string name = path.substr(path.find_last_of("/\\") + 1);
    const std::string ending = ".sng";
    if (platform::endsWithIgnoringCase(name, ending))
        name.resize(name.size() - ending.size());
    name = platform::trimBlanks(name);
    return name.empty() ? "Untitled" : name;
}

fs::path typedFolder(const std::string& text, const fs::path& home) {
    std::string typed = platform::trimBlanks(text);
    if (typed == "~")
        typed.clear();
    if (typed.starts_with("~/"))
        typed.erase(0, 2);
    while (typed.size() > 1 && typed.back() == '/')
        typed.pop_back();
    return typed.empty() ? home : home / typed; // an absolute path replaces home
}

fs::path exportTarget(const fs::path& folder, const std::string& name, const std::string& ending) {
    return folder / platform::withEnding(platform::trimBlanks(name), ending);
}

std::string whyNoTarget(const std::string& name, const fs::path& folder, const fs::path& home) {
    if (name.find('/') != std::string::npos)
        return "A name cannot have a \"/\" in it; choose the folder below.";
    std::error_code failed;
    if (!fs::is_directory(folder, failed))
        return "There is no folder \"" + shownFolder(folder, home) + "\".";
    return {};
}

std::string failureSentence(std::string reason, const fs::path& target) {
    const std::string folder = target.parent_path().string() + "/";
    if (reason.starts_with(folder))
        reason.erase(0, folder.size());
    if (!reason.empty() && reason.back() != '.')
        reason += '.';
    return reason;
}

} // namespace velorin
