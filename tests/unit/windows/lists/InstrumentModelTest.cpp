// The rows of an open list of instruments, and the search in them.
#include "windows/lists/InstrumentModel.h"

#include <gmock/gmock.h>

#include <string>

using testing::ElementsAre;
using testing::IsEmpty;

namespace velorin {
namespace {

/// The rows as a user reads them, with "[Guitar]" for a heading.
std::vector<std::string> shown(const InstrumentModel& model) {
    std::vector<std::string> lines;
    for (int row = 0; row < model.rowCount(); ++row) {
        if (model.hasHeading(row))
            lines.push_back((u'[' + model.instrument(row)->family + u']').toStdString());
        lines.push_back(model.instrument(row)->entry().toStdString());
    }
    return lines;
}

struct InstrumentModelTest : testing::Test {
    std::vector<std::string> typed(const char* text) {
        model.setTyped(QString::fromLatin1(text));
        return shown(model);
    }
    InstrumentModel model{melodicInstruments()};
};

TEST_F(InstrumentModelTest, AllEntriesAreThereInTheirOrderBelowTheirFamilies) {
    const auto lines = shown(model);
    ASSERT_EQ(lines.size(), 128U + 16U);
    EXPECT_EQ(lines[0], "[Piano]");
    EXPECT_EQ(lines[1], "0 Acoustic Grand Piano");
    EXPECT_EQ(lines[27], "[Guitar]");
    EXPECT_EQ(lines[28], "24 Nylon Guitar");
    EXPECT_EQ(lines[143], "127 Gunshot");
}

TEST_F(InstrumentModelTest, AnyPartOfANameIsFoundInAnyCase) {
    EXPECT_THAT(typed("gui"),
                ElementsAre("[Guitar]", "24 Nylon Guitar", "25 Steel Guitar", "26 Jazz Guitar",
                            "27 Clean Guitar", "28 Muted Guitar", "29 Overdriven Guitar",
                            "30 Distortion Guitar", "31 Guitar Harmonics", "[Sound effects]",
                            "120 Guitar Fret Noise"));
    EXPECT_THAT(typed("FLU"), ElementsAre("[Pipe]", "73 Flute", "75 Pan Flute"));
    EXPECT_THAT(typed("  harp "),
                ElementsAre("[Piano]", "6 Harpsichord", "[Strings]", "46 Orchestral Harp"));
    EXPECT_THAT(typed("xyz"), IsEmpty());
    EXPECT_EQ(typed("").size(), 144U);
}

TEST_F(InstrumentModelTest, ANumberIsFoundByItsBeginningAndAnEntryByAllOfIt) {
    EXPECT_THAT(typed("73"), ElementsAre("[Pipe]", "73 Flute"));
    EXPECT_THAT(typed("73 fl"), ElementsAre("[Pipe]", "73 Flute"));
    EXPECT_THAT(typed("120"), ElementsAre("[Sound effects]", "120 Guitar Fret Noise"));
}

TEST_F(InstrumentModelTest, ARowKnowsItsPlaceInTheWholeList) {
    typed("flute");
    EXPECT_EQ(model.placeOf(1), 75);
    EXPECT_EQ(model.rowOf(75), 1);
    EXPECT_EQ(model.rowOf(24), -1);
    EXPECT_EQ(model.placeOf(2), -1);
    EXPECT_EQ(model.placeOf(-1), -1);
}

TEST_F(InstrumentModelTest, ScreenReadersHearTheEntryAndItsFamily) {
    const QModelIndex row = model.index(24, 0);
    EXPECT_EQ(model.data(row, Qt::AccessibleTextRole).toString(), "24 Nylon Guitar");
    EXPECT_EQ(model.data(row, Qt::AccessibleDescriptionRole).toString(), "Guitar");
}

TEST(PercussionModelTest, AFamilyHasAHeadingWhereverItComesAgain) {
    const InstrumentModel model(percussionSounds());
    const auto lines = shown(model);
    ASSERT_GE(lines.size(), 13U);
    EXPECT_THAT(std::vector(lines.begin(), lines.begin() + 13),
                ElementsAre("[Drums]", "128 Acoustic Bass Drum", "129 Bass Drum 1",
                            "130 Side Stick", "131 Acoustic Snare", "[Others]", "132 Hand Clap",
                            "[Drums]", "133 Electric Snare", "134 Low Floor Tom", "[Cymbals]",
                            "135 Closed Hi-Hat", "[Drums]"));
    EXPECT_EQ(model.rowCount(), 47);
}

} // namespace
} // namespace velorin
