// Walks through folders.
#include "convert/Folders.h"

#include "platform/Text.h"

#include <algorithm>
#include <map>

namespace velorin::convert {

namespace fs = std::filesystem;

namespace {

constexpr const char* endings[] = {".sng", ".mid", ".midi", ".wav"}; ///< in order of preference

// The rank of a file's ending; the size of the table for another kind of file.
std::size_t rankOf(const fs::path& file) {
    const std::string ending = platform::lowerCase(file.extension().string());
    return static_cast<std::size_t>(std::find(std::begin(endings), std::end(endings), ending) -
                                    std::begin(endings));
}

bool isHidden(const fs::path& file) {
    return file.filename().string().starts_with('.');
}

fs::path targetOf(const Task& folder, const fs::path& file) {
    fs::path target = folder.target / file.lexically_relative(folder.source);
    return target.replace_extension(nameOf(folder.kind));
}

} // namespace

bool isConvertible(const fs::path& file) {
    return rankOf(file) < std::size(endings);
}

std::vector<fs::path> filesIn(const fs::path& folder) {
    std::vector<fs::path> files;
    std::error_code failed;
    auto at = fs::recursive_directory_iterator(
        folder, fs::directory_options::skip_permission_denied, failed);
    for (; !failed && at != fs::recursive_directory_iterator(); at.increment(failed)) {
        std::error_code unknown;
        if (at->is_directory(unknown) && isHidden(at->path()))
            at.disable_recursion_pending();
        else if (at->is_regular_file(unknown) && !isHidden(at->path()) && isConvertible(at->path()))
            files.push_back(at->path());
    }
    std::sort(files.begin(), files.end(), [](const fs::path& a, const fs::path& b) {
        const fs::path stemA = fs::path(a).replace_extension();
        const fs::path stemB = fs::path(b).replace_extension();
        return stemA != stemB ? stemA < stemB : rankOf(a) < rankOf(b);
    });
    return files;
}

std::vector<Task> expandFolders(const std::vector<Task>& tasks, std::vector<SkippedFile>& skipped) {
    std::vector<Task> files;
    for (const Task& task : tasks) {
        std::error_code failed;
        if (!fs::is_directory(task.source, failed)) {
            files.push_back(task);
            continue;
        }
        std::map<fs::path, fs::path> sources; // by target
        for (const fs::path& file : filesIn(task.source)) {
            const fs::path target = targetOf(task, file);
            // Skip a file that is its own target.
            if (!canMake(sourceKindOf(file), task.kind) || file == target)
                continue;
            const auto [first, isNew] = sources.emplace(target, file);
            if (isNew)
                files.push_back({file.string(), target, task.kind, task.isResumable});
            else
                skipped.push_back(
                    {file.string(), "the same output is made from " + first->second.string()});
        }
    }
    return files;
}

} // namespace velorin::convert
