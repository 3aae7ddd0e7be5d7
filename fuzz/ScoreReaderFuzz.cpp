// Any bytes as a score file: the score that is read can be written and read again.
#include "Expect.h"
#include "model/MidiExport.h"
#include "model/RowOptions.h"
#include "model/Score.h"
#include "model/ScoreReader.h"
#include "model/ScoreWriter.h"

#include <memory>
#include <sstream>

using namespace velorin;

namespace {

void read(const std::string& text, Score& score) {
    std::istringstream file(text);
    ScoreReader reader(&file, score);
    reader.readRows();
    reader.readTempo();
    reader.readRowInstruments();
    reader.readChordMarks();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    const auto score = std::make_unique<Score>();
    read({reinterpret_cast<const char*>(data), size}, *score);
    expect(score->Tempo <= 300);

    const auto again = std::make_unique<Score>();
    read(scoreText(*score), *again);
    expect(again->NoteArray == score->NoteArray);
    expect(again->Tempo == score->Tempo);
    expect(again->RowInstrument == score->RowInstrument);
    for (int lane = 1; lane < PolyGrid::rows; ++lane)
        expect(again->PolyArray.at(lane, 0) == score->PolyArray.at(lane, 1));

    const RowOptions setup;
    expect(midiFileOf(*score, setup).size() <= 10'000);
    return 0;
}
