// The exported file, byte for byte.
#include "model/MidiExport.h"

#include "Songs.h"
#include "model/RowOptions.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <memory>

using namespace velorin;
using namespace velorin::test;

namespace {

std::string hex(const std::string& bytes) {
    std::string text;
    for (const char byte : bytes) {
        char pair[4];
        std::snprintf(pair, sizeof pair, "%02X ", static_cast<unsigned>(byte) & 0xFFU);
        text += pair;
    }
    if (!text.empty())
        text.pop_back();
    return text;
}

class MidiExportTest : public testing::Test {
protected:
    std::string file() { return midiFileOf(*score, setup); }

    /// The events of a row's track. Its length field is checked.
    std::string track(int row) {
        const std::string bytes = file();
        std::size_t position = 41;
        for (int r = 0;; ++r) {
            EXPECT_EQ(bytes.substr(position, 4), "MTrk") << r;
            std::size_t length = 0;
            for (std::size_t i = 4; i < 8; ++i)
                length = length * 256 + static_cast<unsigned char>(bytes.at(position + i));
            if (r == row)
                return hex(bytes.substr(position + 8, length));
            position += 8 + length;
        }
    }

    std::unique_ptr<Score> score = std::make_unique<Score>();
    RowOptions setup;
};

} // namespace

TEST_F(MidiExportTest, HeaderAndTempoTrackAreByteForByteRight) {
    score->Tempo = 60;
    EXPECT_EQ(hex(file().substr(0, 41)),
              "4D 54 68 64 00 00 00 06 00 01 00 0E 00 30 4D 54 72 6B 00 00 00 13 "
              "00 FF 51 03 0F 42 40 00 FF 58 04 04 02 18 08 00 FF 2F 00");
}

TEST_F(MidiExportTest, TempoDropsItsFractionAndKeepsItsLow24Bits) {
    const auto tempoBytes = [this](int tempo) {
        score->Tempo = static_cast<std::int16_t>(tempo);
        return hex(file().substr(26, 3));
    };
    EXPECT_EQ(tempoBytes(70), "0D 14 36") << "857142.86 is D1436 hex";
    EXPECT_EQ(tempoBytes(1), "93 87 00") << "60,000,000 is 3938700 hex";
    EXPECT_EQ(tempoBytes(-1), "6C 79 00");
    EXPECT_EQ(tempoBytes(0), "00 00 00");
}

TEST_F(MidiExportTest, EmptyScoreIs197BytesLong) {
    EXPECT_EQ(file().size(), 197U);
    EXPECT_EQ(track(0), "0C FF 2F 00");
    EXPECT_EQ(track(12), "0C FF 2F 00");
}

TEST_F(MidiExportTest, TrackEndsOneColumnAfterTheSong) {
    putRow(*score, 0, "-1,-1,60");
    file();
    EXPECT_EQ(score->LastColumn, 4);
}

TEST_F(MidiExportTest, FirstNoteCarriesItsDistanceOnTheProgramChange) {
    putRow(*score, 2, "-1,-1,-1,-1,60,1060", 24);
    EXPECT_EQ(track(2), "30 C2 18 00 92 43 7F 18 82 43 00 0C FF 2F 00");
}

TEST_F(MidiExportTest, LongRowEndsAtTheTicksOfItsColumns) {
    putRow(*score, 0, "60" + times(76, ",1060"), 0);
    EXPECT_EQ(track(0), "00 C0 00 00 90 43 7F 87 1C 80 43 00 0C FF 2F 00") << "924 is 87 1C";
}

TEST_F(MidiExportTest, HiddenRowHasTheEndOfAnEmptyOne) {
    putRow(*score, 0, "60,62,64", 0);
    putRow(*score, 1, "60", 0);
    setup.rows[1].hidden = true;
    EXPECT_EQ(track(1), "30 FF 2F 00");
    EXPECT_EQ(track(2), "30 FF 2F 00");
}

TEST_F(MidiExportTest, EqualStartsInSuccessiveColumnsAreNotJoined) {
    putRow(*score, 0, "60,60", 5);
    EXPECT_EQ(track(0), "00 C0 05 00 90 43 7F 0C 80 43 00 00 90 43 7F 0C 80 43 00 0C FF 2F 00");
}

TEST_F(MidiExportTest, HeldCellAfterARestIsSilentUntilItsOff) {
    putRow(*score, 0, "-1,1060,-1,62", 5);
    EXPECT_EQ(track(0), "18 80 43 00 0C C0 05 00 90 41 7F 0C 80 41 00 0C FF 2F 00");
}

