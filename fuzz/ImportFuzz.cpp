// Any bytes as MIDI files: each note is kept or dropped, and the scores can be written and read.
#include "Expect.h"
#include "importing/MidiImport.h"
#include "midifile/FileReader.h"
#include "model/ScoreReader.h"
#include "model/ScoreWriter.h"

#include <algorithm>
#include <memory>
#include <sstream>

using namespace velorin;

namespace {

void expectComplete(const importing::Account& account) {
    expect(account.kept() + account.dropped() == account.notes);
    expect(account.exact >= 0 && account.moved >= 0);
    expect(account.shortened <= account.kept());
    expect(account.merged + account.inMarks <= account.kept());
}

void expectReadsBack(const Score& score) {
    const auto again = std::make_unique<Score>();
    std::istringstream file(exactText(score));
    ScoreReader reader(&file, *again);
    reader.readRows();
    reader.readTempo();
    reader.readRowInstruments();
    reader.readChordMarks();
    expect(again->NoteArray == score.NoteArray);
    expect(again->InstrumentArray == score.InstrumentArray);
    expect(again->PolyArray == score.PolyArray);
    expect(again->Tempo == score.Tempo);
}

// A held cell goes on with the cell before it, and a mark is on the start of a note.
void expectWellFormed(const Score& score) {
    expect(score.Tempo >= 20 && score.Tempo <= 300);
    for (int row = 0; row < scoreRows; ++row) {
        for (int column = 0; column < scoreColumns; ++column) {
            const int cell = score.NoteArray.at(row, column);
            const int before = column > 0 ? score.NoteArray.at(row, column - 1) : emptyCell;
            expect(!isHeld(cell) || (!isEmpty(before) && pitchOf(before) == pitchOf(cell)));
            if (isMusicRow(row) && column < lastGridColumn &&
                score.PolyArray.at(row + 1, column + 1) == 1)
                expect(isStart(cell));
        }
        expect(isEmpty(score.NoteArray.at(row, lastGridColumn)));
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    const auto songs = midifile::readAll(std::span(data, size));
    auto import = importing::importMidi(songs, {600.0}); // seconds: a few scores
    if (!import)
        return 0;
    expect(!import->pieces.empty());
    expectComplete(import->account);
    std::int64_t notes = 0;
    for (const importing::Piece& piece : import->pieces) {
        expectComplete(piece.account);
        expectWellFormed(piece.score);
        expectReadsBack(piece.score);
        notes += piece.account.notes;
    }
    expect(notes == import->account.notes);
    expect(!importing::sentencesOf(*import).empty());
    return 0;
}
