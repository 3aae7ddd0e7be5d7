// The score as a Standard MIDI File of format 1: a tempo track and a track for each of the rows.
#pragma once

#include <string>

namespace velorin {

struct RowOptions;
struct Score;

/// The bytes of the file. The tracks of hidden rows are empty.
///
/// Rule: the file has at most 10,000 bytes. Later bytes are dropped, but positions and track
/// lengths still count them. Held by score/long_rows.
///
/// Rule: the export leaves `LastColumn` one higher than `FindLastColumn` computes it. Held by
/// score/midi_export.
[[nodiscard]] std::string midiFileOf(Score& score, const RowOptions& rows);

} // namespace velorin
