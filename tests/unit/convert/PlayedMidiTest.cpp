// Scores played into MIDI files: chords, strum, times, and whole songs.
#include "MidiText.h"
#include "convert/LoadedScore.h"
#include "convert/PlayedMidiFile.h"
#include "host/midi/MidiFile.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <map>
#include <utility>

namespace velorin::convert {
namespace {

using testing::ElementsAre;
using testing::IsSupersetOf;

class APlayedScore : public testing::Test {
protected:
    Score& score() { return loaded.studio.score; }
    RowOptions::Row& options(int row) { return loaded.studio.setup.values.options.rows[row]; }

    /// A note of `columns` columns with the pitch index 67, which is key 60.
    void draw(int row, int column, int columns, int instrument, int pitch = 67) {
        for (int i = 0; i < columns; ++i) {
            score().NoteArray.write(row, column + i,
                                    static_cast<std::int16_t>(i == 0 ? pitch : heldCell(pitch)));
            score().InstrumentArray.write(row, column + i, static_cast<std::int16_t>(instrument));
        }
    }

    std::string file() {
        song = playToEnd(loaded, midi);
        return playedMidiFile(song, "song");
    }

    /// The largest distance of an event of the file from its time in the song, in milliseconds.
    double worstErrorMs() {
        const std::string bytes = file();
        const auto read = host::readMidiFile(
            std::span(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()));
        EXPECT_TRUE(read && read->isWhole);
        std::map<std::pair<int, int>, std::vector<std::int64_t>> timesUs;
        const auto isOn = [](const host::ShortMessage& m) {
            return m.kind() == 0x90 && m.byte[2] > 0;
        };
        for (const host::MidiFile::Event& event : read->events) {
            if (isOn(event.message))
                timesUs[{event.message.byte[0], event.message.byte[1]}].push_back(event.timeUs);
        }
        double worst = 0.0;
        std::map<std::pair<int, int>, std::size_t> seen;
        for (const PlayedMessage& sent : song.messages) {
            if (!isOn(sent.message))
                continue;
            const std::pair<int, int> key{sent.message.byte[0], sent.message.byte[1]};
            const std::size_t at = seen[key]++;
            EXPECT_LT(at, timesUs[key].size());
            if (at >= timesUs[key].size())
                return 1e9;
            const double error = static_cast<double>(timesUs[key][at]) / 1e3 -
                                 static_cast<double>(sent.timeNs) / 1e6;
            worst = std::max(worst, std::abs(error));
        }
        const double end = static_cast<double>(read->lengthUs) / 1e3;
        return std::max(worst, std::abs(end - static_cast<double>(song.lengthNs) / 1e6));
    }

