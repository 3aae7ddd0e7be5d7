// Compares the score with the one last saved.
#include "studio/SavedState.h"

#include "model/Score.h"
#include "model/ScoreWriter.h"
#include "platform/Text.h"

namespace velorin {

namespace {

// Selecting a row gives it the instrument that the list shows. The user has not changed the score
// by that, so `RowInstrument` does not count.
std::string contentOf(const Score& score) {
    Score content = score;
    content.RowInstrument.fill(0);
    return keptText(content);
}

} // namespace

void SavedState::setSaved(const Score& score, const std::string& name) {
    content_ = contentOf(score);
    remember(name);
    ++saves_;
}

void SavedState::setOpened(const Score& score, const std::string& name, bool wasThere) {
    if (wasThere) {
        content_ = contentOf(score);
        remember(name);
    }
    openedName_ = name;
    ++opens_;
}

std::string SavedState::fileNamed(const std::string& currentFileName) const {
    const auto found = files_.find(platform::lowerCase(currentFileName));
    return found == files_.end() ? std::string() : found->second;
}

// Of two files that differ only in case, nobody can say later which one a score came from.
void SavedState::remember(const std::string& name) {
    const auto [known, isNew] = files_.emplace(platform::lowerCase(name), name);
    if (!isNew && known->second != name)
        known->second.clear();
}

bool SavedState::isSaved(const Score& score) const {
    return !content_.empty() && content_ == contentOf(score);
}

} // namespace velorin
