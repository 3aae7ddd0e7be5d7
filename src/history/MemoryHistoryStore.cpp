// Keeps the history in memory.
#include "history/MemoryHistoryStore.h"

namespace velorin {

std::int64_t MemoryHistoryStore::add(const platform::HistoryEntry& entry,
                                     const std::string& score) {
    platform::HistoryEntry added = entry;
    added.id = ++last_;
    if (!score.empty()) {
        added.state = added.id;
        scores_[added.id] = score;
        bytes_ += score.size();
    }
    entries_.push_back(added);
    while (bytes_ > most) {
        bytes_ -= scores_.begin()->second.size();
        scores_.erase(scores_.begin());
    }
    return added.id;
}

std::optional<std::string> MemoryHistoryStore::score(std::int64_t state) {
    const auto found = scores_.find(state);
    if (found == scores_.end())
        return std::nullopt;
    return found->second;
}

void MemoryHistoryStore::clear() {
    entries_.clear();
    scores_.clear();
    bytes_ = 0;
}

} // namespace velorin
