// The steps of an import, song by song.
#include "importing/MidiImport.h"

#include "importing/ChordMarks.h"
#include "importing/Drums.h"
#include "importing/Pieces.h"
#include "importing/RowPlan.h"
#include "importing/Stretches.h"
#include "model/Cell.h"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace velorin::importing {

using platform::Failure;

namespace {

constexpr std::size_t mostNotes = 1'000'000;

LeftOut operator+(const LeftOut& a, const LeftOut& b) {
    return {a.silent + b.silent, a.bends + b.bends, a.pressures + b.pressures,
            a.controllers + b.controllers, a.exclusive + b.exclusive};
}

// Equal notes of two parts sound as one only if that saves a row.
std::vector<Voice> voicesFor(std::vector<PlacedNote>& notes) {
    std::vector<PlacedNote> unmerged = notes;
    std::vector<Voice> voices = voicesOf(notes);
    if (voices.size() <= musicRows)
        return voices;
    mergeParts(unmerged);
    notes = std::move(unmerged);
    return voicesOf(notes);
}

/// The placed notes of all songs are kept together for the account.
void importSong(const Music& music, Import& import, std::vector<PlacedNote>& all) {
    const TimeGrid grid = gridOf(music);
    std::vector<PlacedNote> notes = placedNotes(music, grid);
    placeDrums(notes, music.isOfScore() ? DrumRows::byPart : DrumRows::byKind);
    markChords(notes);
    assignRows(voicesFor(notes), notes);
    holdPedals(notes);
    std::vector<Piece> pieces = piecesOf(music, grid, notes);
    std::move(pieces.begin(), pieces.end(), std::back_inserter(import.pieces));
    const auto before = static_cast<std::uint32_t>(all.size());
    for (PlacedNote& note : notes) {
        note.into += before;
        all.push_back(note);
    }
}

} // namespace

platform::Result<Import> importMidi(std::span<const midifile::MidiData> songs,
                                    const ImportLimits& limits) {
    Import import;
    std::vector<Music> musics;
    std::size_t notes = 0;
    double seconds = 0.0;
    for (const midifile::MidiData& song : songs) {
        musics.push_back(musicOf(song));
        const Music& music = musics.back();
        notes += music.notes.size();
        seconds += music.endUs() / 1e6;
        import.leftOut = import.leftOut + music.leftOut;
        import.isWhole = import.isWhole && music.isWhole;
    }
    if (notes == 0)
        return Failure{import.isWhole ? "has no notes" : "is damaged before its first note"};
    if (notes > mostNotes)
        return Failure{"has " + std::to_string(notes) + " notes; at most " +
                       std::to_string(mostNotes) + " can be imported"};
    if (seconds > limits.mostSeconds)
        return Failure{"is too long: " + std::to_string(std::llround(seconds / 60.0)) +
                       " minutes of music"};
    std::vector<PlacedNote> all;
    for (const Music& music : musics) {
        if (!music.notes.empty())
            importSong(music, import, all);
    }
    import.account = accountOf(all);
    for (const Piece& piece : import.pieces)
        import.account.continued += piece.account.continued;
    return import;
}

} // namespace velorin::importing
