// The instruments' names as the lists show them.
#include "model/InstrumentNames.h"

#include <gtest/gtest.h>

using namespace velorin;

TEST(InstrumentNames, ProgramsGoFromTheGrandPianoToTheGunshot) {
    EXPECT_EQ(instrumentEntry(0), "0 Acoustic Grand Piano");
    EXPECT_EQ(instrumentEntry(24), "24 Nylon Guitar");
    EXPECT_EQ(instrumentEntry(73), "73 Flute");
    EXPECT_EQ(instrumentEntry(127), "127 Gunshot");
}

TEST(InstrumentNames, PercussionIsNumberedFrom128) {
    EXPECT_EQ(percussionEntry(0), "128 Acoustic Bass Drum");
    EXPECT_EQ(percussionEntry(3), "131 Acoustic Snare");
    EXPECT_EQ(percussionEntry(46), "174 Open Triangle");
}

TEST(InstrumentNames, OutsideTheListsThereIsNoEntry) {
    EXPECT_EQ(instrumentEntry(-1), "");
    EXPECT_EQ(instrumentEntry(128), "");
    EXPECT_EQ(percussionEntry(-1), "");
    EXPECT_EQ(percussionEntry(47), "");
}

TEST(InstrumentNames, EveryEntryHasAName) {
    for (std::size_t program = 0; program < 128; ++program)
        EXPECT_FALSE(instrumentNames.at(program).empty()) << program;
    for (std::size_t index = 0; index < 47; ++index)
        EXPECT_FALSE(percussionNames.at(index).empty()) << index;
}
