// Reading numbers from text, and text operations for file names.
#include "platform/Text.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

using namespace platform;

TEST(Text, NumberEndsAtTheFirstOtherCharacter) {
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

TEST(Text, TooSmallNumberIsZeroAndTooLargeOneIsInfinite) {
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

// The pairs of Latin letters begin with the capital, at even code points or, after U+0138, at odd
// ones.
TEST(Text, LowerCaseKnowsTheLettersOfEurope) {
    EXPECT_EQ(lowerCase("ÀÞ ĀĮ ĲĶ ŊŶ"), "àþ āį ĳķ ŋŷ");
    EXPECT_EQ(lowerCase("ĹŇ ŹŽ Ÿ"), "ĺň źž ÿ");
    EXPECT_EQ(lowerCase("ΑΣΩ ЀЏ АЯ ѠҀ"), "ασω ѐџ ая ѡҁ");
}

TEST(Text, LowerCaseKeepsLowerLettersAndWhatIsNoLetter) {
    const std::string kept = "ßàÿ āķĸ ĺňŉ ŋŷ źžſ × ΐαω аяѐџ ѡҁ҂";
    EXPECT_EQ(lowerCase(kept), kept);
    EXPECT_EQ(lowerCase("\xCE\xA2"), "\xCE\xA2") << "the gap before the sigma";
}

TEST(Text, TrimTakesBlanksOnly) {
    EXPECT_EQ(trimBlanks("  a b  "), "a b");
    EXPECT_EQ(trimBlanks("\ta\t"), "\ta\t");
    EXPECT_EQ(trimBlanks("   "), "");
}

TEST(Text, EndingMatchesWhateverItsCase) {
    EXPECT_TRUE(endsWithIgnoringCase("a.SNG", ".sng"));
    EXPECT_FALSE(endsWithIgnoringCase("sng", ".sng"));
    EXPECT_EQ(withEnding("a.SNG", ".sng"), "a.SNG");
    EXPECT_EQ(withEnding("a.mid", ".sng"), "a.mid.sng");
}

TEST(Text, LengthOfAUtf8CharacterIsZeroWhereNoneBegins) {
    EXPECT_EQ(utf8Length("a", 0), 1U);
    EXPECT_EQ(utf8Length("\xC3\xBC", 0), 2U);
    EXPECT_EQ(utf8Length("\xE9\x9F\xB3", 0), 3U);
    EXPECT_EQ(utf8Length("\xF0\x9F\x8E\xB5", 0), 4U);
    EXPECT_EQ(utf8Length("\xC3\xBC", 1), 0U);     // in its middle
    EXPECT_EQ(utf8Length("\xC3", 0), 0U);         // cut off
    EXPECT_EQ(utf8Length("\xC1\x81", 0), 0U);     // longer than needed
    EXPECT_EQ(utf8Length("\xED\xA0\x80", 0), 0U); // a surrogate
    EXPECT_EQ(utf8Length("\xF4\x90\x80\x80", 0), 0U);
    EXPECT_EQ(utf8Length("\xFF", 0), 0U);
    EXPECT_EQ(utf8Length("\xE0\x9F\xBF", 0), 0U); // longer than needed
    EXPECT_EQ(utf8Length("\xF0\x8F\xBF\xBF", 0), 0U);
    EXPECT_EQ(utf8Length("\xF5\x80\x80", 0), 0U); // no such first byte
    EXPECT_EQ(utf8Length("\xE0\xA0\x80", 0), 3U);
    EXPECT_EQ(utf8Length("\xF0\x90\x80\x80", 0), 4U);
    EXPECT_EQ(utf8Length("\xED\x9F\xBF", 0), 3U);
    EXPECT_EQ(utf8Length("\xF4\x8F\xBF\xBF", 0), 4U);
}
