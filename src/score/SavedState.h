// Whether the score is in a score file as it is now.
#pragma once

#include <string>

namespace velorin {

struct Score;

/// Set by a save that succeeded and by opening a score; an export does not count. A change that is
/// taken back by hand leaves the score saved, since content is compared and not edits. The content
/// is the cells with their instruments, the chord marks and the tempo; the instruments that new
/// notes would get are left out.
class SavedState {
public:
    /// A score file now holds this score.
    void setSaved(const Score& score);

    /// True if the score equals the one last saved or opened. False before the first of either, for
    /// a blank score too: `isWorthKeeping` tells whether there is anything to lose.
    [[nodiscard]] bool isSaved(const Score& score) const;

private:
    std::string content_; ///< as a score file; empty before the first save or load
};

} // namespace velorin