TEST_F(MidiExportTest, ProgramChangesOnlyWhenANoteStartsWithAnotherInstrument) {
    putRow(*score, 0, "60,1060,62", 5);
    score->InstrumentArray.write(0, 1, 9);
    score->InstrumentArray.write(0, 2, 6);
    EXPECT_EQ(track(0), "00 C0 05 00 90 43 7F 18 C0 06 00 80 43 00 00 90 41 7F 0C 80 41 00 "
                        "0C FF 2F 00");
}

TEST_F(MidiExportTest, PercussionGoesToChannel9FromAnyRow) {
    putRow(*score, 8, "60,-1", 128);
    putRow(*score, 0, "20,-1", 174);
    score->NoteArray.write(1, 1, 60);
    EXPECT_EQ(track(8), "00 99 23 7F 0C 89 23 00 18 FF 2F 00") << "key 35";
    EXPECT_EQ(track(0), "00 99 51 7F 0C 89 51 00 18 FF 2F 00") << "key 81";
}

TEST_F(MidiExportTest, PercussionOffHasTheKeyOfTheSoundThatFollowsAtOnce) {
    putRow(*score, 8, "60,60", 128);
    score->InstrumentArray.write(8, 1, 130);
    EXPECT_EQ(track(8), "00 99 23 7F 0C 89 25 00 00 99 25 7F 0C 89 25 00 0C FF 2F 00");
}

TEST_F(MidiExportTest, NoteOffHasTheChannelOfTheNewInstrument) {
    putRow(*score, 3, "60,61,62", 128);
    score->InstrumentArray.write(3, 1, 7);
    EXPECT_EQ(track(3), "00 99 23 7F 0C C3 07 00 83 43 00 00 93 42 7F "
                        "0C 89 23 00 00 99 23 7F 0C 89 23 00 0C FF 2F 00");
}

TEST_F(MidiExportTest, MelodicNotesKeepTheirRowAsChannelInRows8To12) {
    putRow(*score, 9, "-1,60", 0);
    putRow(*score, 12, "-1,60", 0);
    EXPECT_EQ(track(9), "0C C9 00 00 99 43 7F 0C 89 43 00 0C FF 2F 00");
    EXPECT_EQ(track(12), "0C CC 00 00 9C 43 7F 0C 8C 43 00 0C FF 2F 00");
}

TEST_F(MidiExportTest, PercussionOfOneRowIsForgottenInTheNext) {
    putRow(*score, 0, "60,-1", 128);
    putRow(*score, 1, "1060,-1,60", 0);
    EXPECT_EQ(track(1).substr(0, 11), "0C 81 43 00");
}

TEST_F(MidiExportTest, NoteThatSpansTheEndIsClosedThere) {
    score->NoteArray.write(0, 1000, 60);
    score->InstrumentArray.write(0, 1000, 1);
    EXPECT_EQ(score->NoteArray.read(0, 1001), std::nullopt);
    EXPECT_EQ(track(0), "DD 60 C0 01 00 90 43 7F 0C 80 43 00 0C FF 2F 00") << "12000 is DD 60";
    EXPECT_EQ(score->LastColumn, 1002);
}

TEST_F(MidiExportTest, SongWithNotesInColumn0AloneEndsAtColumn1) {
    putRow(*score, 0, "60", 1);
    EXPECT_EQ(track(0), "00 C0 01 00 90 43 7F 0C 80 43 00 00 FF 2F 00");
}

TEST_F(MidiExportTest, KeysAndInstrumentsOutOfRangeKeepTheirLow8Bits) {
    putRow(*score, 0, "-1,130", -2);
    EXPECT_EQ(track(0), "0C C0 FE 00 90 FD 7F 0C 80 FD 00 0C FF 2F 00");
}

TEST_F(MidiExportTest, FileIsCutAfterTenThousandBytes) {
    for (int row = 0; row < 3; ++row) {
        for (int column = 0; column < 500; ++column)
            score->NoteArray.write(row, column, 60);
    }
    const std::string bytes = file();
    EXPECT_EQ(bytes.size(), 10'000U);
    // A program change, 500 ons and 500 offs, the end: 3 + 1000 * 4 + 4 bytes.
    EXPECT_EQ(hex(bytes.substr(41, 8)), "4D 54 72 6B 00 00 0F A7");
    EXPECT_EQ(hex(bytes.substr(41 + 8 + 4007, 8)), "4D 54 72 6B 00 00 0F A7");
    EXPECT_EQ(hex(bytes.substr(41 + 2 * (8 + 4007), 8)), "4D 54 72 6B 00 00 0F A7")
        << "the cut track counts the bytes that were dropped";
}
