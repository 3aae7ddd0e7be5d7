// What a user is told.
#include "Song.h"

#include <gmock/gmock.h>

namespace velorin::importing::test {
namespace {

using testing::Contains;
using testing::ElementsAre;

TEST(Sentences, OfAPlainSongAreTwo) {
    Song song;
    for (int i = 0; i < 32; ++i)
        song.note(i * sixteenth, 60, sixteenth);
    EXPECT_THAT(
        sentencesOf(song.import()),
        ElementsAre("keeps 32 of 32 notes (100.0 %)", "has tempo 96, 4 columns to a quarter note"));
}

TEST(Sentences, SayWhyNotesWereDropped) {
    Song song;
    for (int i = 0; i < 10; ++i)
        song.note(0, 40 + 2 * i, quarter);
    EXPECT_THAT(
        sentencesOf(song.import()),
        Contains("keeps 8 of 10 notes (80.0 %); dropped are 2 because more than eight begin "
                 "at once"));
}

TEST(Sentences, NameVolumesAndWhatIsLeftOut) {
    Song song;
    song.note(0, 60, quarter, 0, 0, 80)
        .note(0, 36, quarter, 9, 0, 70)
        .note(0, 38, quarter, 9, 0, 70);
    song.note(0, 42, quarter, 9, 0, 60).message(0, 0xE0, 0, 64).message(0, 0xE0, 0, 65);
    const auto sentences = sentencesOf(song.import());
    EXPECT_THAT(
        sentences,
        Contains(
            "has these volumes for the Setup Toolbar: Ch 1 80, Percussion 1 70, Percussion 2 60"));
    EXPECT_THAT(sentences, Contains("loses 2 pitch bends"));
}

TEST(Sentences, OfScoresAlikeAreOne) {
    Song song;
    for (int i = 0; i < 2500; ++i)
        song.note(i * sixteenth, 60, sixteenth);
    EXPECT_THAT(sentencesOf(song.import()),
                ElementsAre("keeps 2500 of 2500 notes (100.0 %)",
                            "scores 1 to 3 have tempo 96, 4 columns to a quarter note"));
}

TEST(Sentences, SayHowManyNotesWereChanged) {
    Song song;
    for (int i = 0; i < 32; ++i)
        song.note(i * sixteenth, 60, sixteenth);
    song.note(40 * sixteenth + 24, 72, sixteenth);
    EXPECT_THAT(sentencesOf(song.import()),
                Contains("has changed notes: 1 moved (25 ms in the median, 25 ms or 0.2 columns at "
                         "most)"));
}

TEST(Sentences, SayWhyANoteWasDropped) {
    Song song;
    for (int i = 0; i < 9; ++i)
        song.note(0, 40 + 2 * i, quarter);
    EXPECT_THAT(sentencesOf(song.import()),
                Contains("keeps 8 of 9 notes (88.8 %); dropped are 1 because more than eight begin "
                         "at once"));
}

} // namespace
} // namespace velorin::importing::test
