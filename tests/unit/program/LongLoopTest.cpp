// A song that loops for hours in the real windows: the marker, the progress display and the redraw
// of every pass take no memory. VELORIN_LOOP_HOURS says how long; a day takes some minutes.
#include "program/Program.h"
#include "support/ScriptedPlatform.h"
#include "windows/frame/Look.h"
#include "windows/main/Form1.h"

#include <gtest/gtest.h>

#include <QApplication>

#include <malloc.h>

#include <cstdlib>

namespace velorin {
namespace {

constexpr double mostGrowthMb = 2.0;

scripted::Nanoseconds loopTime() {
    const char* hours = std::getenv("VELORIN_LOOP_HOURS");
    return static_cast<scripted::Nanoseconds>((hours != nullptr ? std::atof(hours) : 0.1) * 3600e9);
}

double heapMb() {
    const auto info = mallinfo2();
    return static_cast<double>(info.uordblks + info.hblkhd) / 1e6;
}

/// Takes every message and keeps none.
struct CountingMidi final : platform::MidiOut {
    long notes = 0;
    int midiOutGetNumDevs() override { return 1; }
    std::string midiOutGetDevCapsA(int) override { return "Counter"; }
    std::uint32_t midiOutOpen(platform::MidiOutHandle&, int) override { return 0; }
    std::uint32_t midiOutClose(platform::MidiOutHandle) override { return 0; }
    std::uint32_t midiOutShortMsg(platform::MidiOutHandle, std::uint32_t message) override {
        notes += (message & 0xF0U) == 0x90U ? 1 : 0;
        return 0;
    }
};

TEST(ALoopInTheWindows, OfHoursTakesNoMemory) {
    scripted::ScriptedPlatform host;
    CountingMidi midi;
    platform::Platform platform{host.time,    host.time,
                                midi,         host.mci,
                                host.dialogs, host.boxes,
                                host.files,   host.settings,
                                host.desktop, host.menus,
                                host.time,    host.systemFiles,
                                host.encoder, host.folder.path().string()};
    applyLook(*qApp);
    Program program(platform);
    ASSERT_TRUE(program.start());
    program.form1().resize(640, 480); // 46 columns: two pages
    program.windows.show(Tool::recording);
    Studio& studio = program.studio();
    studio.score.Tempo = 300;
    for (int column = 0; column < 60; column += 2)
        studio.score.NoteArray.write(column % 8, column, 60);
    studio.run.LoopSong = flagSet;

    double settled = 0.0;
    double atEnd = 0.0;
    host.time.plan(loopTime() / 10, [&] { settled = heapMb(); });
    host.time.plan(loopTime(), [&] {
        atEnd = heapMb();
        studio.run.LoopSong = flagClear;
    });
    program.session.sequencer.PlayAndStop_Click(0);

    EXPECT_LT(atEnd, settled + mostGrowthMb);
    // 60 columns of 40 ms a pass, 30 notes in it, and a pass that is played out.
    const double passes = static_cast<double>(loopTime()) / (60 * 0.04e9);
    EXPECT_NEAR(static_cast<double>(midi.notes), passes * 30, 32);
    EXPECT_EQ(studio.run.IsPlaying, flagClear);
    program.Command3_Click();
}

} // namespace
} // namespace velorin