    KeptMidi midi;
    LoadedScore loaded{midi};
    PlayedSong song;
};

TEST_F(APlayedScore, WithoutNotesHasOnlyATempoTrack) {
    const MidiText text(file());
    ASSERT_EQ(text.tracks.size(), 1U);
    // The wait before column 0, and the one after it.
    EXPECT_THAT(text.tracks[0], ElementsAre("0 name song", "0 tempo 480000", "0 measure 1 16",
                                            "2400 measure 4 4", "4800 end"));
}

TEST_F(APlayedScore, BeginsWithTheWaitBeforeColumn0) {
    draw(0, 0, 2, 24);
    draw(0, 4, 1, 24, 65);
    const MidiText text(file());
    EXPECT_THAT(text.tracks[1],
                ElementsAre("0 name Ch 1", "0 instrument Nylon Guitar", "2400 control 1 0 0",
                            "2400 control 1 32 0", "2400 program 1 24", "2400 on 1 60 127",
                            "7200 off 1 60", "12000 on 1 62 127", "14400 off 1 62", "16800 end"));
}

TEST_F(APlayedScore, KeepsTheVolumesOfItsRows) {
    options(0).volume = "90";
    draw(0, 0, 1, 24);
    EXPECT_THAT(MidiText(file()).tracks[1], IsSupersetOf({"2400 on 1 60 90", "4800 off 1 60"}));
}

TEST_F(APlayedScore, SoundsItsChordMarks) {
    score().PolyArray.write(1, 1, 1);
    draw(0, 0, 1, 0);
    EXPECT_THAT(
        MidiText(file()).tracks[1],
        IsSupersetOf({"2400 on 1 60 108", "2400 on 1 63 70", "2400 on 1 67 70", "2400 on 1 72 70",
                      "4800 off 1 60", "4800 off 1 63", "4800 off 1 67", "4800 off 1 72"}));
}

// 45, 35 and 35 ms: 900, 700 and 700 ticks of 0.05 ms. The row after the chord is later too, and so
// is the next column.
TEST_F(APlayedScore, StrumsItsChordsAndDelaysWhatFollows) {
    options(0).chord = true;
    options(0).strummed = true;
    draw(0, 0, 1, 0);
    draw(1, 0, 1, 0);
    const MidiText text(file());
    EXPECT_THAT(text.tracks[1],
                IsSupersetOf({"2400 on 1 60 108", "3300 on 1 63 70", "4000 on 1 67 70",
                              "4700 on 1 72 70", "7100 off 1 60", "7100 off 1 72"}));
    EXPECT_THAT(text.tracks[2], IsSupersetOf({"4700 on 2 60 127", "7100 off 2 60"}));
}

// Key 120: 127 is the last one, so the fourth note of the chord is not sent.
TEST_F(APlayedScore, HasNoKeysAbove127) {
    options(0).chord = true;
    draw(0, 0, 1, 0, 7);
    EXPECT_THAT(MidiText(file()).tracks[1],
                ElementsAre("0 name Ch 1", "0 instrument Acoustic Grand Piano",
                            "2400 control 1 0 0", "2400 control 1 32 0", "2400 program 1 0",
                            "2400 on 1 120 108", "2400 on 1 123 70", "2400 on 1 127 70",
                            "4800 off 1 120", "4800 off 1 123", "4800 off 1 127", "4800 end"));
}

// Key 5 with the intervals -12, 0 and 0.
TEST_F(APlayedScore, HasNoKeysBelow0) {
    loaded.session.sounding.ChordInterval1 = -12;
    loaded.session.sounding.ChordInterval2 = 0;
    loaded.session.sounding.ChordInterval3 = 0;
    options(0).chord = true;
    draw(0, 0, 1, 0, 122);
    EXPECT_THAT(MidiText(file()).tracks[1],
                ElementsAre("0 name Ch 1", "0 instrument Acoustic Grand Piano",
                            "2400 control 1 0 0", "2400 control 1 32 0", "2400 program 1 0",
                            "2400 on 1 5 108", "4800 off 1 5", "4800 end"));
}

TEST_F(APlayedScore, PutsDrumsOnChannel10) {
    draw(8, 0, 2, 170);
    draw(10, 1, 1, 128);
    const MidiText text(file());
    EXPECT_THAT(text.tracks[1],
                IsSupersetOf({"2400 on 10 77 127", "7200 cell 77", "9600 off 10 77"}));
    EXPECT_THAT(text.tracks[2], IsSupersetOf({"4800 on 10 35 127", "7200 cell 35"}));
}

// The note off of the melodic note is never sent, so the device sounds it to the end.
TEST_F(APlayedScore, ANoteBeforeADrumInItsRowSoundsOn) {
    draw(0, 0, 1, 19);
    draw(0, 1, 1, 128);
    EXPECT_THAT(MidiText(file()).tracks[1],
                IsSupersetOf({"2400 on 1 60 127", "4800 on 10 35 127", "9600 off 1 60"}));
}

TEST_F(APlayedScore, LeavesOutHiddenRows) {
    draw(0, 0, 1, 24);
    draw(1, 0, 1, 24);
    options(0).hidden = true;
    const MidiText text(file());
    ASSERT_EQ(text.tracks.size(), 2U);
    EXPECT_EQ(text.tracks[1].front(), "0 name Ch 2");
}

TEST_F(APlayedScore, IsOnTimeAtEveryTempo) {
    for (int column = 0; column < scoreColumns; column += 3) {
        draw(0, column, 2, 24, 40 + column % 50);
        draw(8, column, 1, 128);
    }
    options(0).chord = true;
    options(0).strummed = true;
    for (const std::int16_t tempo : {1, 2, 3, 7, 20, 21, 70, 97, 100, 230, 299, 300}) {
        score().Tempo = tempo;
        EXPECT_LE(worstErrorMs(), 0.3) << "tempo " << tempo;
    }
}

// Only a file can have such tempos.
TEST_F(APlayedScore, IsWholeWithoutATempo) {
    draw(0, 0, 1, 24);
    for (const std::int16_t tempo : {0, -1, -100, -32'768}) {
        score().Tempo = tempo;
        EXPECT_TRUE(MidiText(file()).isWhole) << "tempo " << tempo;
    }
}

// 13 rows of 1001 notes, eight of them chords of four: more than the 10,000 bytes of the program's
// own export.
TEST_F(APlayedScore, WithoutColumnTimesHasNoWaitBeforeColumn0) {
    draw(0, 0, 1, 24);
    for (const int tempo : {0, -100}) {
        score().Tempo = static_cast<std::int16_t>(tempo);
        file();
        EXPECT_EQ(song.leadNs, 0) << tempo;
    }
}

TEST_F(APlayedScore, HasNoLimitOfLength) {
    for (int row = 0; row < scoreRows; ++row) {
        for (int column = 0; column < scoreColumns; ++column)
            draw(row, column, 1, row < musicRows ? row : firstPercussion + row, 40 + column % 50);
        if (row < musicRows)
            options(row).chord = true;
    }
    const std::string bytes = file();
    EXPECT_GT(bytes.size(), 300'000U);
    const MidiText text(bytes);
    EXPECT_TRUE(text.isWhole);
    ASSERT_EQ(text.tracks.size(), 14U);
    for (std::size_t track = 1; track < text.tracks.size(); ++track) {
        const auto count = [&](const char* word) {
            return std::count_if(
                text.tracks[track].begin(), text.tracks[track].end(),
                [&](const std::string& line) { return line.find(word) != std::string::npos; });
        };
        const int notes = track <= musicRows ? 4 * 1001 : 1001;
        EXPECT_EQ(count(" on "), notes) << "track " << track;
        EXPECT_EQ(count(" off "), notes) << "track " << track;
    }
}

} // namespace
} // namespace velorin::convert
