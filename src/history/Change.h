// Says in one line what changed between two states of the score.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace velorin {

struct Score;

/// The kind of a change, as in `platform::HistoryEntry`. The History window has a picture for each.
namespace changeKind {
constexpr const char* notes = "notes";
constexpr const char* erase = "erase"; ///< notes, beats or marks only went
constexpr const char* beats = "beats";
constexpr const char* chords = "chords";
constexpr const char* block = "block"; ///< columns of several notes
constexpr const char* instrument = "instrument";
constexpr const char* tempo = "tempo";
constexpr const char* open = "open";
constexpr const char* clear = "clear";
constexpr const char* saved = "saved";
} // namespace changeKind

struct Change {
    std::string kind;
    std::string text;           ///< UTF-8, no line end; channels, drums and columns count from 1
    bool replacesScore = false; ///< little or nothing of the score before is left
};

/// `CurrentFileName` before and after the change, and the path of the score that was just opened.
struct ChangeNames {
    std::string before;
    std::string after;
    std::optional<std::string> opened;
};

/// The change from `before` to `after`, which differ.
[[nodiscard]] Change describeChange(const Score& before, const Score& after,
                                    const ChangeNames& names);

/// Where two states differ. Columns count from 0.
struct ChangedPlace {
    int firstColumn = -1; ///< -1: in no cell and no mark
    int lastColumn = -1;  ///< included
    int row = -1;         ///< the first row with a change in `firstColumn`; a mark's row too
    int pitch = -1;       ///< of that cell, in the later state if it has a note there; -1 for none
};

[[nodiscard]] ChangedPlace changedPlace(const Score& before, const Score& after);

/// The rows [0, 13) whose cells, instruments or marks differ, in order.
[[nodiscard]] std::vector<int> changedRows(const Score& before, const Score& after);

/// "paper-boat.sng" of "C:\\Songs\\paper-boat.sng"; both separators count.
[[nodiscard]] std::string fileNameOf(const std::string& path);

} // namespace velorin
