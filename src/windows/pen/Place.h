// A cell on the screen.
#pragma once

#include "drawing/Tableau.h"

namespace velorin {

/// Both numbers count from the edge of the tableau, so a scrolled view gives the same place another
/// cell of the score.
///
/// The column of the score is `View::FirstColumn` + `column`. The pitch of a line of `music` and
/// `strip` is `View::TopPitch` + `line`. The strip may cover the first lines of `music`; they
/// count.
struct Place {
    Tableau tableau = Tableau::music; ///< not `numbers`
    int column = 0;                   ///< from 0
    int line = 0;                     ///< from 0; in `lanes` [0, 8)
    bool operator==(const Place&) const = default;
};

} // namespace velorin
