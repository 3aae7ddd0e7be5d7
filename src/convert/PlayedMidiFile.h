// The MIDI file of what a score sends while it plays.
#pragma once

#include "convert/PlayedMidi.h"

#include <string>

namespace velorin::convert {

/// The bytes of a file of format 1: a tempo track with the song's `name`, and a track for each row
/// that sounds, with the messages of the row. Four columns are a quarter note. No event is off by
/// more than 0.3 ms, whatever the length of the song.
///
/// Rule: the file begins with the wait of one column before column 0, so it is in time with the
/// sound file of the score. The wait is a measure of its own, 1/16, and the measures of 4/4 begin
/// with column 0. Held by APlayedScore.BeginsWithTheWaitBeforeColumn0.
///
/// Each note on has its own note off, in the same track, at the time at which the device ends the
/// note. Note offs that end nothing are left out. What still sounds at the end of the song ends
/// there.
///
/// Rule: a drum ends with the next stroke of its key, or with the song. The program does not end it
/// either, and a synthesizer would cut off whistles and cymbals. Where the drum's cell ends, its
/// track has the meta event `midifile::drumCellEnd`. Held by
/// PlayedMidiFile.ADrumRingsUntilTheNextStrokeOfItsKey.
[[nodiscard]] std::string playedMidiFile(const PlayedSong& song, const std::string& name);

/// The name of the track of a row [0, 13), as the tableaux count them: "Ch 1" to "Ch 8",
/// "Percussion 1", "Rhythm", and "Percussion 2" to "Percussion 4".
[[nodiscard]] std::string playedTrackName(int row);

} // namespace velorin::convert
