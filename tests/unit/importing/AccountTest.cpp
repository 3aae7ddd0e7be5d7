// Every note is kept or dropped, whatever the file.
#include "Song.h"

#include <gtest/gtest.h>

#include <random>

namespace velorin::importing::test {
namespace {

void expectComplete(const Import& import) {
    const Account& all = import.account;
    EXPECT_EQ(all.kept() + all.dropped(), all.notes);
    std::int64_t notes = 0;
    std::int64_t kept = 0;
    std::int64_t cells = 0;
    for (const Piece& piece : import.pieces) {
        EXPECT_EQ(piece.account.kept() + piece.account.dropped(), piece.account.notes);
        EXPECT_GE(piece.score.Tempo, 20);
        EXPECT_LE(piece.score.Tempo, 300);
        notes += piece.account.notes;
        kept += piece.account.kept();
        for (int row = 0; row < scoreRows; ++row)
            for (int column = 0; column < scoreColumns; ++column)
                cells += isStart(piece.score.NoteArray.at(row, column)) ? 1 : 0;
    }
    EXPECT_EQ(notes, all.notes);
    EXPECT_EQ(kept, all.kept());
    // Each note has a cell of its own, or shares one; a note that goes on in the next score has
    // more.
    EXPECT_GE(cells, all.kept() - all.merged - all.inMarks);
}

/// Any messages at any times.
Song anySong(std::mt19937& random) {
    const auto below = [&random](int count) {
        return static_cast<int>(random() % static_cast<unsigned>(count));
    };
    Song song(static_cast<std::uint16_t>(below(5) == 0 ? 0xE250 : 1 + below(2000)));
    const int length = 1 << below(20);
    const int count = 1 + below(400);
    for (int i = 0; i < count; ++i) {
        const std::int64_t tick = below(length);
        const std::size_t track = static_cast<std::size_t>(below(3));
        switch (below(12)) {
        case 0:
            song.tempo(tick, 1.0 + below(600));
            break;
        case 1:
            song.program(tick, below(128), below(16), track);
            break;
        case 2:
            song.message(tick, 0xB0 + below(16), below(128), below(128), track);
            break;
        case 3:
            song.meter(tick, 1 + below(9), 1 << below(5));
            break;
        case 4:
            song.message(tick, 0x80 + below(0x70), below(128), below(128), track);
            break;
        default:
            song.note(tick, below(8) * 16 + below(16), below(length), below(16), track,
                      1 + below(127));
        }
    }
    return song;
}

TEST(AnAccount, OfAnyMessagesIsComplete) {
    std::mt19937 random(15);
    int imported = 0;
    for (int i = 0; i < 400; ++i) {
        SCOPED_TRACE(i);
        auto import = anySong(random).tryImport({1e6});
        if (import) {
            ++imported;
            expectComplete(*import);
        }
    }
    EXPECT_GT(imported, 300);
}

TEST(AnAccount, CountsEqualNotesOfTwoPartsAsMergedIfThatSavesARow) {
    Song song;
    song.note(0, 60, quarter, 0).note(0, 60, quarter, 1);
    EXPECT_EQ(song.import().account.merged, 0);
    for (int i = 2; i < 9; ++i)
        song.note(0, 60 + i, quarter, i);
    const Import import = song.import();
    EXPECT_EQ(import.account.kept(), 9);
    EXPECT_EQ(import.account.merged, 1);
}

TEST(AnAccount, CountsNotesThatRepeatWithinAColumn) {
    Song song;
    for (int i = 0; i < 200; ++i)
        song.note(i * sixteenth, 60, sixteenth);
    song.note(40, 60, 40); // a third of a sixteenth after the first
    const Import import = song.import();
    EXPECT_EQ(import.account.tooFast, 1);
    EXPECT_EQ(import.account.kept(), 200);
}

TEST(AnAccount, SaysHowFarNotesWereMoved) {
    Song song;
    for (int i = 0; i < 200; ++i)
        song.note(i * sixteenth, 60 + i % 5, sixteenth);
    song.note(200 * sixteenth + 24, 72, sixteenth); // 24 ticks are 25 ms, a fifth of a column
    const Account account = song.import().account;
    EXPECT_EQ(account.exact, 200);
    EXPECT_EQ(account.moved, 1);
    EXPECT_NEAR(account.medianMoveMs, 25.0, 0.1);
    EXPECT_NEAR(account.largestMoveColumns, 0.2, 0.001);
}

TEST(AnImport, OfAFileWithoutNotesFails) {
    EXPECT_EQ(Song().program(0, 5).tryImport().reason(), "has no notes");
}

TEST(AnImport, OfAFileThatIsTooLongFails) {
    const auto import = Song().note(0, 60, 1).note(20'000 * quarter, 60, 1).tryImport({3600.0});
    EXPECT_EQ(import.reason(), "is too long: 167 minutes of music");
}

TEST(AnImport, OfTooManyNotesFails) {
    Song song;
    for (int i = 0; i < 1'000'001; ++i)
        song.message(0, 0x90, 60, 100);
    EXPECT_EQ(song.tryImport().reason(), "has 1000001 notes; at most 1000000 can be imported");
}

TEST(AnImport, OfHostileTempoAndDivisionEnds) {
    Song song(1);
    for (int i = 0; i < 100; ++i)
        song.note(i * (1LL << 28), 60, 1LL << 28);
    song.message(0, 0x90, 61, 1);
    midifile::MidiData data = song.data();
    data.tracks[0].events.insert(data.tracks[0].events.begin(), {0, 1, {}, 0}); // 1 us a quarter
    auto import = importMidi({&data, 1}, {86'400.0});
    ASSERT_TRUE(import) << import.reason();
    expectComplete(*import);
}

TEST(AnAccount, CountsTheFirstNoteOfASongAsMoved) {
    Song song;
    song.note(24, 60, sixteenth); // 25 ms late
    for (int i = 1; i < 32; ++i)
        song.note(i * sixteenth, 61, sixteenth);
    EXPECT_NEAR(song.import().account.largestMoveMs, 25.0, 0.1);
}

TEST(AnAccount, CountsMergedNotesInEachSongOfAFile) {
    Song song;
    song.note(0, 60, quarter).note(0, 60, quarter).note(quarter, 62, quarter);
    const std::vector<midifile::MidiData> songs{song.data(), song.data()};
    auto import = importMidi(songs, {});
    ASSERT_TRUE(import);
    expectComplete(*import);
    EXPECT_EQ(import->account.notes, 6);
    EXPECT_EQ(import->account.merged, 2);
}

} // namespace
} // namespace velorin::importing::test
