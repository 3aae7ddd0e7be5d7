// A song that loops for hours: every note has the time that the stopwatch's arithmetic gives it, no
// memory is allocated, and the end steps of all passes run. VELORIN_LOOP_HOURS says how long; a day
// takes some seconds.
#include "AllocationCount.h"
#include "QuietStage.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>

namespace velorin {
namespace {

using scripted::Nanoseconds;

constexpr int columnsOfAPass = 4; ///< 0 to 3
constexpr int notesOfAPass = 2;   ///< in columns 0 and 2

Nanoseconds loopTime() {
    const char* hours = std::getenv("VELORIN_LOOP_HOURS");
    return static_cast<Nanoseconds>((hours != nullptr ? std::atof(hours) : 0.5) * 3600e9);
}

/// The expected times of the columns. A wait ends at the single-precision sum of its start and the
/// column time, both in single precision.
class ColumnTimes {
public:
    explicit ColumnTimes(float columnSeconds) : columnSeconds_(columnSeconds) {}

    void startWatch() { start_ = now_; }
    Nanoseconds next() {
        const auto begin = static_cast<float>(static_cast<double>(now_ - start_) / 1e9);
        const float end = begin + columnSeconds_;
        now_ = start_ + static_cast<Nanoseconds>(std::round(static_cast<double>(end) * 1e9));
        return now_;
    }

private:
    float columnSeconds_;
    Nanoseconds start_ = 0;
    Nanoseconds now_ = 0;
};

/// Counts the notes and stores the first one with a wrong time.
class TimedMidi final : public AcceptingMidi {
public:
    TimedMidi(scripted::VirtualTime& time, float columnSeconds, bool eachPassStartsTheWatch)
        : time_(time), columns_(columnSeconds), eachPassStarts_(eachPassStartsTheWatch) {}

    std::uint32_t midiOutShortMsg(platform::MidiOutHandle, std::uint32_t message) override {
        if ((message & 0xF0U) == 0x90U)
            takeNote();
        return 0;
    }

    long notes = 0;
    long firstWrong = -1;
    Nanoseconds last = 0;

private:
    void takeNote() {
        if (notes % notesOfAPass == 0 && eachPassStarts_)
            columns_.startWatch();
        last = columns_.next();
        if (last != time_.now() && firstWrong < 0)
            firstWrong = notes;
        columns_.next(); // the rest after it
        ++notes;
    }

    scripted::VirtualTime& time_;
    ColumnTimes columns_;
    bool eachPassStarts_;
};

class ALoop : public testing::TestWithParam<std::tuple<bool, int>> {
protected:
    [[nodiscard]] bool hasMarker() const { return std::get<0>(GetParam()); }
    [[nodiscard]] int tempo() const { return std::get<1>(GetParam()); }
    [[nodiscard]] float columnSeconds() const { return static_cast<float>(300.0 / tempo() * 0.04); }
};

TEST_P(ALoop, OfHoursKeepsItsTimeAndTakesNoMemory) {
    QuietStage<TimedMidi> stage(columnSeconds(), hasMarker());
    Studio& studio = stage.studio;
    const TimedMidi& midi = stage.midi;
    studio.score.Tempo = static_cast<std::int16_t>(tempo());
    studio.score.NoteArray.write(0, 0, 60);
    studio.score.NoteArray.write(0, 2, 64);
    studio.run.ShowNotePosition = hasMarker() ? flagSet : flagClear;
    studio.run.LoopSong = flagSet;
    studio.run.RecordToolbarOpen = flagSet;

    long settled = 0;
    long atEnd = 0;
    stage.host.time.plan(loopTime() / 10, [&] { settled = allocationCount(); });
    stage.host.time.plan(loopTime(), [&] {
        atEnd = allocationCount();
        studio.run.LoopSong = flagClear;
    });
    stage.sequencer.PlayAndStop_Click(0);

    EXPECT_EQ(midi.firstWrong, -1);
    EXPECT_EQ(atEnd, settled);
    EXPECT_NEAR(static_cast<double>(midi.notes),
                static_cast<double>(loopTime()) / 1e9 / columnSeconds() * notesOfAPass /
                    columnsOfAPass,
                0.03 * static_cast<double>(midi.notes));
    // Every pass but the first is inside another one, and each waits for one more column.
    const long passes = hasMarker() ? midi.notes / notesOfAPass : 1;
    const double end =
        static_cast<double>(midi.last) / 1e9 + columnSeconds() * (1.0 + 1.0 * passes);
    // After a day the numbers in single precision are 7.8 ms apart, after some hours 2 ms.
    EXPECT_NEAR(static_cast<double>(stage.host.time.now()) / 1e9, end,
                0.008 + 0.01 * columnSeconds() * static_cast<double>(passes));
    EXPECT_EQ(studio.run.ProgressCount, 0);
    EXPECT_EQ(studio.run.IsPlaying, flagClear);
}

INSTANTIATE_TEST_SUITE_P(WithAndWithoutTheMarker, ALoop,
                         testing::Combine(testing::Bool(), testing::Values(20, 100, 300)));

} // namespace
} // namespace velorin
