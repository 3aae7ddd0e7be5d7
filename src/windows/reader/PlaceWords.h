// What is at a place of a tableau, and the sentences for it.
#pragma once

#include "drawing/Tableau.h"

#include <string>
#include <vector>

namespace velorin {

struct Studio;

/// A cell of a tableau, wherever the view is scrolled to.
struct Spot {
    Tableau tableau = Tableau::music; ///< never `numbers`
    int column = 0;                   ///< of the score, from 0
    int line = 0; ///< music: the pitch index; strip: from its top, 0; lanes: the row [0, 8)
    bool operator==(const Spot&) const = default;
};

struct SpotNote {
    int row = 0;          ///< [0, 13)
    bool isStart = false; ///< the note begins here
    int columns = 1;      ///< from here to its end
    int instrument = 0;   ///< [0, 175)
    bool isChord = false; ///< the column has a chord mark
};

/// What the tableau shows there: no hidden row, and no row that is not drawn.
struct SpotContent {
    bool isInScore = true;       ///< the score has this line and this column
    std::vector<SpotNote> notes; ///< the current row first, then by row
    bool isMarked = false;       ///< in the lanes
};

/// `stripLines` is how many lines the strip shows: a beat below them is drawn on the last one.
[[nodiscard]] SpotContent contentOf(const Studio& studio, const Spot& spot, int stripLines);

/// "C sharp 5"; empty below the lowest and above the highest note.
[[nodiscard]] std::string spokenNote(int pitchIndex);

/// "channel 1", "percussion channel 2"; `row` [0, 13).
[[nodiscard]] std::string spokenRow(int row);

/// The name of a line: "C sharp 5", "line 2", "channel 2".
[[nodiscard]] std::string lineWords(Tableau tableau, int line);

/// "column 17, bar 5", as the ruler counts.
[[nodiscard]] std::string columnWords(int column);

/// "D 5, column 25, bar 7. Empty."
[[nodiscard]] std::string placeWords(const Spot& spot, const SpotContent& content);

/// Only what is different from `from`, and what is there: "column 18. Empty."
[[nodiscard]] std::string movedWords(const Spot& from, const Spot& spot,
                                     const SpotContent& content);

} // namespace velorin
