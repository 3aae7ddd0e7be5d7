// The note that lets the user hear an instrument before it is chosen.
#include "playback/InstrumentSample.h"
#include "PlaybackStage.h"

#include <gtest/gtest.h>

namespace velorin {
namespace {

struct InstrumentSampleTest : testing::Test, PlaybackStage {
    static constexpr scripted::Nanoseconds second = scripted::nanosecondsPerSecond;
    InstrumentSample sample{studio, sounding};
};

TEST_F(InstrumentSampleTest, IsMiddleCForEightTenthsOfASecondOnAChannelOfItsOwn) {
    int ends = 0;
    sample.onEnd = [&ends] { ++ends; };
    sample.start(26);
    EXPECT_EQ(sample.current(), 26);
    EXPECT_EQ(midi(), (Lines{"0.000 BF 00 00", "0.000 BF 20 00", "0.000 CF 1A", "0.000 9F 3C 7F"}));
    host.time.pass(2 * second);
    EXPECT_EQ(midi(), (Lines{"0.800 8F 3C 00"}));
    EXPECT_EQ(sample.current(), std::nullopt);
    EXPECT_EQ(ends, 1);
}

TEST_F(InstrumentSampleTest, OfANoteIsSoftAndEndsAtItsOwnPitch) {
    sample.startSoftly(26, 67); // 5C is key 60; a volume of 127 becomes 50
    sample.startSoftly(26, 66);
    EXPECT_EQ(midi(), (Lines{"0.000 BF 00 00", "0.000 BF 20 00", "0.000 CF 1A", "0.000 9F 3C 32",
                             "0.000 8F 3C 00", "0.000 BF 00 00", "0.000 BF 20 00", "0.000 CF 1A",
                             "0.000 9F 3D 32"}));
    host.time.pass(second);
    EXPECT_EQ(midi(), (Lines{"0.800 8F 3D 00"}));
}

TEST_F(InstrumentSampleTest, OfANoteOfAVerySoftRowIsStillHeard) {
    setup.options.rows[0].volume = "2"; // four tenths are less than 1
    sample.startSoftly(128, 67);
    EXPECT_EQ(midi(), (Lines{"0.000 99 23 01"}));
}

TEST_F(InstrumentSampleTest, OfTheOutermostNotesIsTheirKeys) {
    setup.options.rows[0].volume = "100"; // four tenths are hex 28
    sample.startSoftly(26, 0);
    EXPECT_EQ(midi().back(), "0.000 9F 7F 28");
    sample.startSoftly(26, 127);
    EXPECT_EQ(midi().back(), "0.000 9F 00 28");
}

TEST_F(InstrumentSampleTest, OfANoteOutsideTheTableauIsNothing) {
    sample.startSoftly(26, -1);
    sample.startSoftly(26, 128);
    EXPECT_EQ(midi(), Lines{});
}

TEST_F(InstrumentSampleTest, OfADrumIsItsKeyOnTheDrumsChannel) {
    sample.start(128);
    host.time.pass(second);
    EXPECT_EQ(midi(), (Lines{"0.000 99 23 7F", "0.800 89 23 00"}));
}

TEST_F(InstrumentSampleTest, HasTheVolumeOfTheCurrentRow) {
    studio.score.CurrentRow = 3;
    setup.options.rows[3].volume = "40";
    sample.start(130);
    EXPECT_EQ(midi(), (Lines{"0.000 99 25 28"}));
    setup.options.rows[3].volume = "300";
    sample.start(130);
    EXPECT_EQ(midi(), (Lines{"0.000 89 25 00", "0.000 99 25 7F"}));
    setup.options.rows[3].volume = "0";
    sample.start(130);
    EXPECT_EQ(midi(), (Lines{"0.000 89 25 00"}));
    EXPECT_EQ(sample.current(), std::nullopt);
    studio.score.CurrentRow = 9; // has no volume box
    sample.start(130);
    EXPECT_EQ(midi(), (Lines{"0.000 99 25 7F"}));
}

TEST_F(InstrumentSampleTest, EndsTheOneBeforeAndItselfWhenItGoes) {
    {
        InstrumentSample other(studio, sounding);
        other.start(0);
        midi();
        other.start(128);
        EXPECT_EQ(midi(), (Lines{"0.000 8F 3C 00", "0.000 99 23 7F"}));
    }
    EXPECT_EQ(midi(), (Lines{"0.000 89 23 00"}));
    host.time.pass(2 * second);
    EXPECT_EQ(midi(), Lines{});
}

TEST_F(InstrumentSampleTest, IsOffWhileASongPlaysOrIsRecorded) {
    studio.run.IsPlaying = flagSet;
    EXPECT_TRUE(sample.isOff());
    sample.start(5);
    EXPECT_EQ(midi(), Lines{});
    studio.run.IsPlaying = flagClear;
    studio.run.RecordingFlag = flagSet;
    EXPECT_TRUE(sample.isOff());
    sample.start(5);
    EXPECT_EQ(midi(), Lines{});
    studio.run.RecordingFlag = flagClear;
    EXPECT_FALSE(sample.isOff());
}

TEST_F(InstrumentSampleTest, ChangesNothingThatASongUses) {
    studio.score.CurrentRow = 2;
    sounding.SoundRow = 1;
    sounding.PercussionKey[2] = 50;
    setup.options.rows[2].volume = "20";
    sample.start(130);
    sample.start(4);
    sample.stop();
    EXPECT_EQ(sounding.SoundRow, 1);
    EXPECT_EQ(sounding.Velocity, 127);
    EXPECT_EQ(sounding.NoteKey, 0);
    EXPECT_EQ(sounding.LastMessages[0], 0);
    EXPECT_EQ(sounding.PercussionRow[2], flagClear);
    EXPECT_EQ(sounding.PercussionKey[2], 50);
    EXPECT_EQ(sounding.PercussionChoice, 0);
    EXPECT_EQ(studio.score.RowInstrument[2], 0);
}

} // namespace
} // namespace velorin
