// The MIDI file of messages that were sent: times, and a note off for each note.
#include "convert/PlayedMidiFile.h"
#include "MidiText.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace velorin::convert {
namespace {

using testing::ElementsAre;
using testing::IsSupersetOf;

// At tempo 100 a column is 0.12 s and 2400 ticks.
constexpr std::int64_t columnNs = 120'000'000;

/// Songs of messages, column by column.
struct Sent {
    void send(int column, int row, std::uint32_t status, std::uint32_t key,
              std::uint32_t velocity) {
        song.messages.push_back(
            {column * columnNs, row, host::unpack(status | key << 8 | velocity << 16)});
        song.lengthNs = (column + 1) * columnNs;
    }
    void drum(int column, int row, std::uint32_t key) { send(column, row, 0x99, key, 127); }
    void drumEnd(int column, int row, std::uint32_t key) { send(column, row, 0x8C, key, 0); }

    [[nodiscard]] MidiText text() const { return MidiText(playedMidiFile(song, "song")); }

    PlayedSong song{{}, 0, 0, 0.12};
};

TEST(PlayedMidiFile, BeginsWithATrackOfTheNameTheTempoAndTheMeasure) {
    const MidiText text = Sent().text();
    EXPECT_TRUE(text.isWhole);
    EXPECT_EQ(text.format, 1);
    EXPECT_EQ(text.division, 9600);
    ASSERT_EQ(text.tracks.size(), 1U);
    EXPECT_THAT(text.tracks[0],
                ElementsAre("0 name song", "0 tempo 480000", "0 measure 4 4", "0 end"));
}

TEST(PlayedMidiFile, HasTheWaitBeforeItsFirstColumnAsAMeasure) {
    Sent sent;
    sent.song.leadNs = columnNs;
    sent.song.lengthNs = 2 * columnNs;
    EXPECT_THAT(sent.text().tracks[0],
                ElementsAre("0 name song", "0 tempo 480000", "0 measure 1 16", "2400 measure 4 4",
                            "4800 end"));
}

TEST(PlayedMidiFile, HasATrackForEachRowThatSoundsWithItsFirstInstrument) {
    Sent sent;
    sent.send(0, 1, 0xC1, 24, 0);
    sent.send(0, 1, 0x91, 60, 127);
    sent.send(1, 1, 0x81, 60, 0);
    sent.drum(1, 12, 35);
    const MidiText text = sent.text();
    ASSERT_EQ(text.tracks.size(), 3U);
    EXPECT_THAT(text.tracks[1],
                ElementsAre("0 name Ch 2", "0 program 2 24", "0 instrument Nylon Guitar",
                            "0 on 2 60 127", "2400 off 2 60", "4800 end"));
    EXPECT_THAT(text.tracks[2],
                ElementsAre("0 name Percussion 4", "0 instrument Acoustic Bass Drum",
                            "2400 on 10 35 127", "4800 off 10 35", "4800 end"));
}

// A row of volume 0 sends note ons of velocity 0, which are note offs.
TEST(PlayedMidiFile, HasNoTrackForASilentRow) {
    Sent sent;
    sent.send(0, 1, 0xC1, 24, 0);
    sent.send(0, 1, 0x91, 60, 0);
    sent.send(1, 1, 0x81, 60, 0);
    EXPECT_EQ(sent.text().tracks.size(), 1U);
}

// The fifth row of the percussion group has no volume. With a melodic instrument, its program is
// that of the drums of all rows.
TEST(PlayedMidiFile, KeepsAProgramOfTheDrumsWithoutNotes) {
    Sent sent;
    sent.send(0, 9, 0xC9, 24, 0);
    EXPECT_THAT(sent.text().tracks[1], ElementsAre("0 name Rhythm", "0 program 10 24", "2400 end"));
}

TEST(PlayedMidiFile, LeavesOutNoteOffsThatEndNothing) {
    Sent sent;
    sent.send(0, 0, 0x90, 60, 127);
    for (const std::uint32_t key : {60U, 63U, 67U, 72U})
        sent.send(2, 0, 0x80, key, 0);
    EXPECT_THAT(sent.text().tracks[1],
                ElementsAre("0 name Ch 1", "0 instrument Acoustic Grand Piano", "0 on 1 60 127",
                            "4800 off 1 60", "7200 end"));
}

TEST(PlayedMidiFile, EndsANoteThatItsKeyBeginsAgain) {
    Sent sent;
    sent.send(0, 0, 0x90, 60, 127);
    sent.send(2, 0, 0x90, 60, 70);
    sent.send(3, 0, 0x80, 60, 0);
    EXPECT_THAT(sent.text().tracks[1],
                ElementsAre("0 name Ch 1", "0 instrument Acoustic Grand Piano", "0 on 1 60 127",
                            "4800 off 1 60", "4800 on 1 60 70", "7200 off 1 60", "9600 end"));
}

TEST(PlayedMidiFile, EndsWhatStillSoundsWithTheSong) {
    Sent sent;
    sent.send(0, 0, 0x90, 60, 127);
    sent.song.lengthNs = 3 * columnNs;
    EXPECT_THAT(sent.text().tracks[1],
                IsSupersetOf({"0 on 1 60 127", "7200 off 1 60", "7200 end"}));
}

TEST(PlayedMidiFile, ADrumRingsUntilTheNextStrokeOfItsKey) {
    Sent sent;
    sent.drum(0, 8, 72);
    sent.drumEnd(1, 8, 72);
    sent.drum(3, 8, 72);
    sent.drumEnd(5, 8, 72);
    EXPECT_THAT(sent.text().tracks[1],
                ElementsAre("0 name Percussion 1", "0 instrument Long Whistle", "0 on 10 72 127",
                            "2400 cell 72", "7200 off 10 72", "7200 on 10 72 127", "12000 cell 72",
                            "14400 off 10 72", "14400 end"));
}

TEST(PlayedMidiFile, ADrumThatEndsWithItsCellNeedsNoMark) {
    Sent sent;
    sent.drum(0, 8, 42);
    sent.drumEnd(1, 8, 42);
    sent.drum(1, 8, 42);
    sent.drumEnd(2, 8, 42);
    sent.song.lengthNs = 2 * columnNs;
    EXPECT_THAT(sent.text().tracks[1],
                ElementsAre("0 name Percussion 1", "0 instrument Closed Hi-Hat", "0 on 10 42 127",
                            "2400 off 10 42", "2400 on 10 42 127", "4800 off 10 42", "4800 end"));
}

// Row 8 strikes the key that row 10 has struck before. The tracks of a file are played in their
// order, so the end of the first stroke must come before.
TEST(PlayedMidiFile, ADrumIsNotEndedByTheRowThatStruckItsKeyBefore) {
    Sent sent;
    sent.drum(0, 10, 42);
    sent.drum(2, 8, 42);
    sent.drumEnd(3, 8, 42);
    sent.drumEnd(4, 10, 42);
    const MidiText text = sent.text();
    EXPECT_THAT(text.tracks[1],
                ElementsAre("0 name Percussion 1", "0 instrument Closed Hi-Hat",
                            "4800 on 10 42 127", "7200 cell 42", "12000 off 10 42", "12000 end"));
    EXPECT_THAT(text.tracks[2],
                ElementsAre("0 name Percussion 2", "0 instrument Closed Hi-Hat", "0 on 10 42 127",
                            "4799 off 10 42", "9600 cell 42", "12000 end"));
}

// With a melodic instrument, the rhythm row is on the channel of the drums. Its note offs are also
// those of a chord, and one of them ends the drum of a later row just before its own note begins.
TEST(PlayedMidiFile, ADrumThatAnotherRowEndsDoesNotEndThatRowsNextNote) {
    Sent sent;
    sent.drum(0, 11, 67);
    sent.send(2, 9, 0x89, 67, 0);
    sent.send(2, 9, 0x99, 67, 127);
    sent.send(4, 9, 0x89, 67, 0);
    const MidiText text = sent.text();
    EXPECT_THAT(text.tracks[1], IsSupersetOf({"4800 on 10 67 127", "9600 off 10 67"}));
    EXPECT_THAT(text.tracks[2], IsSupersetOf({"0 on 10 67 127", "4799 off 10 67"}));
}

TEST(PlayedMidiFile, TwoRowsMayStrikeAKeyAtOnce) {
    Sent sent;
    sent.drum(0, 8, 42);
    sent.drum(0, 10, 42);
    sent.drumEnd(1, 8, 42);
    sent.drumEnd(1, 10, 42);
    sent.song.lengthNs = columnNs;
    const MidiText text = sent.text();
    EXPECT_THAT(text.tracks[1], IsSupersetOf({"0 on 10 42 127", "0 off 10 42", "2400 cell 42"}));
    EXPECT_THAT(text.tracks[2], IsSupersetOf({"0 on 10 42 127", "2400 off 10 42", "2400 end"}));
}

// The instrument changes before the note off is sent, which then names the new drum.
TEST(PlayedMidiFile, ADrumsCellEndsWhereItsRowChangesTheInstrument) {
    Sent sent;
    sent.drum(0, 8, 42);
    sent.drumEnd(1, 8, 38);
    sent.drum(1, 8, 38);
    sent.send(2, 8, 0x88, 67, 0);
    sent.send(2, 8, 0x98, 67, 127);
    sent.send(3, 8, 0x88, 67, 0);
    EXPECT_THAT(sent.text().tracks[1],
                ElementsAre("0 name Percussion 1", "0 instrument Closed Hi-Hat", "0 on 10 42 127",
                            "2400 on 10 38 127", "2400 cell 42", "4800 on 9 67 127", "4800 cell 38",
                            "7200 off 9 67", "9600 off 10 38", "9600 off 10 42", "9600 end"));
}

// The end of a drum is sent to channel 13, on which row 12 plays its melodic instruments.
TEST(PlayedMidiFile, TheEndOfADrumEndsTheNoteThatHasItsKeyOnChannel13) {
    Sent sent;
    sent.send(0, 12, 0x9C, 42, 127);
    sent.drum(0, 8, 42);
    sent.drumEnd(1, 8, 42);
    sent.send(3, 12, 0x8C, 42, 0);
    EXPECT_THAT(sent.text().tracks[2], IsSupersetOf({"0 on 13 42 127", "2399 off 13 42"}));
}

TEST(PlayedMidiFile, TimesBetweenColumnsAreKept) {
    Sent sent;
    sent.song.messages.push_back({45'000'000, 0, host::unpack(0x7F3C90)});
    sent.song.lengthNs = columnNs;
    EXPECT_THAT(sent.text().tracks[1], IsSupersetOf({"900 on 1 60 127", "2400 end"}));
}

// A column of 12 s: a quarter note of four would not fit into the three bytes of a tempo.
TEST(PlayedMidiFile, SlowTemposHaveFewerColumnsInAQuarterNoteAndFinerTicks) {
    Sent sent;
    sent.song.columnSeconds = 12.0;
    sent.song.leadNs = 12'000'000'000;
    MidiText text = sent.text();
    EXPECT_EQ(text.division, 28'800);
    EXPECT_THAT(text.tracks[0],
                IsSupersetOf({"0 tempo 12000000", "0 measure 1 4", "28800 measure 4 4"}));
    sent.song.columnSeconds = 12.0 / 8;
    text = sent.text();
    EXPECT_EQ(text.division, 28'800);
    EXPECT_THAT(text.tracks[0], IsSupersetOf({"0 tempo 6000000"}));
}

// Only a file can have such tempos. Its columns have no length.
TEST(PlayedMidiFile, TemposWithoutColumnTimesAreWrittenAs120Beats) {
    Sent sent;
    for (const double seconds : {0.0, -0.12}) {
        sent.song.columnSeconds = seconds;
        EXPECT_THAT(sent.text().tracks[0], IsSupersetOf({"0 tempo 500000"}));
    }
}

TEST(PlayedMidiFile, NamesHaveNoControlCharacters) {
    const MidiText text(playedMidiFile({}, "a\nb"));
    EXPECT_THAT(text.tracks[0], IsSupersetOf({"0 name a?b"}));
}

TEST(PlayedMidiFile, OfHoursHasFewerTicks) {
    Sent sent; // a file counts to 268 million ticks between two events
    sent.song.lengthNs = 20'000'000'000'000; // 400 million ticks at 480,000 us a quarter note
    EXPECT_THAT(sent.text().tracks[0],
                ElementsAre("0 name song", "0 tempo 960000", "0 measure 4 4", "200000000 end"));
}

TEST(PlayedMidiFile, IsMadeOfTheMessagesOfOneDevice) {
    KeptMidi midi;
    platform::MidiOutHandle handle = 0;
    EXPECT_EQ(midi.midiOutOpen(handle, 1), platform::midiBadDevice);
    EXPECT_EQ(midi.midiOutOpen(handle, -2), platform::midiBadDevice);
    EXPECT_EQ(midi.midiOutOpen(handle, 0), platform::midiSuccess);
    EXPECT_EQ(midi.midiOutGetDevCapsA(0), "File");
    EXPECT_EQ(midi.midiOutGetDevCapsA(1), "");
}

TEST(PlayedMidiFile, UsesAChannelForANoteOfAnyVelocityAboveZero) {
    Sent sent;
    sent.send(0, 2, 0x90, 60, 1);
    sent.send(0, 3, 0x91, 60, 0);
    const auto channels = channelsOfRows(sent.song);
    EXPECT_EQ(channels[2], 1);
    EXPECT_EQ(channels[3], 0);
}

TEST(PlayedMidiFile, ADrumThatAnotherRowEndsWithItsCellNeedsNoMark) {
    Sent sent;
    sent.drum(0, 8, 42);
    sent.drumEnd(1, 8, 42);
    sent.drum(1, 9, 42);
    sent.drumEnd(2, 9, 42);
    EXPECT_THAT(sent.text().tracks[1],
                ElementsAre("0 name Percussion 1", "0 instrument Closed Hi-Hat", "0 on 10 42 127",
                            "2399 off 10 42", "7200 end"));
}

} // namespace
} // namespace velorin::convert
