// The texts of the settings store.
#include "windows/frame/SettingValues.h"

#include <gtest/gtest.h>

namespace velorin {
namespace {

TEST(SettingValues, ABooleanIsWrittenAsAWord) {
    EXPECT_EQ(settingText(true), "True");
    EXPECT_EQ(settingText(false), "False");
}

TEST(SettingValues, ABooleanIsReadAsAWordInAnyCaseOrAsANumber) {
    EXPECT_EQ(settingBoolean("True"), true);
    EXPECT_EQ(settingBoolean(" fALSE "), false);
    EXPECT_EQ(settingBoolean("-1"), true);
    EXPECT_EQ(settingBoolean("0"), false);
    EXPECT_EQ(settingBoolean("0.5"), true);
}

TEST(SettingValues, OtherTextsAreNoBoolean) {
    EXPECT_EQ(settingBoolean(""), std::nullopt);
    EXPECT_EQ(settingBoolean("yes"), std::nullopt);
    EXPECT_EQ(settingBoolean("1x"), std::nullopt);
}

TEST(SettingValues, APositionIsATextOfSinglePrecision) {
    EXPECT_EQ(settingText(100.0F), "100");
    EXPECT_EQ(settingText(-15.0F), "-15");
    EXPECT_EQ(settingText(7340.5F), "7340.5");
    EXPECT_EQ(settingText(0.1F), "0.1");
}

TEST(SettingValues, APositionComesBackAsItWasWritten) {
    for (const float twips : {0.0F, 100.0F, -3000.0F, 1234.5F, 15360.0F}) {
        EXPECT_EQ(settingTwips(settingText(twips)), twips);
    }
}

TEST(SettingValues, ATextWithoutDigitsIsNoPosition) {
    EXPECT_EQ(settingTwips(""), std::nullopt);
    EXPECT_EQ(settingTwips("left"), std::nullopt);
    EXPECT_EQ(settingTwips("1e99"), std::nullopt);
    EXPECT_EQ(settingTwips("120 twips"), 120.0F);
}

} // namespace
} // namespace velorin
