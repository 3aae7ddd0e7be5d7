// MIDI files that become scores: names, reports, refusals.
#include "convert/MidiImport.h"

#include "convert/Batch.h"
#include "convert/Conversion.h"
#include "support/FullDisk.h"
#include "support/ScriptedFiles.h"

#include <gmock/gmock.h>

#include <fstream>
#include <iterator>

namespace velorin::convert {
namespace {

namespace fs = std::filesystem;
using testing::Contains;
using testing::HasSubstr;
using testing::IsEmpty;

/// Bytes of a file with one track and 4 ticks per quarter note of half a second.
std::string fileOf(const std::string& track) {
    std::string bytes("MThd\0\0\0\6\0\0\0\1\0\4MTrk\0\0", 20);
    bytes += static_cast<char>(track.size() >> 8);
    bytes += static_cast<char>(track.size());
    return bytes + track;
}

/// `count` notes of a sixteenth each, every one a half tone from the last.
std::string sixteenths(int count) {
    std::string track;
    for (int i = 0; i < count; ++i) {
        const char key = static_cast<char>(60 + i % 2);
        track += std::string("\x00\x90", 2) + key + "\x7F\x01";
        track += std::string("\x80") + key + std::string(1, '\0');
    }
    return track + std::string("\x00\xFF\x2F\x00", 4);
}

class AMidiImport : public testing::Test {
protected:
    [[nodiscard]] fs::path at(const std::string& name) const { return folder_.path() / name; }

    void write(const std::string& name, const std::string& bytes) const {
        std::ofstream(at(name), std::ios::binary) << bytes;
    }

    [[nodiscard]] std::string read(const std::string& name) const {
        std::ifstream in(at(name), std::ios::binary);
        return {std::istreambuf_iterator<char>(in), {}};
    }

    std::string import(const std::string& from, const std::string& to) {
        options_.tasks = {{at(from).string(), at(to), Kind::sng}};
        const auto warning = [this](const std::string& text) { sentences_.push_back(text); };
        const auto details = [this](const std::string& text) { details_ = text; };
        return convert(options_.tasks.front(), options_, {{}, {}, warning, false, details})
            .reason();
    }

    [[nodiscard]] int files() const {
        return static_cast<int>(std::distance(fs::directory_iterator(folder_.path()), {}));
    }

