// The drawn title: the name of the score and its mark.
#include "windows/strip/TitleLabel.h"

#include <gtest/gtest.h>

using namespace velorin;

namespace {

constexpr int wide = 1000;

} // namespace

TEST(TitleLabel, SaysTheScoreAndWhetherItIsSaved) {
    EXPECT_EQ(TitleLabel::titleOf("", false), "Velorin");
    EXPECT_EQ(TitleLabel::titleOf("paper-boat", false), "paper-boat - Velorin");
    EXPECT_EQ(TitleLabel::titleOf("paper-boat", true), "paper-boat \u2022 - Velorin");
}

TEST(TitleLabel, CaptionStaysAndTheReaderHearsTheState) {
    TitleLabel label("Velorin", nullptr);
    EXPECT_EQ(label.shown(wide), "Velorin");
    label.showScore("paper-boat", true);
    EXPECT_EQ(label.text(), "Velorin");
    EXPECT_EQ(label.shown(wide), "paper-boat \u2022 - Velorin");
    EXPECT_EQ(label.accessibleName(), "paper-boat, not saved");
    label.showScore("paper-boat", false);
    EXPECT_EQ(label.accessibleName(), "paper-boat, saved");
    label.showScore("", false);
    EXPECT_EQ(label.accessibleName(), "");
}

TEST(TitleLabel, LongNameIsElidedInItsMiddleAndTheMarkStays) {
    TitleLabel label("Velorin", nullptr);
    label.showScore(QString(200, 'a') + "end", true);
    const QString shown = label.shown(300);
    EXPECT_LE(label.fontMetrics().horizontalAdvance(shown), 300);
    EXPECT_TRUE(shown.startsWith("aaa"));
    EXPECT_TRUE(shown.endsWith("end \u2022 - Velorin")) << shown.toStdString();
}
