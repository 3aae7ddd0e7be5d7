// The feet of the tails: where they are, and how well they are seen.
#include "windows/sheet/TailFeet.h"

#include "support/TableauStage.h"

#include <gtest/gtest.h>

#include <string>

using namespace velorin;
using scripted::TableauStage;

namespace {

constexpr Colour band = rgb(224, 224, 224);
constexpr Colour pinkFoot = rgb(128, 96, 128); // half of 255,192,255

/// A view of 46 columns; line 0 is pitch 55. Rows 0 and 1 are drawn, row 0 is active.
struct Feet : testing::Test {
    Feet() {
        stage.resize(640, 480);
        for (auto& open : stage.studio.view.RowOpen)
            open = flagSet;
        stage.studio.view.ChannelColor = channelColors;
        stage.studio.view.PaleColor = paleColors;
    }

    /// "24,8 36" for a foot 36 wide at (24, 8); one line for each.
    std::string found() {
        feet.update(stage.studio, 24);
        std::string lines;
        for (const TailFoot& foot : feet.all())
            lines += std::to_string(foot.x) + "," + std::to_string(foot.y) + " " +
                     std::to_string(foot.widthPx) + "\n";
        return lines;
    }

    TableauStage stage;
    TailFeet feet;
};

} // namespace

TEST_F(Feet, AFootIsBelowTheTailFromTheSecondColumnOn) {
    stage.note(1, 2, 57, 4);
    EXPECT_EQ(found(), "36,32 36\n");
    EXPECT_EQ(feet.all()[0].colour, pinkFoot);
}

TEST_F(Feet, ANoteOfOneColumnHasNoFoot) {
    stage.note(1, 2, 57, 1);
    EXPECT_EQ(found(), "");
}

TEST_F(Feet, ActiveRedAndBlueNeedNone) {
    stage.note(0, 2, 57, 4);
    EXPECT_EQ(found(), "");
    stage.studio.score.CurrentRow = 1;
    EXPECT_EQ(found(), "36,32 36\n"); // red is pale now
    stage.note(1, 2, 60, 4);
    EXPECT_EQ(found(), "36,32 36\n");
}

TEST_F(Feet, AFootStopsAtAHeadOfAnotherRow) {
    stage.note(1, 2, 57, 6);
    stage.note(2, 5, 57, 1);
    EXPECT_EQ(found(), "36,32 24\n72,32 24\n");
}

TEST_F(Feet, TheTailThatIsDrawnLastHasTheFoot) {
    stage.note(1, 2, 57, 6);
    stage.note(0, 3, 57, 3); // active red covers columns 4 and 5
    EXPECT_EQ(found(), "72,32 24\n");
}

TEST_F(Feet, NotesOutOfViewAndHiddenRowsHaveNone) {
    stage.note(1, 2, 54, 4);
    stage.note(1, 2, 79, 4); // line 24
    EXPECT_EQ(found(), "");
    stage.studio.view.RowOpen[1] = flagClear;
    stage.note(1, 8, 57, 4);
    EXPECT_EQ(found(), "");
}

TEST_F(Feet, ANoteThatBeginsLeftOfTheViewHasAFootFromTheSecondColumnInView) {
    stage.note(1, 2, 57, 6);
    stage.studio.view.FirstColumn = 4;
    EXPECT_EQ(found(), "12,32 36\n");
}

// The tails alone have 1.07 to 1.7 on white; 3 is needed for what is not text.
TEST(FootColour, EveryFootIsSeenOnWhiteAndOnTheBands) {
    EXPECT_NEAR(contrast(rgb(255, 255, 0), white), 1.07, 0.005);
    EXPECT_NEAR(contrast(rgb(0, 255, 255), white), 1.25, 0.005);
    EXPECT_NEAR(contrast(rgb(0, 255, 0), white), 1.37, 0.005);
    EXPECT_NEAR(contrast(0, white), 21.0, 0.001);
    int feet = 0;
    for (int row = 0; row < musicRows; ++row) {
        for (const bool isActive : {false, true}) {
            const Colour tail = isActive ? channelColors[row] : paleColors[row];
            const std::optional<Colour> foot = footColour(tail, isActive);
            feet += foot.has_value() ? 1 : 0;
            EXPECT_GE(contrast(foot.value_or(tail), white), isActive && foot ? 4.5 : 3.0) << row;
            EXPECT_GE(contrast(foot.value_or(tail), band), 3.0) << row;
        }
    }
    EXPECT_EQ(feet, 14); // all but the active red and the active blue
}
