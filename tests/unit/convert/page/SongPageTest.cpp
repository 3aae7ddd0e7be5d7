// A whole page.
#include "convert/page/SongPage.h"

#include "convert/page/PageFiles.h"
#include "model/Score.h"
#include "model/ScoreReader.h"
#include "model/ScoreWriter.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <sstream>

namespace velorin::convert {
namespace {

std::vector<double> evenTimes(int columns, double step) {
    std::vector<double> times;
    for (int column = 0; column <= columns; ++column)
        times.push_back((column + 1) * step);
    return times;
}

std::string textOf(const SongPageParts& parts) {
    return parts.beforeSound + parts.afterSound;
}

std::string pageOf(const std::string& title, const Score& score) {
    return textOf(makeSongPage({title, exactText(score), evenTimes(4, 0.12)}, score));
}

std::size_t count(const std::string& text, const std::string& piece) {
    std::size_t found = 0;
    for (std::size_t at = text.find(piece); at != std::string::npos; at = text.find(piece, at + 1))
        ++found;
    return found;
}

/// The times that the script works out.
std::vector<double> timesIn(const std::string& json) {
    const auto after = [&json](const std::string& name) {
        return json.substr(json.find(name) + name.size());
    };
    const auto columns = std::stoul(after("\"columns\":"));
    const double step = std::stod(after("\"step\":"));
    std::istringstream shifts(after("\"shifts\":["));
    std::vector<double> times;
    for (std::size_t column = 0; column <= columns; ++column)
        times.push_back(static_cast<double>(column + 1) * step);
    char bracket = 0;
    while (shifts >> bracket && bracket != ']') {
        std::size_t from = 0;
        double us = 0.0;
        char mark = 0;
        if (bracket == ',')
            shifts >> bracket;
        shifts >> from >> mark >> us >> mark;
        for (std::size_t column = from; column <= columns; ++column)
            times[column] = static_cast<double>(column + 1) * step + us / 1e6;
    }
    return times;
}

TEST(ASongPage, EscapesTheTitleWhereverItIs) {
    const std::string page = pageOf("</title><script>\"x\"", Score());
    EXPECT_EQ(count(page, "<script>\"x\""), 0U);
    // The title, the heading, the description, and two names to download.
    EXPECT_EQ(count(page, "&lt;/title&gt;&lt;script&gt;&quot;x&quot;"), 5U);
    EXPECT_EQ(count(page, "<script"), 2U); // the times and the script itself
}

TEST(ASongPage, HasTheScoreByteForByte) {
    Score score;
    std::mt19937 random(1);
    for (int column = 0; column < scoreColumns; ++column) {
        score.NoteArray.write(0, column, static_cast<std::int16_t>(random() % 128));
        score.InstrumentArray.write(0, column, static_cast<std::int16_t>(random() % 128));
        score.PolyArray.write(1, column, static_cast<std::int16_t>(random() % 2));
    }
    const std::string page = pageOf("dawn", score);
    const std::string before = "data:application/octet-stream,";
    const std::size_t start = page.find(before) + before.size();
    std::string text = page.substr(start, page.find('"', start) - start);
    for (const auto& [code, byte] : {std::pair{"%0D", "\r"}, {"%0A", "\n"}, {"%20", " "}}) {
        for (std::size_t at = text.find(code); at != std::string::npos; at = text.find(code, at))
            text.replace(at, 3, byte);
    }
    EXPECT_EQ(text, exactText(score));
    Score opened;
    std::istringstream file(text);
    ScoreReader reader(&file, opened);
    reader.readRows();
    reader.readTempo();
    reader.readRowInstruments();
    reader.readChordMarks();
    EXPECT_EQ(exactText(opened), exactText(score));
}

// A note in every cell of every row, which is more than a song can use.
TEST(ASongPage, IsSmallBesideItsSoundAlsoForAFullScore) {
    Score score;
    std::mt19937 random(1);
    for (int row = 0; row < scoreRows; ++row) {
        for (int column = 0; column < scoreColumns; ++column) {
            const auto pitch = isMusicRow(row) ? 30 + random() % 60 : 55 + random() % 3;
            score.NoteArray.write(row, column, static_cast<std::int16_t>(pitch));
            score.InstrumentArray.write(row, column, isMusicRow(row) ? 46 : 130);
        }
    }
    const auto parts = makeSongPage({"dawn", exactText(score), evenTimes(1001, 0.12)}, score);
    EXPECT_LT(textOf(parts).size(), 300U * 1024);
}

TEST(ASongPage, NamesNoOtherPlace) {
    const std::string page = pageOf("dawn", Score());
    // The name of the SVG language is no address that is loaded.
    EXPECT_EQ(count(page, "http"), count(page, "http://www.w3.org/2000/svg") +
                                       count(page, "http-equiv=\"Content-Security-Policy\""));
    EXPECT_EQ(count(page, "//www"), count(page, "http://www.w3.org/2000/svg"));
}

TEST(ASongPage, AllowsItsOwnScriptAndStyleByTheirHashes) {
    const std::string page = pageOf("dawn", Score());
    EXPECT_EQ(pageScriptHash.size(), 51U); // "sha256-" and 32 bytes in base64
    EXPECT_EQ(count(page, "script-src '" + std::string(pageScriptHash) + "'"), 1U);
    EXPECT_EQ(count(page, "style-src '" + std::string(pageStyleHash) + "'"), 1U);
    EXPECT_EQ(count(page, " style=\""), 0U); // the policy would drop them
    EXPECT_EQ(pageScript.find("</script"), std::string_view::npos);
    EXPECT_EQ(pageStyle.find("</style"), std::string_view::npos);
}

TEST(ASongPage, HasThePlaceOfTheSoundBetweenItsParts) {
    const auto parts = makeSongPage({"dawn", "", evenTimes(1, 0.12)}, Score());
    EXPECT_TRUE(parts.beforeSound.ends_with("src=\"data:audio/mpeg;base64,"));
    EXPECT_TRUE(parts.afterSound.starts_with("\"></audio>"));
}

TEST(TheTimesOfColumns, AreOneNumberIfAllAreEquallyLong) {
    EXPECT_EQ(columnTimesJson(evenTimes(3, 0.125)),
              R"({"columns":3,"step":0.125000000,"shifts":[]})");
}

TEST(TheTimesOfColumns, NameTheColumnsFromWhichOnTheSongIsLater) {
    // A chord of 45 + 35 + 35 ms in column 1.
    EXPECT_EQ(columnTimesJson({0.125, 0.25, 0.49, 0.615}),
              R"({"columns":3,"step":0.125000000,"shifts":[[2,115000]]})");
}

TEST(TheTimesOfColumns, ComeBackWithinTheTolerance) {
    std::mt19937 random(1);
    std::vector<double> times;
    double now = 0.0;
    for (int column = 0; column <= 1000; ++column) {
        now += 0.12 + 1e-7;
        times.push_back(now);
        if (random() % 20 == 0)
            now += 0.045 * static_cast<double>(random() % 4);
    }
    const std::vector<double> read = timesIn(columnTimesJson(times));
    ASSERT_EQ(read.size(), times.size());
    for (std::size_t column = 0; column < times.size(); ++column)
        ASSERT_NEAR(read[column], times[column], columnTimeTolerance) << column;
}

TEST(TheTimesOfColumns, MayAllBeTheSame) {
    EXPECT_EQ(columnTimesJson({0.0, 0.0}), R"({"columns":1,"step":0.000000000,"shifts":[]})");
}

} // namespace
} // namespace velorin::convert
