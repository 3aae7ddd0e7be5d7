// The reader of score files. It reads every version of the format and stops where the file ends.
#pragma once

#include "model/SequentialText.h"

#include <iosfwd>

namespace velorin {

struct Score;

/// Call each part once, in the order of the declarations. A missing line stores nothing. A number
/// outside 16 bits or a field outside the grids is skipped.
class ScoreReader {
public:
    /// A null file counts as an empty one. The caller has cleared the grids.
    ScoreReader(std::istream* file, Score& score) : text_(file), score_(score) {}

    void readRows();           ///< lines 1..26, the notes and instruments of each row
    void readTempo();          ///< line 27; a tempo above 300 becomes 300
    void readRowInstruments(); ///< line 28; without it, what the rows have in column 0
    void readChordMarks();     ///< lines 29..37; field i goes to entry i of its lane

    /// True if a row of the percussion strip has an instrument of 1 or more.
    [[nodiscard]] bool hasPercussion() const { return hasPercussion_; }

private:
    SequentialText text_;
    Score& score_;
    bool hasPercussion_ = false;
};

} // namespace velorin
