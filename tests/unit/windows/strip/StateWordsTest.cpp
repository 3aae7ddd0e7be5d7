// The words of the line of state.
#include "windows/strip/StateWords.h"

#include <gtest/gtest.h>

using namespace velorin;

namespace {

constexpr int drawing = 0;
constexpr int selecting = 2;

StripState musicBox() {
    StripState state;
    state.instrument = "Music Box";
    state.column = 16;
    state.lengthSeconds = 35.2;
    state.playedSeconds = 11;
    return state;
}

QString second(const StripState& state) {
    return stateWords(state).second.join("  \u00b7  ");
}

/// Ten pixels for each letter.
int tenEach(const QString& text) {
    return 10 * static_cast<int>(text.size());
}

} // namespace

TEST(StateWords, DrawingShowsPlaceLengthAndMode) {
    StripState state = musicBox();
    state.editMode = drawing;
    EXPECT_EQ(stateWords(state).first, "Music Box");
    EXPECT_EQ(second(state), "Bar 5, column 17  \u00b7  0:35  \u00b7  Draw");
    EXPECT_FALSE(stateWords(state).isLive);
    EXPECT_FALSE(stateWords(state).isLocked);
}

TEST(StateWords, SelectingNamesItsMode) {
    StripState state = musicBox();
    state.editMode = selecting;
    EXPECT_EQ(second(state), "Bar 5, column 17  \u00b7  0:35  \u00b7  Select");
}

TEST(StateWords, BarsHaveFourColumnsAndBothCountFromOne) {
    StripState state = musicBox();
    state.column = 0;
    EXPECT_EQ(stateWords(state).second.first(), "Bar 1, column 1");
    state.column = 3;
    EXPECT_EQ(stateWords(state).second.first(), "Bar 1, column 4");
    state.column = 999;
    EXPECT_EQ(stateWords(state).second.first(), "Bar 250, column 1000");
}

TEST(StateWords, PlayingIsLockedAndLive) {
    StripState state = musicBox();
    state.isPlaying = true;
    EXPECT_EQ(second(state), "Locked while playing  \u00b7  0:11 of 0:35");
    EXPECT_TRUE(stateWords(state).isLive);
    EXPECT_TRUE(stateWords(state).isLocked);
}

TEST(StateWords, RecordingShowsItsTimeAlsoWhileTheSongPlays) {
    StripState state = musicBox();
    state.isRecording = true;
    EXPECT_EQ(second(state), "Recording  \u00b7  0:11");
    state.isPlaying = true;
    EXPECT_EQ(second(state), "Recording  \u00b7  0:11");
    EXPECT_TRUE(stateWords(state).isLocked);
}

TEST(StateWords, PartsGoFromTheEndAndTheFirstStays) {
    const QStringList parts{"Bar 5", "0:35", "Draw"}; // 5, 4 and 4 letters, 5 for a separator
    EXPECT_EQ(fittingParts(parts, 230, tenEach), "Bar 5  \u00b7  0:35  \u00b7  Draw");
    EXPECT_EQ(fittingParts(parts, 229, tenEach), "Bar 5  \u00b7  0:35");
    EXPECT_EQ(fittingParts(parts, 139, tenEach), "Bar 5");
    EXPECT_EQ(fittingParts(parts, 0, tenEach), "Bar 5");
}

TEST(StateWords, ReaderHearsTheChannelAndAllPartsOrTheSentence) {
    StripState state = musicBox();
    EXPECT_EQ(readerWords(state), "Channel 1, Music Box. Bar 5, column 17. 0:35. Draw.");
    state.sentence = "A sentence.";
    EXPECT_EQ(readerWords(state), "A sentence.");
}

TEST(StateWords, InstrumentsHaveNoNumber) {
    EXPECT_EQ(instrumentName(10), "Music Box");
    EXPECT_EQ(instrumentName(128), "Acoustic Bass Drum");
    EXPECT_EQ(instrumentName(-1), "");
    EXPECT_EQ(instrumentName(175), "");
}
