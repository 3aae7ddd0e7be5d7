// The content of the last saved score, for comparing.
#include "score/SavedState.h"

#include "score/ScoreWriter.h"

namespace velorin {

void SavedState::setSaved(const Score& score) {
    text_ = keptText(score);
}

bool SavedState::isSaved(const Score& score) const {
    return !text_.empty() && text_ == keptText(score);
}

} // namespace velorin
