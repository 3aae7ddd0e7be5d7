// Checks that must hold for any input: all values are in range, the score survives a round trip
// through its file, and a gesture changes only the cells that it should.
#pragma once

#include "model/Score.h"

#include <optional>
#include <string>

namespace velorin {
struct Studio;
} // namespace velorin

namespace randomly {

/// A copy of the three grids.
struct Grids {
    velorin::NoteGrid notes;
    velorin::NoteGrid instruments;
    velorin::PolyGrid marks;
};

[[nodiscard]] Grids gridsOf(const velorin::Score& score);

/// The first cells in which two differ, "NoteArray(0, 4) is 57, not -1"; empty if they are the
/// same.
[[nodiscard]] std::string differences(const Grids& actual, const Grids& expected);

/// Which value of the studio is wrong; empty if none is.
[[nodiscard]] std::string wrongValue(const velorin::Studio& studio);

/// True if the score is the same after writing and reading its file.
[[nodiscard]] bool comesBackFromItsFile(const velorin::Score& score);

/// Predicts the note that a press with the left button on the music tableau will draw.
class DrawnNote {
public:
    /// Call before the press at (x, y) is sent; no value if the press draws nothing.
    [[nodiscard]] static std::optional<DrawnNote> pressed(const velorin::Studio& studio, int x,
                                                          int y);

    /// True if this is the note of the current drag, which a release writes.
    [[nodiscard]] bool isStillIn(const velorin::Studio& studio) const;

    /// The grids after a release at `x`, if they were `before` ahead of it.
    [[nodiscard]] Grids released(const velorin::Studio& studio, Grids before, int x) const;

private:
    int row_ = 0;
    int line_ = 0;
    int column_ = 0; ///< on the screen
};

/// Predicts the grids after a right press at (x, y) that erases a note; no value if the press does
/// something else.
[[nodiscard]] std::optional<Grids> erased(const velorin::Studio& studio, int x, int y);

} // namespace randomly
