// The families of instruments and percussion sounds.
#include "model/InstrumentFamilies.h"

#include "model/InstrumentNames.h"

#include <gtest/gtest.h>

#include <map>
#include <set>

using namespace velorin;

TEST(InstrumentFamilies, EachHasEightProgramsInOneRun) {
    EXPECT_EQ(instrumentFamily(0), "Piano");
    EXPECT_EQ(instrumentFamily(7), "Piano");
    EXPECT_EQ(instrumentFamily(8), "Chromatic percussion");
    EXPECT_EQ(instrumentFamily(24), "Guitar");
    EXPECT_EQ(instrumentFamily(127), "Sound effects");
    std::map<std::string_view, int> programs;
    for (int program = 0; program < 128; ++program)
        ++programs[instrumentFamily(program)];
    EXPECT_EQ(programs.size(), 16U);
    for (const auto& [family, count] : programs)
        EXPECT_EQ(count, 8) << family;
}

TEST(InstrumentFamilies, DrumsAreInTheOrderOfTheirKeysSoFamiliesTakeTurns) {
    const auto familyOf = [](std::string_view name) {
        for (int sound = 0; sound < 47; ++sound)
            if (percussionNames.at(static_cast<std::size_t>(sound)) == name)
                return percussionFamily(sound);
        return std::string_view();
    };
    EXPECT_EQ(familyOf("Acoustic Bass Drum"), "Drums");
    EXPECT_EQ(familyOf("High Floor Tom"), "Drums");
    EXPECT_EQ(familyOf("Closed Hi-Hat"), "Cymbals");
    EXPECT_EQ(familyOf("Ride Bell"), "Cymbals");
    EXPECT_EQ(familyOf("Low Conga"), "Hand drums");
    EXPECT_EQ(familyOf("Maracas"), "Shakers and blocks");
    EXPECT_EQ(familyOf("Low Wood Block"), "Shakers and blocks");
    EXPECT_EQ(familyOf("Open Triangle"), "Others");
    std::set<std::string_view> all;
    for (int sound = 0; sound < 47; ++sound)
        all.insert(percussionFamily(sound));
    EXPECT_EQ(all, (std::set<std::string_view>{"Drums", "Cymbals", "Hand drums",
                                               "Shakers and blocks", "Others"}));
}

TEST(InstrumentFamilies, OutsideTheListsThereIsNone) {
    EXPECT_EQ(instrumentFamily(-1), "");
    EXPECT_EQ(instrumentFamily(128), "");
    EXPECT_EQ(percussionFamily(-1), "");
    EXPECT_EQ(percussionFamily(47), "");
}
