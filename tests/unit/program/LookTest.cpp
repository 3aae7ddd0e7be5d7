// The look of the windows where more than the style sheet decides it.
#include "WholeProgram.h"

#include <gtest/gtest.h>

#include <QImage>

using namespace velorin;

namespace {

TEST(LookTest, ButtonsOfThePlayerAreOnAStripThatGoesDarkWhileItRecords) {
    WholeProgram whole;
    auto* const strip = whole.program.window("Record", true)->findChild<QWidget*>("Picture7");
    const auto lightness = [strip](int y) {
        return strip->grab().toImage().pixelColor(75, y).lightness();
    };
    EXPECT_GT(lightness(3), lightness(40));
    strip->setEnabled(false);
    EXPECT_EQ(lightness(3), lightness(40));
}

} // namespace
