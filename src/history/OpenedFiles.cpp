// Picks names out of the history.
#include "history/OpenedFiles.h"

#include "history/Change.h"
#include "platform/Text.h"

#include <set>

namespace velorin {

namespace {

constexpr std::size_t mostFiles = 10;

} // namespace

std::vector<std::string> openedFiles(const std::vector<platform::HistoryEntry>& entries) {
    std::vector<std::string> files;
    std::set<std::string> known;
    for (auto entry = entries.rbegin(); entry != entries.rend() && files.size() < mostFiles;
         ++entry) {
        const bool isFile = entry->kind == changeKind::open || entry->kind == changeKind::saved;
        if (isFile && !entry->name.empty() && known.insert(platform::lowerCase(entry->name)).second)
            files.push_back(entry->name);
    }
    return files;
}

} // namespace velorin
