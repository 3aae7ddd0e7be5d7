// Numbers out of texts, and the text operations behind file names.
#include "platform/Text.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

using namespace platform;

TEST(Text, NumericPrefixEndsAtTheFirstCharacterThatIsNoNumber) {
    EXPECT_EQ(Val("  12abc"), 12.0);
    EXPECT_EQ(Val("-3.5.7"), -3.5);
    EXPECT_EQ(Val("+4"), 4.0);
    EXPECT_EQ(Val("1 2"), 1.0);
    EXPECT_EQ(Val(".5"), 0.5);
    EXPECT_EQ(Val("2e3"), 2000.0);
    EXPECT_EQ(Val("2D+3"), 2000.0);
    EXPECT_EQ(Val("2e"), 2.0);
}

TEST(Text, TextWithoutDigitsIsZero) {
    EXPECT_EQ(Val(""), 0.0);
    EXPECT_EQ(Val("abc"), 0.0);
    EXPECT_EQ(Val("-"), 0.0);
    EXPECT_EQ(Val("."), 0.0);
    EXPECT_EQ(Val("\t7"), 0.0) << "only blanks are skipped";
}

TEST(Text, NumberOfAHundredDigitsIsLargeAndNoSixteenBitNumber) {
    const std::string digits(100, '9');
    EXPECT_GT(Val(digits), 9e99);
    EXPECT_FALSE(readInt16(digits).has_value());
    EXPECT_EQ(Val(std::string(400, '9')), std::numeric_limits<double>::infinity());
    EXPECT_EQ(Val("1e-999"), 0.0);
}

TEST(Text, NumberTooNearToZeroIsZeroAndOneTooFarIsInfinite) {
    const double infinity = std::numeric_limits<double>::infinity();
    EXPECT_EQ(Val("0." + std::string(400, '0') + "1"), 0.0);
    EXPECT_EQ(Val("0." + std::string(400, '0') + "1e5"), 0.0);
    EXPECT_EQ(Val("1" + std::string(400, '0') + "e-50"), infinity);
    EXPECT_EQ(Val("-1e400"), -infinity);
    EXPECT_EQ(Val("1e99999999999999999999"), infinity);
    EXPECT_EQ(Val("1e-99999999999999999999"), 0.0);
    EXPECT_EQ(Val("12e9223372036854775807"), infinity) << "the largest number of 64 bits";
}

TEST(Text, RoundingTakesHalvesToEven) {
    EXPECT_EQ(toInt16(2.5), 2);
    EXPECT_EQ(toInt16(3.5), 4);
    EXPECT_EQ(toInt16(-2.5), -2);
    EXPECT_EQ(toInt16(-0.6), -1);
}

TEST(Text, SixteenBitsEndAt32767) {
    EXPECT_EQ(readInt16("32767"), 32767);
    EXPECT_FALSE(readInt16("32768").has_value());
    EXPECT_EQ(readInt16("-32768"), -32768);
    EXPECT_FALSE(readInt16("-32769").has_value());
    EXPECT_FALSE(toInt16(std::nan("")).has_value());
}

TEST(Text, LowerCaseKnowsUmlautsAndLeavesBrokenBytesAlone) {
    EXPECT_EQ(lowerCase("ÄÖÜ Ž Ω Я.SNG"), "äöü ž ω я.sng");
    EXPECT_EQ(lowerCase("\xC3"), "\xC3");
    EXPECT_EQ(lowerCase("\xFF"
                        "A"),
              "\xFF"
              "a");
}

TEST(Text, TrimTakesBlanksOnly) {
    EXPECT_EQ(trimBlanks("  a b  "), "a b");
    EXPECT_EQ(trimBlanks("\ta\t"), "\ta\t");
    EXPECT_EQ(trimBlanks("   "), "");
}

TEST(Text, EndingIsFoundWhateverItsCase) {
    EXPECT_TRUE(endsWithIgnoringCase("a.SNG", ".sng"));
    EXPECT_FALSE(endsWithIgnoringCase("sng", ".sng"));
    EXPECT_EQ(withEnding("a.SNG", ".sng"), "a.SNG");
    EXPECT_EQ(withEnding("a.mid", ".sng"), "a.mid.sng");
}
