// Playing takes no memory: neither a note nor a column allocates.
#include "AllocationCount.h"
#include "playback/NoDesk.h"

#include "playback/NoteSounding.h"
#include "playback/Sequencer.h"
#include "playback/StopWatch.h"
#include "score/PlainSetup.h"
#include "score/Studio.h"
#include "support/ScriptedPlatform.h"

#include <gtest/gtest.h>

namespace velorin {
namespace {

/// Takes every message and keeps none.
struct CountingMidi final : platform::MidiOut {
    long messages = 0;
    int midiOutGetNumDevs() override { return 1; }
    std::string midiOutGetDevCapsA(int) override { return {}; }
    std::uint32_t midiOutOpen(platform::MidiOutHandle&, int) override { return 0; }
    std::uint32_t midiOutClose(platform::MidiOutHandle) override { return 0; }
    std::uint32_t midiOutShortMsg(platform::MidiOutHandle, std::uint32_t) override {
        ++messages;
        return 0;
    }
};

TEST(Playing, TakesNoMemory) {
    scripted::ScriptedPlatform host;
    CountingMidi midi;
    platform::Platform platform{host.time,    host.time,  midi,       host.mci,
                                host.dialogs, host.boxes, host.files, host.settings,
                                host.desktop, host.menus, host.time,  host.systemFiles,
                                host.encoder, {}};
    PlainSetup setup;
    Studio studio(platform, setup);
    NoDesk desk;
    NoteSounding sounding(studio, desk);
    StopWatch watch(host.time, host.time);
    Sequencer sequencer(studio, sounding, watch, desk);
    sequencer.PlayTimer = watch.StopWatchNew();
    for (int row = 0; row < scoreRows; ++row) {
        for (int column = 0; column < scoreColumns; ++column) {
            studio.score.NoteArray.write(row, column, 60);
            studio.score.InstrumentArray.write(row, column,
                                               static_cast<std::int16_t>(column % 175));
        }
    }
    for (int row = 0; row < musicRows; ++row)
        setup.row[static_cast<std::size_t>(row)].chord = true;
    studio.run.RecordToolbarOpen = flagSet;

    const long before = allocationCount();
    sequencer.PlayAndStop_Click(0);
    EXPECT_EQ(allocationCount(), before);
    EXPECT_GT(midi.messages, 13L * 1001 * 5); // a note on and four note offs for every cell
}

} // namespace
} // namespace velorin
