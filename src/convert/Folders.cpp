// Walking through folders.
#include "convert/Folders.h"

#include "platform/Text.h"

#include <algorithm>
#include <map>

namespace velorin::convert {

namespace fs = std::filesystem;

namespace {

constexpr const char* endings[] = {".sng", ".mid", ".midi", ".wav"}; ///< the first comes first

// The place of a file's ending among those that are known; none for a file of another kind.
std::size_t rankOf(const fs::path& file) {
    const std::string ending = platform::lowerCase(file.extension().string());
    return static_cast<std::size_t>(std::find(std::begin(endings), std::end(endings), ending) -
                                    std::begin(endings));
}

bool isHidden(const fs::path& file) {
    return file.filename().string().starts_with('.');
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
        else if (at->is_regular_file(unknown) && !isHidden(at->path()) &&
                 rankOf(at->path()) < std::size(endings))
            files.push_back(at->path());
    }
    std::sort(files.begin(), files.end(), [](const fs::path& a, const fs::path& b) {
        const fs::path stemA = fs::path(a).replace_extension();
        const fs::path stemB = fs::path(b).replace_extension();
        return stemA != stemB ? stemA < stemB : rankOf(a) < rankOf(b);
    });
    return files;
}

fs::path targetOf(const Task& folder, const fs::path& file) {
    static constexpr const char* endingOf[] = {".mid", ".wav", ".mp3", ".png", ".sng"};
    fs::path target = folder.target / file.lexically_relative(folder.score);
    return target.replace_extension(endingOf[static_cast<std::size_t>(folder.kind)]);
}

} // namespace

std::vector<Task> withoutFolders(const std::vector<Task>& tasks, std::vector<LeftOut>& leftOut) {
    std::vector<Task> files;
    for (const Task& task : tasks) {
        std::error_code failed;
        if (!fs::is_directory(task.score, failed)) {
            files.push_back(task);
            continue;
        }
        std::map<fs::path, fs::path> sources; // by what they become
        for (const fs::path& file : filesIn(task.score)) {
            const fs::path target = targetOf(task, file);
            // A file that would become itself is there already.
            if (!canMake(sourceKindOf(file), task.kind) || file == target)
                continue;
            const auto [first, isNew] = sources.emplace(target, file);
            if (isNew)
                files.push_back({file.string(), target, task.kind, task.isResumable});
            else
                leftOut.push_back(
                    {file.string(), "the same output is made from " + first->second.string()});
        }
    }
    return files;
}

} // namespace velorin::convert
