// Playing allocates no memory, neither for a note nor for a column.
#include "AllocationCount.h"
#include "QuietStage.h"

#include <gtest/gtest.h>

namespace velorin {
namespace {

/// Counts the messages and stores none.
struct CountingMidi final : AcceptingMidi {
    explicit CountingMidi(scripted::VirtualTime&) {}
    std::uint32_t midiOutShortMsg(platform::MidiOutHandle, std::uint32_t) override {
        ++messages;
        return 0;
    }
    long messages = 0;
};

TEST(Playing, TakesNoMemory) {
    QuietStage<CountingMidi> stage;
    Studio& studio = stage.studio;
    for (int row = 0; row < scoreRows; ++row) {
        for (int column = 0; column < scoreColumns; ++column) {
            studio.score.NoteArray.write(row, column, 60);
            studio.score.InstrumentArray.write(row, column,
                                               static_cast<std::int16_t>(column % 175));
        }
    }
    for (int row = 0; row < musicRows; ++row)
        stage.studio.setup.values.options.rows[row].chord = true;
    studio.run.RecordToolbarOpen = flagSet;

    const long before = allocationCount();
    stage.sequencer.PlayAndStop_Click(0);
    EXPECT_EQ(allocationCount(), before);
    EXPECT_GT(stage.midi.messages, 13L * 1001 * 5); // a note on and four note offs for every cell
}

} // namespace
} // namespace velorin
