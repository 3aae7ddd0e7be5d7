// Lines of numbers read from a file, also from a damaged or very long one.
#include "model/SequentialText.h"

#include "Songs.h"
#include "platform/Text.h"

#include <gtest/gtest.h>

#include <sstream>
#include <streambuf>

using namespace velorin;
using velorin::test::times;

namespace {

/// The lines of a text, each as "field:value" pairs of its first `most` fields.
std::string linesOf(const std::string& text, int most = 10) {
    std::istringstream file(text);
    SequentialText lines(&file);
    std::string all;
    const auto store = [&all](int field, std::int16_t value) {
        all += std::to_string(field) + ':';
        all += std::to_string(value) + ' ';
    };
    while (lines.readFields(most, store))
        all += "/";
    return all;
}

/// A stream buffer that repeats a text for a given number of bytes without storing them.
class EndlessText final : public std::streambuf {
public:
    EndlessText(std::string text, std::int64_t bytes) : text_(std::move(text)), left_(bytes) {}

protected:
    int_type underflow() override {
        if (left_ <= 0)
            return traits_type::eof();
        left_ -= static_cast<std::int64_t>(text_.size());
        setg(text_.data(), text_.data(), text_.data() + text_.size());
        return traits_type::to_int_type(text_.front());
    }

private:
    std::string text_;
    std::int64_t left_;
};

} // namespace

TEST(SequentialText, EachKindOfLineEndEndsALine) {
    EXPECT_EQ(linesOf("1,2\r\n3\r4\n5"), "0:1 1:2 /0:3 /0:4 /0:5 /");
}

TEST(SequentialText, LastLineNeedsNoEnd) {
    EXPECT_EQ(linesOf("7\r\n"), "0:7 /");
    EXPECT_EQ(linesOf("7"), "0:7 /");
    EXPECT_EQ(linesOf(""), "");
}

TEST(SequentialText, FieldWithoutDigitsIsZero) {
    EXPECT_EQ(linesOf("abc,,-,5"), "0:0 1:0 2:0 3:5 /");
    EXPECT_EQ(linesOf("\r\n"), "0:0 /") << "an empty line is one empty field";
}

TEST(SequentialText, FieldIsItsNumericPrefixRoundedToEven) {
    EXPECT_EQ(linesOf(" 12abc,2.5,3.5,1e2,1 2,-7"), "0:12 1:2 2:4 3:100 4:1 5:-7 /");
}

TEST(SequentialText, NumberOutsideSixteenBitsSkipsItsOneStore) {
    EXPECT_EQ(linesOf("1,32768,-32769,32767," + std::string(100, '9') + ",6"), "0:1 3:32767 5:6 /");
}

TEST(SequentialText, FieldsAfterTheLastOneAreDropped) {
    EXPECT_EQ(linesOf("1,2,3,4\r\n5", 2), "0:1 1:2 /0:5 /");
}

TEST(SequentialText, NulBytesAreNoDigits) {
    EXPECT_EQ(linesOf(std::string("1\0002,3", 5)), "0:1 1:3 /");
    EXPECT_EQ(linesOf(std::string(3, '\0')), "0:0 /");
}

TEST(SequentialText, MissingFileIsAnEmptyOne) {
    SequentialText text(nullptr);
    FieldText number;
    EXPECT_TRUE(text.atEnd());
    EXPECT_FALSE(text.skipLine());
    EXPECT_FALSE(text.readNumber(number));
}

TEST(SequentialText, NumberTakesTheBlanksAroundItAndItsLineEnd) {
    std::istringstream file("  70  \r\n24");
    SequentialText text(&file);
    FieldText number;
    EXPECT_TRUE(text.readNumber(number));
    EXPECT_EQ(number.text(), "70");
    EXPECT_FALSE(text.atEnd());
    EXPECT_TRUE(text.readFields(1, [](int, std::int16_t value) { EXPECT_EQ(value, 24); }));
    EXPECT_TRUE(text.atEnd());
}

TEST(SequentialText, WhatFollowsTheNumberIsTheNextLine) {
    const auto numberAndRest = [](const std::string& line) {
        std::istringstream file(line);
        SequentialText text(&file);
        FieldText number;
        EXPECT_TRUE(text.readNumber(number));
        std::string rest;
        text.readFields(3, [&rest](int, std::int16_t v) { rest += ';' + std::to_string(v); });
        return std::string(number.text()) + rest;
    };
    EXPECT_EQ(numberAndRest(" 70 24,1,2"), "70;24;1;2");
    EXPECT_EQ(numberAndRest("-1.5E+2\r\n3"), "-1.5E+2;3");
    EXPECT_EQ(numberAndRest("2e5x"), "2e5;0");
    EXPECT_EQ(numberAndRest("2d5x"), "2d5;0");
    EXPECT_EQ(numberAndRest("2D-5x"), "2D-5;0");
    EXPECT_EQ(numberAndRest("2ex"), "2;0");
    EXPECT_EQ(numberAndRest("abc\r\n5"), ";0");
    EXPECT_EQ(numberAndRest("\r\n5"), ";5");
}

TEST(SequentialText, LongLinesKeepTheirNumbers) {
    const std::string zeros = times(3000, "00000");
    EXPECT_EQ(linesOf(zeros + "12," + times(9000, " ") + "7"), "0:12 1:7 /");
    EXPECT_EQ(linesOf("-" + zeros + "," + zeros + ".5e1"), "0:0 1:5 /");
}

// The text is read in pieces of 4096 bytes. An exponent looks two characters ahead.
TEST(SequentialText, NumberMayBeInTwoPiecesOfALongText) {
    for (int blanks = 4090; blanks <= 4096; ++blanks) {
        std::istringstream file(times(blanks, " ") + "2e+5\r\n" + times(9000, "7,") + "8\r\n9");
        SequentialText text(&file);
        FieldText number;
        EXPECT_TRUE(text.readNumber(number));
        EXPECT_EQ(number.text(), "2e+5") << blanks;
        std::int64_t sum = 0;
        EXPECT_TRUE(text.readFields(9001, [&sum](int, std::int16_t value) { sum += value; }));
        EXPECT_EQ(sum, 9000 * 7 + 8) << blanks;
        EXPECT_TRUE(text.readFields(1, [](int, std::int16_t value) { EXPECT_EQ(value, 9); }));
    }
}

TEST(SequentialText, HundredMegabytesInOneLineAreReadInBoundedMemory) {
    for (const char* piece : {"1234567890", "60,", ",,,,,,", "          ", "0000"}) {
        EndlessText endless(piece, 20'000'000);
        std::istream file(&endless);
        SequentialText text(&file);
        int stored = 0;
        EXPECT_TRUE(text.readFields(1001, [&stored](int, std::int16_t) { ++stored; })) << piece;
        EXPECT_LE(stored, 1001) << piece;
        EXPECT_TRUE(text.atEnd()) << piece;
    }
}

TEST(SequentialText, ErrorOfTheStreamIsTheEndOfTheFile) {
    class Broken final : public std::streambuf {
        int_type underflow() override { throw std::ios_base::failure("broken"); }
    } broken;
    std::istream file(&broken);
    SequentialText text(&file);
    EXPECT_TRUE(text.atEnd());
}
