// A conversion with the setup of a session: it sounds as the studio does.
#include "convert/PlaySetup.h"

#include "ScoreSounds.h"
#include "convert/Conversion.h"
#include "convert/LoadedScore.h"
#include "convert/PlayedMidi.h"

#include <gmock/gmock.h>

#include <fstream>
#include <iterator>

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

namespace velorin::convert {
namespace {

namespace fs = std::filesystem;

/// Rows 0 and 1 play one note each, in columns 0 and 4. Pitch index 60 is key 67.
std::string twoRows() {
    return test::scoreOf(100, {{0, 0, 60, 2, 0}, {1, 4, 50, 2, 0}});
}

/// The notes that begin, "row key velocity".
std::vector<std::string> notesWith(const PlaySetup& setup, const std::string& text = twoRows()) {
    std::vector<std::string> notes;
    auto song = playSilently("song.sng", text, &setup);
    EXPECT_TRUE(song);
    for (const PlayedMessage& played : song ? song->messages : std::vector<PlayedMessage>())
        if (played.message.kind() == 0x90 && played.message.byte[2] > 0)
            notes.push_back(std::to_string(played.row) + " " +
                            std::to_string(played.message.byte[1]) + " " +
                            std::to_string(played.message.byte[2]));
    return notes;
}

TEST(PlaySetupTest, WithoutChangesItIsThatOfAProgramThatHasJustStarted) {
    KeptMidi midi;
    LoadedScore fresh(midi);
    const PlaySetup setup = setupOf(fresh.session);
    EXPECT_EQ(setup.rows.rows, PlaySetup().rows.rows);
    EXPECT_EQ(setup.chord, PlaySetup().chord);
    EXPECT_THAT(notesWith(setup), ElementsAre("0 67 127", "1 77 127"));
}

TEST(PlaySetupTest, AHiddenRowIsSilent) {
    PlaySetup setup;
    setup.rows.rows[0].hidden = true;
    EXPECT_THAT(notesWith(setup), ElementsAre("1 77 127"));
    setup.rows.rows[1].hidden = true;
    EXPECT_THAT(notesWith(setup), IsEmpty());
}

TEST(PlaySetupTest, AVolumeIsTheVelocityOfTheRow) {
    PlaySetup setup;
    setup.rows.rows[1].volume = "40";
    EXPECT_THAT(notesWith(setup), ElementsAre("0 67 127", "1 77 40"));
}

TEST(PlaySetupTest, ARowOfChordsPlaysTheKindThatWasChosen) {
    PlaySetup setup;
    setup.rows.rows[1].chord = true;
    setup.chord = {4, 7, 11};
    EXPECT_THAT(notesWith(setup),
                ElementsAre("0 67 127", "1 77 108", "1 81 70", "1 84 70", "1 88 70"));
}

TEST(PlaySetupTest, AStrummedRowPlaysItsChordOneNoteAfterTheOther) {
    PlaySetup setup;
    setup.rows.rows[0].chord = true;
    const auto lengthNs = [&setup] {
        return playSilently("song.sng", twoRows(), &setup)->lengthNs;
    };
    const auto together = lengthNs();
    setup.rows.rows[0].strummed = true;
    EXPECT_GT(lengthNs(), together);
}

TEST(PlaySetupTest, SetupOfASessionHasItsChordAndItsRows) {
    KeptMidi midi;
    LoadedScore studio(midi);
    studio.session.sounding.ChordInterval1 = 5;
    studio.studio.setup.setTrackHide(3, true);
    studio.studio.setup.setVol(4, "77");
    const PlaySetup setup = setupOf(studio.session);
    EXPECT_THAT(setup.chord, ElementsAre(5, 7, 12));
    EXPECT_TRUE(setup.rows.TrackHide(3));
    EXPECT_EQ(setup.rows.vol(4), "77");
}

class AConversionWithASetup : public testing::Test {
protected:
    AConversionWithASetup() {
        fs::remove_all(folder_);
        fs::create_directories(folder_);
    }
    ~AConversionWithASetup() override { fs::remove_all(folder_); }

    [[nodiscard]] std::string made(const std::string& name, Kind kind, const PlaySetup& setup,
                                   const Options& options = test::usualOptions()) const {
        Task task{"song.sng", folder_ / name, kind};
        task.text = twoRows();
        task.setup = std::make_shared<PlaySetup>(setup);
        const auto converted = convert(task, options, {});
        EXPECT_TRUE(converted) << converted.reason();
        std::ifstream in(folder_ / name, std::ios::binary);
        return {std::istreambuf_iterator<char>(in), {}};
    }

    fs::path folder_ = fs::path(testing::TempDir()) / "velorin-play-setup";
};

TEST_F(AConversionWithASetup, LeavesAHiddenRowOutOfTheSound) {
    PlaySetup setup;
    setup.rows.rows[0].hidden = true;
    static_cast<void>(made("hidden.wav", Kind::wav, setup));
    static_cast<void>(made("all.wav", Kind::wav, PlaySetup()));
    // At tempo 100 a column is 0.12 s: row 0 sounds from 0.12 s on, row 1 from 0.6 s.
    EXPECT_LT(test::readSound(folder_ / "hidden.wav").power(0.12, 0.5), 1.0);
    EXPECT_GT(test::readSound(folder_ / "all.wav").power(0.12, 0.5), 1000.0);
    EXPECT_GT(test::readSound(folder_ / "hidden.wav").power(0.7, 0.8), 1000.0);
}

TEST_F(AConversionWithASetup, LeavesAHiddenRowOutOfBothKindsOfMidiFile) {
    PlaySetup setup;
    setup.rows.rows[0].hidden = true;
    Options plain;
    plain.plainMidi = true;
    const std::string note67 = std::string("\x90\x43", 2);
    for (const Options& options : {Options(), plain}) {
        EXPECT_THAT(made("all.mid", Kind::mid, PlaySetup(), options), HasSubstr(note67));
        EXPECT_THAT(made("hidden.mid", Kind::mid, setup, options), testing::Not(HasSubstr(note67)));
    }
}

TEST_F(AConversionWithASetup, LeavesAHiddenRowOutOfTheSheetOfAPageButNotOutOfItsScore) {
    PlaySetup setup;
    setup.rows.rows[0].hidden = true;
    const std::string hidden = made("hidden.html", Kind::html, setup);
    const std::string all = made("all.html", Kind::html, PlaySetup());
    EXPECT_LT(hidden.size(), all.size());
    const auto scoreOf = [](const std::string& page) {
        const std::size_t begin = page.find("data:application/octet-stream,60,1060");
        return begin == std::string::npos ? std::string() : page.substr(begin, 100);
    };
    EXPECT_EQ(scoreOf(hidden), scoreOf(all));
    EXPECT_FALSE(scoreOf(all).empty());
}

} // namespace
} // namespace velorin::convert
