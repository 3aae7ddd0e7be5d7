// The instruments' names as the lists show them.
#include "score/InstrumentNames.h"

#include "score/PlainSetup.h"

#include <gtest/gtest.h>

using namespace velorin;

TEST(InstrumentNames, ProgramsGoFromTheGrandPianoToTheGunshot) {
    EXPECT_EQ(programEntry(0), "0 Acoustic Grand Piano");
    EXPECT_EQ(programEntry(24), "24 Nylon Guitar");
    EXPECT_EQ(programEntry(73), "73 Flute");
    EXPECT_EQ(programEntry(127), "127 Gunshot");
}

TEST(InstrumentNames, PercussionIsNumberedFrom128) {
    EXPECT_EQ(percussionEntry(0), "128 Acoustic Bass Drum");
    EXPECT_EQ(percussionEntry(3), "131 Acoustic Snare");
    EXPECT_EQ(percussionEntry(46), "174 Open Triangle");
}

TEST(InstrumentNames, OutsideTheListsThereIsNoEntry) {
    EXPECT_EQ(programEntry(-1), "");
    EXPECT_EQ(programEntry(128), "");
    EXPECT_EQ(percussionEntry(-1), "");
    EXPECT_EQ(percussionEntry(47), "");
}

TEST(InstrumentNames, EveryEntryHasAName) {
    for (int program = 0; program < 128; ++program)
        EXPECT_FALSE(programName(program).empty()) << program;
    for (int index = 0; index < 47; ++index)
        EXPECT_FALSE(percussionName(index).empty()) << index;
}

TEST(InstrumentNames, PlainSetupShowsTheSameEntries) {
    PlainSetup setup;
    EXPECT_EQ(setup.Combo1Entry(setup.Combo1()), "24 Nylon Guitar");
    EXPECT_EQ(setup.Combo5Entry(setup.Combo5()), "128 Acoustic Bass Drum");
}
