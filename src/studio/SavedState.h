// Knows whether a score file holds the score as it is now.
#pragma once

#include <cstdint>
#include <map>
#include <string>

namespace velorin {

struct Score;

/// Set by a successful save and by opening a score, not by an export. It compares content, not
/// edits: a score is saved again if the user reverts a change by hand. The content is the cells
/// with their instruments, the chord marks and the tempo, but not the instruments of future notes.
class SavedState {
public:
    /// The score was saved to a file, whose name is as given, and is as it is there.
    void setSaved(const Score& score, const std::string& name);
    /// The score was opened from a file. If there was none, nothing holds it.
    void setOpened(const Score& score, const std::string& name, bool wasThere);

    /// How often a score was saved, and opened.
    [[nodiscard]] std::uint64_t saves() const { return saves_; }
    [[nodiscard]] std::uint64_t opens() const { return opens_; }
    /// The file that was opened last, as given; empty before the first.
    [[nodiscard]] const std::string& openedName() const { return openedName_; }

    /// The file that `CurrentFileName` stands for, as its name was given when it was opened or
    /// saved in this run. Empty if there was none, or two that differ only in case.
    [[nodiscard]] std::string fileNamed(const std::string& currentFileName) const;

    /// True if the score equals the one last saved or opened. False before the first of either,
    /// also for a blank score; `isWorthKeeping` says whether there is anything to lose.
    [[nodiscard]] bool isSaved(const Score& score) const;

private:
    void remember(const std::string& name);

    std::string content_; ///< as a score file; empty before the first save or load
    std::string openedName_;
    std::map<std::string, std::string> files_; ///< names as given, by their lower case
    std::uint64_t saves_ = 0;
    std::uint64_t opens_ = 0;
};

} // namespace velorin
