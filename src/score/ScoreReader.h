// The reader of score files: it takes what a file of any stage of the format has, and stops there.
#pragma once

#include "score/SequentialText.h"

#include <iosfwd>

namespace velorin {

struct Score;

/// The parts of a file in their order; each is called once, in this order. A line that the file
/// does not have stores nothing; a number outside 16 bits and a field outside the grids skip that
/// one store.
class ScoreReader {
public:
    /// A null file counts as an empty one. The grids are blank already.
    ScoreReader(std::istream* file, Score& score) : text_(file), score_(score) {}

    void readRows();           ///< lines 1..26, the notes and instruments of each row
    void readTempo();          ///< line 27; a tempo above 300 becomes 300
    void readRowInstruments(); ///< line 28; without it, what the rows have in column 0
    void readChordMarks();     ///< lines 29..37; field i goes to entry i of its lane

    /// A row of the percussion strip has an instrument of 1 or more.
    [[nodiscard]] bool hasPercussion() const { return hasPercussion_; }

private:
    SequentialText text_;
    Score& score_;
    bool hasPercussion_ = false;
};

} // namespace velorin
