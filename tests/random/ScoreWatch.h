// What must hold of the score whatever the user does: its values stay in their ranges, it comes
// back from its file as it was, and a gesture changes the cells that it is to change and no others.
#pragma once

#include "score/Score.h"

#include <optional>
#include <string>

namespace velorin {
struct Studio;
} // namespace velorin

namespace randomly {

/// The three grids at a moment.
struct Grids {
    velorin::NoteGrid notes;
    velorin::NoteGrid instruments;
    velorin::PolyGrid marks;
};

[[nodiscard]] Grids gridsOf(const velorin::Score& score);

/// The first cells in which two differ, "NoteArray(0, 4) is 57, not -1"; empty if they are the
/// same.
[[nodiscard]] std::string differences(const Grids& actual, const Grids& expected);

/// What is wrong with the values of the studio; empty if nothing is.
[[nodiscard]] std::string wrongValue(const velorin::Studio& studio);

/// Whether the score is the same after a way through its file.
[[nodiscard]] bool comesBackFromItsFile(const velorin::Score& score);

/// A note drawn with the left button on the music tableau, foretold from the press.
class DrawnNote {
public:
    /// Taken before the press at (x, y) is sent; no value if that press draws nothing.
    [[nodiscard]] static std::optional<DrawnNote> pressed(const velorin::Studio& studio, int x,
                                                          int y);

    /// Whether it is the note of the drag in hand, which a release writes.
    [[nodiscard]] bool isStillIn(const velorin::Studio& studio) const;

    /// The grids behind a release at `x`; `before` is how they stand ahead of it.
    [[nodiscard]] Grids released(const velorin::Studio& studio, Grids before, int x) const;

private:
    int row_ = 0;
    int line_ = 0;
    int column_ = 0; ///< on the screen
};

/// The grids behind a right press at (x, y) that erases a note, foretold; no value if that press
/// does something else.
[[nodiscard]] std::optional<Grids> erased(const velorin::Studio& studio, int x, int y);

} // namespace randomly
