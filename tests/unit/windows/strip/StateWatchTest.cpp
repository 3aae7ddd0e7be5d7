// What the line of state shows of the program, and when.
#include "windows/strip/StateWatch.h"
#include "session/Session.h"
#include "support/ScriptedPlatform.h"
#include "windows/strip/PressWatch.h"
#include "windows/strip/StateLine.h"

#include <gtest/gtest.h>

#include <QAbstractEventDispatcher>
#include <QMouseEvent>
#include <QTest>

using namespace velorin;

namespace {

class StateWatchTest : public testing::Test {
protected:
    /// The loop is about to sleep, and the last paint was long ago.
    const StripState& look() {
        EXPECT_TRUE(QTest::qWaitFor([this] { return shown(); }));
        return line.state();
    }
    bool shown() {
        const StripState before = line.state();
        emitBlock();
        return line.state() == before && !watch.isBehind();
    }
    static void emitBlock() { QAbstractEventDispatcher::instance()->aboutToBlock(); }
    void point(double x) {
        QMouseEvent move(QEvent::MouseMove, QPointF(x, 5), QPointF(x, 5), Qt::NoButton,
                         Qt::NoButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&box, &move);
    }

    scripted::ScriptedPlatform host;
    Session session{host.platform};
    Studio& studio = session.studio;
    QWidget strip;
    QWidget box;
    StateLine line{&strip};
    StateWatch watch{session, line};
};

} // namespace

TEST_F(StateWatchTest, ShowsTheRowTheMarkerAndTheLength) {
    studio.score.CurrentRow = 2;
    studio.score.RowInstrument[2] = 10;
    studio.score.StartColumn = 16;
    studio.score.NoteArray.write(2, 99, 60); // the song has 100 columns of 0.12 s
    const StripState& state = look();
    EXPECT_EQ(state.row, 2);
    EXPECT_EQ(state.instrument, "Music Box");
    EXPECT_EQ(state.column, 16);
    EXPECT_NEAR(state.lengthSeconds, 12.0, 0.001);
    EXPECT_EQ(studio.score.LastColumn, 0) << "the score is only read";
}

TEST_F(StateWatchTest, PointerCountsInsteadOfTheMarkerWhileItIsOverATableau) {
    box.setMouseTracking(true);
    watch.followPointer(&box);
    studio.view.FirstColumn = 40;
    point(25);
    EXPECT_EQ(look().column, 42);
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(&box, &leave);
    EXPECT_EQ(look().column, 0);
}

TEST_F(StateWatchTest, HiddenRowsDoNotMakeTheSongLonger) {
    studio.score.NoteArray.write(0, 49, 60);
    studio.score.NoteArray.write(1, 99, 60);
    EXPECT_NEAR(look().lengthSeconds, 12.0, 0.001);
    studio.setup.values.options.rows[1].hidden = true;
    EXPECT_NEAR(look().lengthSeconds, 6.0, 0.001);
}

TEST_F(StateWatchTest, PlayingShowsItsTimeAndReportsItsBeginningAndEnd) {
    int changes = 0;
    watch.onPlayingChanged = [&changes] { ++changes; };
    studio.run.IsPlaying = flagSet;
    studio.run.PlayColumn = 50;
    studio.score.LastColumn = 100;
    session.sequencer.ColumnTime = 0.12F;
    const StripState& state = look();
    EXPECT_TRUE(state.isPlaying);
    EXPECT_NEAR(state.lengthSeconds, 12.0, 0.001);
    EXPECT_EQ(state.playedSeconds, 6.0);
    EXPECT_EQ(changes, 1);
    studio.run.IsPlaying = flagClear;
    EXPECT_FALSE(look().isPlaying);
    EXPECT_EQ(changes, 2);
}

TEST_F(StateWatchTest, SentenceGoesWithTheNextPress) {
    watch.say("A sentence.");
    EXPECT_EQ(look().sentence, "A sentence.");
    watch.beginPress();
    EXPECT_EQ(look().sentence, "");
}

TEST_F(StateWatchTest, ChosenRowThatGetsAnInstrumentIsReported) {
    look();
    studio.score.CurrentRow = 2;
    studio.score.RowInstrument[2] = 24;
    EXPECT_EQ(look().sentence,
              "Channel 3 plays Nylon Guitar now: it took over what the list shows.");
}

TEST_F(StateWatchTest, RowOfAScoreThatWasOpenedIsNot) {
    look();
    studio.score.CurrentRow = 2;
    studio.score.RowInstrument[2] = 24;
    studio.score.NoteArray.write(0, 0, 60);
    EXPECT_EQ(look().sentence, "");
}

TEST_F(StateWatchTest, RecordingShowsItself) {
    studio.run.RecordingFlag = flagSet;
    EXPECT_TRUE(look().isRecording);
    EXPECT_EQ(look().playedSeconds, 0.0);
}

// A press reads the score before its handler runs.
TEST_F(StateWatchTest, PressOnANoteOfAnotherChannelFindsThatChannel) {
    studio.view.TopPitch = 50;
    studio.score.NoteArray.write(1, 3, 55);
    const PressWatch presses(session);
    const Press press = presses.before(Tableau::music, 2, 3 * 12 + 6, 5 * 12 + 6);
    EXPECT_EQ(press.otherRow, 1);
    EXPECT_FALSE(press.hasNote);
    EXPECT_EQ(presses.after(press), "This note is of Channel 2. Choose that channel to erase it.");
}

TEST_F(StateWatchTest, PressBelowTheLowestPitchIsOutsideTheRange) {
    studio.view.TopPitch = 120;
    const PressWatch presses(session);
    EXPECT_FALSE(presses.before(Tableau::music, 1, 6, 7 * 12 + 6).isBelowLowest);
    EXPECT_TRUE(presses.before(Tableau::music, 1, 6, 8 * 12 + 6).isBelowLowest);
}

TEST_F(StateWatchTest, MarkInAScrolledViewIsElsewhere) {
    studio.view.FirstColumn = 8;
    const Press press = PressWatch(session).before(Tableau::lanes, 1, 2 * 12 + 6, 10);
    EXPECT_EQ(press.lane, 1);
    EXPECT_EQ(press.column, 10);
    EXPECT_EQ(press.markedColumn, 2);
}
