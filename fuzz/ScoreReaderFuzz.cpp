// Any bytes as a score file: they are read without harm, and what they gave can be written and read
// again.
#include "Expect.h"
#include "score/MidiExport.h"
#include "score/PlainSetup.h"
#include "score/Score.h"
#include "score/ScoreReader.h"
#include "score/ScoreWriter.h"

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

    PlainSetup setup;
    expect(midiFileOf(*score, setup).size() <= 10'000);
    return 0;
}
