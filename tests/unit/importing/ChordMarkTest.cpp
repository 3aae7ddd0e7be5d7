// Chords that become one cell with a mark.
#include "Song.h"

#include <gtest/gtest.h>

namespace velorin::importing::test {
namespace {

Song chord(std::initializer_list<int> keys) {
    Song song;
    for (const int key : keys)
        song.note(0, key, quarter);
    return song;
}

TEST(AChordMark, StandsForRootThirdFifthAndOctaveOfAMinorChord) {
    const Import import = chord({57, 60, 64, 69}).note(quarter, 60, quarter).import();
    EXPECT_EQ(rowText(import.pieces[0].score, 0, 2), "57* 60");
    EXPECT_EQ(rowText(import.pieces[0].score, 1, 2), ". .");
    EXPECT_EQ(import.account.kept(), 5);
    EXPECT_EQ(import.account.inMarks, 3);
}

TEST(AChordMark, IsNotSetOnAMajorChord) {
    const Import import = chord({57, 61, 64, 69}).import();
    EXPECT_EQ(import.account.inMarks, 0);
    EXPECT_EQ(import.account.kept(), 4);
}

TEST(AChordMark, IsNotSetIfANoteIsLonger) {
    Song song = chord({57, 60, 64});
    EXPECT_EQ(song.note(0, 69, 2 * quarter).import().account.inMarks, 0);
}

TEST(AChordMark, IsNotSetForNotesOfTwoParts) {
    Song song = chord({57, 60, 64});
    EXPECT_EQ(song.note(0, 69, quarter, 1).import().account.inMarks, 0);
}

TEST(AChordMark, DoesNotMakeTheRowSofter) {
    Song song;
    song.note(0, 57, quarter, 0, 0, 108);
    for (const int key : {60, 64, 69})
        song.note(0, key, quarter, 0, 0, 70);
    EXPECT_EQ(song.import().pieces[0].volumes[0], 127);
}

} // namespace
} // namespace velorin::importing::test
