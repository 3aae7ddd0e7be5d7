// What the numbers in the grids mean: note cells, pitches and instruments.
#pragma once

#include <cstdint>

namespace velorin {

// A note cell:
//
//       -1           empty, a rest
//   0 .. 127         a note starts here; the value is its pitch index
//   1000 + pitch     the note goes on
//
//   column   0     1     2     3     4
//           60  1060  1060    -1    64        a note of three columns, a rest, a note of one
//
// Code tests only for below 0, below 1000, and 1000 or more. So every number has a meaning, also
// one that only a file can bring.

constexpr std::int16_t emptyCell = -1;
constexpr std::int16_t heldOffset = 1000;

constexpr bool isEmpty(int cell) {
    return cell < 0;
}
constexpr bool isStart(int cell) {
    return cell >= 0 && cell < heldOffset;
}
constexpr bool isHeld(int cell) {
    return cell >= heldOffset;
}

/// The pitch index of a cell that is not empty, counted downwards from the top line of the tableau.
constexpr int pitchOf(int cell) {
    return cell % heldOffset;
}

/// The pitch index of the bottom line.
constexpr int lastPitch = 127;

/// The held cell of a pitch index.
constexpr int heldCell(int pitch) {
    return heldOffset + pitch;
}

/// The MIDI key of a pitch index: the tableau counts down from key 127, the device counts up.
constexpr int PitchToKey(int pitch) {
    return lastPitch - pitch;
}

// Instruments: 0..127 are General MIDI programs (0-based), 128..174 the sounds of the General MIDI
// percussion map.

constexpr int firstPercussion = 128;
constexpr bool isPercussion(int instrument) {
    return instrument >= firstPercussion;
}

/// The MIDI key of a percussion instrument: 128 is key 35, "Acoustic Bass Drum".
constexpr int percussionKey(int instrument) {
    return instrument - 93;
}

/// The MIDI channel (0-based) that General MIDI keeps for percussion.
constexpr int percussionChannel = 9;

// Rows of the score.

constexpr int scoreRows = 13;
constexpr int musicRows = 8; ///< rows 0..7 are drawn on `MusicBox`, 8..12 on `Beatbox`
constexpr int scoreColumns = 1001;
constexpr int lastGridColumn = 1000;
// Rule: the grid has a column 1000, but no view shows it. Held by playback/pages.
constexpr int lastShownColumn = 999;

constexpr int firstPercussionRow = 8;
// Rule: row 9 has no volume box. Held by shell/no_volume_box.
constexpr int rowWithoutVolume = 9;
constexpr bool isMusicRow(int row) {
    return row < firstPercussionRow;
}

} // namespace velorin
