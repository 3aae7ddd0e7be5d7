// Makes scores of MIDI files.
#pragma once

#include "importing/Account.h"
#include "midifile/MidiData.h"
#include "model/RowArray.h"
#include "model/Score.h"
#include "platform/Result.h"

#include <span>
#include <string>
#include <vector>

namespace velorin::importing {

/// A score that plays a part of the file.
struct Piece {
    Score score;
    /// The volume [1, 127] that each row should have, the same in all pieces of a song; 127 for a
    /// row without notes. A score file has no volumes.
    RowArray<int> volumes;
    double columnsPerBeat = 0.0; ///< of a quarter note; 0 if the columns do not follow the beat
    double speed = 1.0;          ///< how much faster than the file it is played
    double fromSeconds = 0.0;    ///< of the file
    Account account;             ///< of the notes that begin in this piece
};

struct Import {
    std::vector<Piece> pieces; ///< in the order of their time; at least one
    Account account;           ///< of all pieces
    LeftOut leftOut;
    bool isWhole = true; ///< false: a track is damaged, and its rest is missing
};

struct ImportLimits {
    double mostSeconds = 3600.0; ///< of all files together
};

/// Makes scores of the songs, one after the other. Each has one or more scores of its own. Fails
/// if there are no notes, more than a million, or more than the limits allow. The reason
/// continues a sentence that begins with the name of the file: "has no notes". Thread-safe.
[[nodiscard]] platform::Result<Import> importMidi(std::span<const midifile::MidiData> songs,
                                                  const ImportLimits& limits = {});

/// What a user should know about an import, in sentences that continue the name of the file.
[[nodiscard]] std::vector<std::string> sentencesOf(const Import& import);

/// Those that are about the notes, without the tempo and the volumes of each score.
[[nodiscard]] std::vector<std::string> noteSentencesOf(const Import& import);

} // namespace velorin::importing