    scripted::TemporaryFolder folder_;
    Options options_;
    std::vector<std::string> sentences_;
    std::string details_;
};

TEST_F(AMidiImport, WritesAScoreThatPlaysTheNotes) {
    write("a.mid", fileOf(sixteenths(8)));
    ASSERT_EQ(import("a.mid", "a.sng"), "");
    EXPECT_THAT(read("a.sng"), HasSubstr("67,66,67,66,67,66,67,66\r\n"));
    EXPECT_THAT(read("a.sng"), HasSubstr("\r\n 96 \r\n"));
    EXPECT_THAT(sentences_, Contains(at("a.mid").string() + " keeps 8 of 8 notes (100.0 %)"));
    EXPECT_THAT(details_, HasSubstr("\"notes\": 8, \"kept\": 8"));
    EXPECT_THAT(details_, HasSubstr("\"tempo\": 96"));
}

TEST_F(AMidiImport, OfALongFileWritesSeveralScores) {
    write("a.mid", fileOf(sixteenths(1500)));
    ASSERT_EQ(import("a.mid", "song.sng"), "");
    EXPECT_EQ(files(), 3);
    EXPECT_TRUE(fs::exists(at("song.sng")));
    EXPECT_TRUE(fs::exists(at("song-2.sng")));
    EXPECT_THAT(sentences_, Contains(HasSubstr("became 2 scores")));
}

TEST_F(AMidiImport, LeavesOutNumbersOfOtherFiles) {
    const Task task{at("song.mid").string(), at("song.sng"), Kind::sng};
    options_.tasks = {task, {at("song-2.mid").string(), at("song-2.sng"), Kind::sng}};
    EXPECT_EQ(targetsOf(task, options_, 2).back(), at("song-3.sng"));
}

TEST_F(AMidiImport, KeepsAScoreBesideTheFileUnlessItIsNamed) {
    write("a.mid", fileOf(sixteenths(8)));
    write("a.sng", "precious");
    EXPECT_EQ(import("a.mid", "a.sng"),
              at("a.sng").string() + " is there already; name the output with -o, or use --out");
    EXPECT_EQ(read("a.sng"), "precious");
    options_.mayReplaceScore = true;
    EXPECT_EQ(import("a.mid", "a.sng"), "");
    EXPECT_NE(read("a.sng"), "precious");
}

TEST_F(AMidiImport, WritesNothingIfOneOfTheScoresCannotBeWritten) {
    write("a.mid", fileOf(sixteenths(1500)));
    fs::create_directory(at("song-2.sng"));
    options_.mayReplaceScore = true;
    EXPECT_EQ(import("a.mid", "song.sng"),
              at("song-2.sng").string() + " is not a file that can be replaced");
    EXPECT_EQ(files(), 2);
}

TEST_F(AMidiImport, OfADamagedFileKeepsThePartBeforeTheDamage) {
    std::string track = sixteenths(8);
    track.replace(track.size() - 4, 4, "\x00\xF4\xF4", 3);
    write("a.mid", fileOf(track));
    ASSERT_EQ(import("a.mid", "a.sng"), "");
    EXPECT_THAT(sentences_, Contains(at("a.mid").string() +
                                     " is damaged; only the part before the damage is imported"));
    EXPECT_THAT(sentences_, Contains(HasSubstr("keeps 8 of 8 notes")));
}

TEST_F(AMidiImport, OfSeveralFilesInOneWritesAScoreForEach) {
    write("a.mid", fileOf(sixteenths(8)) + fileOf(sixteenths(4)));
    ASSERT_EQ(import("a.mid", "a.sng"), "");
    EXPECT_THAT(read("a-2.sng"), HasSubstr("67,66,67,66\r\n"));
}

TEST_F(AMidiImport, RefusesWhatHasNoNotesOrIsNoMidiFile) {
    write("empty.mid", fileOf(sixteenths(0)));
    write("text.mid", "Dear diary");
    const std::string folder = folder_.path().string() + "/";
    EXPECT_EQ(import("empty.mid", "a.sng"), folder + "empty.mid has no notes");
    EXPECT_EQ(import("text.mid", "a.sng"), folder + "text.mid is not a MIDI file");
    EXPECT_EQ(files(), 2);
}

TEST_F(AMidiImport, RefusesWhatIsTooLong) {
    std::string track = sixteenths(1);
    track.insert(track.size() - 4, std::string("\xBF\x00\x90\x40\x40\x01\x80\x40\x00", 9));
    write("a.mid", fileOf(track));
    options_.maxMinutes = 2;
    EXPECT_EQ(import("a.mid", "a.sng"),
              at("a.mid").string() + " is too long: 17 minutes of music; --most-minutes allows 2");
    EXPECT_EQ(files(), 1);
}

TEST_F(AMidiImport, IsInTheReportOfItsFile) {
    write("a.mid", fileOf(sixteenths(8)));
    options_.tasks = {{at("a.mid").string(), at("a.sng"), Kind::sng}};
    const auto results = convertAll(options_, 1, [](const ConversionResult&) {});
    const std::string report = reportOf(results);
    EXPECT_THAT(report, HasSubstr("\"outcome\": \"converted\", \"seconds\": "));
    EXPECT_THAT(report, HasSubstr(", \"import\": {\"notes\": 8, "));
}

TEST_F(AMidiImport, OnAFullDiskLeavesNothing) {
    write("a.mid", fileOf(sixteenths(8)));
    const host::test::FullDisk disk(100);
    EXPECT_EQ(import("a.mid", "a.sng"),
              at("a.sng").string() + " cannot be written: File too large");
    EXPECT_THAT(sentences_, IsEmpty());
    EXPECT_EQ(files(), 1);
}

TEST_F(AMidiImport, NeedsNobodyWhoListens) {
    write("a.mid", fileOf(sixteenths(8)));
    const Task task{at("a.mid").string(), at("a.sng"), Kind::sng};
    EXPECT_EQ(convert(task, options_, {}).reason(), "");
    EXPECT_EQ(files(), 2);
}

} // namespace
} // namespace velorin::convert
