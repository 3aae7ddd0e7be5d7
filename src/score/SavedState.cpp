// The content of the last saved score, for comparing.
#include "score/SavedState.h"

#include "score/Score.h"
#include "score/ScoreWriter.h"

namespace velorin {

namespace {

// A click on a channel gives its row the instrument that the list shows. That changes nothing the
// user has made, so it does not count.
std::string contentOf(const Score& score) {
    Score content = score;
    content.RowInstrument.fill(0);
    return keptText(content);
}

} // namespace

void SavedState::setSaved(const Score& score) {
    content_ = contentOf(score);
}

bool SavedState::isSaved(const Score& score) const {
    return !content_.empty() && content_ == contentOf(score);
}

} // namespace velorin
