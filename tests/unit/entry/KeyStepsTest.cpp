// Keys that are pressed together are a chord.
#include "entry/KeySteps.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace velorin {
namespace {

struct KeyStepsTest : testing::Test {
    KeyStepsTest() {
        keys.onChord = [this](const std::vector<int>& chord) {
            std::string line;
            for (const int key : chord) {
                line += line.empty() ? "" : " ";
                line += std::to_string(key);
            }
            steps.push_back(line);
        };
        keys.onRest = [this] { steps.emplace_back("rest"); };
    }

    KeySteps keys;
    std::vector<std::string> steps;
};

using Steps = std::vector<std::string>;

TEST_F(KeyStepsTest, AKeyIsAStepWhenItIsReleased) {
    keys.press(60);
    EXPECT_EQ(steps, Steps{});
    keys.release(60);
    keys.release(60);
    EXPECT_EQ(steps, Steps{"60"});
}

TEST_F(KeyStepsTest, KeysBeforeTheFirstReleaseAreAChordFromTheHighest) {
    keys.press(60);
    keys.press(67);
    keys.press(64);
    keys.release(64);
    keys.release(67);
    keys.release(60);
    EXPECT_EQ(steps, Steps{"67 64 60"});
}

TEST_F(KeyStepsTest, AKeyAfterTheFirstReleaseBeginsTheNextChord) {
    keys.press(60);
    keys.press(64);
    keys.release(60);
    keys.press(67);
    keys.release(64);
    EXPECT_EQ(steps, Steps{"64 60"});
    keys.release(67);
    EXPECT_EQ(steps, (Steps{"64 60", "67"}));
}

TEST_F(KeyStepsTest, AKeyThatIsPressedAgainWasReleased) {
    keys.press(60);
    keys.press(60);
    EXPECT_EQ(steps, Steps{"60"});
    keys.release(60);
    EXPECT_EQ(steps, (Steps{"60", "60"}));
}

TEST_F(KeyStepsTest, ThePedalIsARestOnceForEachPress) {
    keys.pedal(64);
    keys.pedal(127);
    EXPECT_EQ(steps, Steps{"rest"});
    keys.pedal(63);
    keys.pedal(0);
    keys.pedal(127);
    EXPECT_EQ(steps, (Steps{"rest", "rest"}));
}

TEST_F(KeyStepsTest, ARestComesAfterTheChordThatIsHeld) {
    keys.press(60);
    keys.pedal(127);
    keys.release(60);
    EXPECT_EQ(steps, (Steps{"60", "rest"}));
}

TEST_F(KeyStepsTest, AKeyboardThatIsGoneLeavesNoChord) {
    keys.press(60);
    keys.pedal(127);
    keys.press(62);
    keys.forget();
    keys.release(62);
    keys.pedal(127);
    EXPECT_EQ(steps, (Steps{"60", "rest", "rest"}));
}

TEST_F(KeyStepsTest, ThereAreNoOtherKeys) {
    keys.press(-1);
    keys.press(128);
    keys.release(128);
    keys.press(0);
    keys.press(127);
    keys.release(0);
    EXPECT_EQ(steps, Steps{"127 0"});
}

} // namespace
} // namespace velorin
