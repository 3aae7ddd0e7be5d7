// The score as a Standard MIDI File of format 1: a tempo track and a track for each of the rows.
#pragma once

#include <string>

namespace velorin {

class RowOptions;
struct Score;

/// The bytes of the file, at most 10,000: what lies behind is dropped, while positions and the
/// track lengths go on counting. The tracks of hidden rows are empty. Leaves `LastColumn` one
/// higher than `FindLastColumn` computes it.
[[nodiscard]] std::string midiFileOf(Score& score, RowOptions& rows);

} // namespace velorin
