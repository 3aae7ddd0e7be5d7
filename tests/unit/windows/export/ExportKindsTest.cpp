// The kinds of exports: their qualities, and the sizes of their files.
#include "windows/export/ExportKinds.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

namespace velorin {
namespace {

const ExportKind& kind(const std::string& control) {
    for (const ExportKind& one : exportKinds())
        if (control == one.control)
            return one;
    throw std::logic_error("no kind " + control);
}

/// 35 seconds; the MIDI files have 8,000 and 300 bytes.
ExportMeasure paperBoat() {
    return {35.0, 192, 8000, 300};
}

std::string size(const std::string& control, std::size_t quality) {
    return sizeText(expectedBytes(kind(control), quality, paperBoat()));
}

TEST(ExportKindsTest, SizeIsThatOfTheSongAndOfWhatRingsOut) {
    EXPECT_EQ(size("mp3", 0), "0.9 MB"); // 37 s of 24 kB
    EXPECT_EQ(size("mp3", 1), "1.5 MB");
    EXPECT_EQ(size("mp3", 2), "0.4 MB");
    EXPECT_EQ(size("wav", 0), "6.5 MB"); // 37 s of 176.4 kB
    EXPECT_EQ(size("wav", 1), "7.1 MB");
    EXPECT_EQ(size("midi", 0), "8 KB");
    EXPECT_EQ(size("midi", 1), "1 KB");
    EXPECT_EQ(size("page", 0), "1.2 MB"); // the MP3 file in base64, and the page
    EXPECT_EQ(size("page", 1), "0.7 MB");
}

TEST(ExportKindsTest, SizeOfAPictureGrowsWithItsScale) {
    const double sharp = expectedBytes(kind("picture"), 0, paperBoat());
    EXPECT_LT(expectedBytes(kind("picture"), 1, paperBoat()), sharp);
    EXPECT_GT(expectedBytes(kind("picture"), 2, paperBoat()), sharp);
}

TEST(ExportKindsTest, SizesBelowATenthOfAMegabyteAreInKilobytes) {
    EXPECT_EQ(sizeText(0), "1 KB");
    EXPECT_EQ(sizeText(1001), "2 KB");
    EXPECT_EQ(sizeText(49'000), "49 KB");
    EXPECT_EQ(sizeText(50'000), "0.1 MB");
    EXPECT_EQ(sizeText(12'340'000), "12.3 MB");
}

TEST(ExportKindsTest, QualitySetsWhatTheKindNeeds) {
    convert::Options options;
    setQuality(options, kind("mp3"), 1);
    EXPECT_EQ(options.bitrate, 320);
    setQuality(options, kind("page"), 1);
    EXPECT_EQ(options.bitrate, 96);
    setQuality(options, kind("wav"), 1);
    EXPECT_EQ(options.rateHz, 48000);
    setQuality(options, kind("midi"), 0);
    EXPECT_FALSE(options.plainMidi);
    setQuality(options, kind("midi"), 1);
    EXPECT_TRUE(options.plainMidi);
    setQuality(options, kind("picture"), 2);
    EXPECT_EQ(options.pictureScale, 4);
}

} // namespace
} // namespace velorin
