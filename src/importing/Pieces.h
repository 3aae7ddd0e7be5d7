// Scores of placed notes: where a long piece is cut, and the cells.
#pragma once

#include "importing/MidiImport.h"
#include "importing/Music.h"
#include "importing/Placing.h"
#include "importing/TimeGrid.h"

#include <vector>

namespace velorin::importing {

/// One or more scores that hold the notes, each with the account of the notes that begin in it.
/// Notes that sound on at the end of a score are begun again in the next; what is not is shortened
/// in `notes`.
[[nodiscard]] std::vector<Piece> piecesOf(const Music& music, const TimeGrid& grid,
                                          std::vector<PlacedNote>& notes);

/// What became of all notes, after `piecesOf`; `continued` is 0.
[[nodiscard]] Account accountOf(const std::vector<PlacedNote>& notes);

} // namespace velorin::importing
