// Finds usable files.
#include "windows/converter/UsableFiles.h"

#include "convert/Folders.h"

namespace velorin {

namespace fs = std::filesystem;

bool isUsable(const fs::path& path) {
    std::error_code failed;
    return fs::is_directory(path, failed) || convert::isConvertible(path);
}

std::vector<fs::path> usableFiles(const std::vector<fs::path>& paths) {
    std::vector<fs::path> files;
    for (const fs::path& path : paths) {
        std::error_code failed;
        if (fs::is_directory(path, failed)) {
            const std::vector<fs::path> inside = convert::filesIn(path);
            files.insert(files.end(), inside.begin(), inside.end());
        } else if (convert::isConvertible(path) && fs::is_regular_file(path, failed)) {
            files.push_back(path);
        }
    }
    return files;
}

} // namespace velorin
