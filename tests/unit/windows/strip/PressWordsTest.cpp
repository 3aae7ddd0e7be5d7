// Every click that does nothing, or something else than it looks like, has its sentence.
#include "windows/strip/PressWords.h"

#include <gtest/gtest.h>

using namespace velorin;

namespace {

constexpr int left = 1;
constexpr int right = 2;
constexpr int middle = 4;
constexpr int selectMode = 2;
constexpr int polynotes = 2;
constexpr int menuMode = 1;
constexpr int drums = 8;

Press on(Tableau where, int button = left) {
    Press press;
    press.where = where;
    press.button = button;
    return press;
}

} // namespace

TEST(PressWords, NoteOnTheWhiteRowsNeedsNoSentence) {
    EXPECT_EQ(pressSentence(on(Tableau::music)), "");
}

TEST(PressWords, FirstClickAfterADrumChoosesAChannel) {
    Press press = on(Tableau::music);
    press.rowBefore = drums;
    press.got = "Nylon Guitar";
    EXPECT_EQ(pressSentence(press),
              "Channel 1 is chosen now, with Nylon Guitar. Click again to draw notes.");
}

TEST(PressWords, FirstClickOnTheStripChoosesADrum) {
    Press press = on(Tableau::strip);
    press.rowNow = drums;
    press.got = "Acoustic Bass Drum";
    EXPECT_EQ(pressSentence(press), "Percussion Channel 1 is chosen now, with Acoustic Bass Drum. "
                                    "Click again to draw beats.");
}

TEST(PressWords, StripWithoutADrumSaysWhereToChooseOne) {
    Press press = on(Tableau::strip);
    press.rowBefore = press.rowNow = drums;
    press.hasDrum = false;
    EXPECT_EQ(pressSentence(press),
              "No drum sound was chosen yet. Choose one in the lower list of the Setup Toolbar.");
}

TEST(PressWords, RightClickThatFindsNothingSaysSo) {
    Press press = on(Tableau::music, right);
    press.rowBefore = press.rowNow = 1;
    EXPECT_EQ(pressSentence(press), "Channel 2 has no note to erase in this column.");
    press.rightClick = polynotes;
    EXPECT_EQ(pressSentence(press), "Channel 2 has no note to mark in this column.");
    press.rightClick = menuMode;
    EXPECT_EQ(pressSentence(press), "");
    press.rightClick = 0;
    press.hasNote = true;
    EXPECT_EQ(pressSentence(press), "");
}

TEST(PressWords, RightClickOnANoteOfAnotherChannelNamesThatChannel) {
    Press press = on(Tableau::music, right);
    press.otherRow = 2;
    EXPECT_EQ(pressSentence(press), "This note is of Channel 3. Choose that channel to erase it.");
}

TEST(PressWords, StripErasesAlsoWhileTheRightClickMarksChords) {
    Press press = on(Tableau::strip, right);
    press.rowBefore = press.rowNow = drums;
    press.rightClick = polynotes;
    EXPECT_EQ(pressSentence(press), "Percussion Channel 1 has no beat to erase in this column.");
}

TEST(PressWords, MiddleButtonSaysWhatTheOthersDo) {
    EXPECT_EQ(
        pressSentence(on(Tableau::music, middle)),
        "The left button draws. The right one erases, or what its button on the toolbar says.");
}

TEST(PressWords, NoteThatIsNotShownOrNotHeardSaysWhy) {
    Press press = on(Tableau::music);
    press.isHidden = true;
    EXPECT_EQ(pressSentence(press),
              "Channel 1 is hidden, so what you draw is not shown. Show it in the Setup Toolbar.");
    press = on(Tableau::music);
    press.isBelowLowest = true;
    EXPECT_EQ(pressSentence(press),
              "The lowest note is 0C. A note that you draw below it does not sound.");
}

TEST(PressWords, SelectModeDrawsNothingSoNothingIsMissing) {
    Press press = on(Tableau::music);
    press.editMode = selectMode;
    press.isHidden = true;
    EXPECT_EQ(pressSentence(press), "");
    EXPECT_EQ(selectSentence(),
              "Select mode: pull across columns to select them. F2 goes back to drawing.");
}

TEST(PressWords, LanesSayWhatAMarkDoes) {
    Press press = on(Tableau::lanes);
    press.lane = 1;
    press.column = press.markedColumn = 16;
    EXPECT_EQ(pressSentence(press),
              "No note of Channel 2 begins in column 17, so this mark changes nothing yet.");
    press.isNoteStart = true;
    EXPECT_EQ(pressSentence(press), "");
    press.wasMarked = true;
    EXPECT_EQ(pressSentence(press),
              "This column is marked already. Pull with the right button to remove marks.");
    press.button = right;
    EXPECT_EQ(pressSentence(press),
              "A click sets a mark with any button. Pull with the right one to remove marks.");
    press.markedColumn = 4;
    EXPECT_EQ(pressSentence(press),
              "The view is scrolled, so the mark is in column 5. Return to Start to mark here.");
    press.lane = -1;
    EXPECT_EQ(pressSentence(press), "");
}

TEST(PressWords, NumbersSayWhereTheMarkerIs) {
    Press press = on(Tableau::numbers);
    press.markedColumn = 2;
    EXPECT_EQ(pressSentence(press), "The position marker is at column 3 now.");
}

TEST(PressWords, SetupToolbarSaysWhatItChangesSilently) {
    EXPECT_EQ(instrumentSentence(2, "Nylon Guitar"),
              "Channel 3 plays Nylon Guitar now: it took over what the list shows.");
    EXPECT_EQ(setupLostSentence(),
              "The Setup Toolbar is closed: volumes, hidden channels and chords are reset.");
}
