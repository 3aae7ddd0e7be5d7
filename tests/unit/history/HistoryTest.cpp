// What the history keeps, and what undo and redo put back.
#include "history/History.h"

#include "model/ScoreWriter.h"
#include "session/Session.h"
#include "support/GridText.h"
#include "support/ScriptedHistory.h"
#include "support/ScriptedPlatform.h"

#include <gmock/gmock.h>

#include <fstream>

using namespace velorin;
using testing::ElementsAre;

namespace {

/// The view of a main window: it notes where it is asked to go.
struct ViewDesk : NoDesk {
    int beatboxHeight() override { return heightPx; }
    void setBeatboxHeight(int height) override { heightPx = height; }
    void moveViewTo(int columnGiven, int pitchGiven) override {
        column = columnGiven;
        pitch = pitchGiven;
    }
    int heightPx = 48;
    int column = -1;
    int pitch = -1;
};

class HistoryTest : public testing::Test {
protected:
    HistoryTest() {
        session.studio.desk = &desk;
        history.begin();
    }

    Score& score() { return session.studio.score; }

    void draw(int row, int column, int pitch = 60) {
        scripted::putNote(score(), row, column, pitch, 1, 24);
        history.changeFinished();
    }

    [[nodiscard]] std::string notes() { return scripted::gridText(score().NoteArray, 0, 0, 4); }

    [[nodiscard]] std::vector<std::string> texts() {
        std::vector<std::string> all;
        for (const platform::HistoryEntry& entry : history.entries())
            all.push_back(entry.text);
        return all;
    }

    [[nodiscard]] std::string songPath(const char* name) const {
        return (host.folder.path() / name).string();
    }

    scripted::ScriptedPlatform host;
    Session session{host.platform};
    ViewDesk desk;
    scripted::ScriptedHistory store;
    History history{session.studio, session.files, &store};
};

} // namespace

TEST_F(HistoryTest, ChangeIsKeptOnceWithItsDescriptionAndItsScore) {
    draw(0, 2);
    history.changeFinished();
    score().NoteArray.write(0, 2, 60); // the same again
    history.changeFinished();
    EXPECT_THAT(texts(), ElementsAre("Note drawn on channel 1, column 3"));
    EXPECT_EQ(store.score(1), exactText(score()));
}

TEST_F(HistoryTest, TempoInstrumentsAndChordMarksAreChanges) {
    draw(0, 2);
    score().Tempo = 80;
    history.changeFinished();
    score().RowInstrument[0] = 46;
    history.changeFinished();
    score().PolyArray.write(1, 3, 1);
    history.changeFinished();
    EXPECT_THAT(texts(),
                ElementsAre(testing::_, "Tempo 80, was 100", "Channel 1 plays 46 Orchestral Harp",
                            "Chord mark set at column 3"));
}

TEST_F(HistoryTest, SelectingAnotherRowIsNoChangeThoughItGivesTheRowAnInstrument) {
    score().CurrentRow = 3;
    score().RowInstrument[3] = 24;
    history.changeFinished();
    EXPECT_TRUE(history.entries().empty());
}

TEST_F(HistoryTest, UndoAndRedoPutEveryCellBack) {
    draw(0, 0);
    score().InstrumentArray.write(0, 9, 50); // under a rest after the last note
    history.changeFinished();
    draw(0, 2);
    const Score full = score();
    EXPECT_EQ(history.undo(), HistoryStep::done);
    EXPECT_EQ(notes(), "60 . . . .");
    EXPECT_EQ(history.undo(), HistoryStep::done);
    EXPECT_EQ(score().InstrumentArray.read(0, 9), 0);
    EXPECT_EQ(history.undo(), HistoryStep::done);
    EXPECT_EQ(notes(), ". . . . .");
    while (history.redo() == HistoryStep::done) {
    }
    EXPECT_EQ(score().NoteArray, full.NoteArray);
    EXPECT_EQ(score().InstrumentArray, full.InstrumentArray);
}

TEST_F(HistoryTest, AtTheEndsNothingHappens) {
    EXPECT_EQ(history.undo(), HistoryStep::atEnd);
    draw(0, 0);
    EXPECT_EQ(history.redo(), HistoryStep::atEnd);
    EXPECT_EQ(notes(), "60 . . . .");
}

TEST_F(HistoryTest, UndoIsNoChangeOfItsOwn) {
    draw(0, 0);
    history.undo();
    history.changeFinished();
    EXPECT_EQ(history.entries().size(), 1U);
    EXPECT_EQ(store.current, 0);
}

TEST_F(HistoryTest, ChangeAfterAnUndoDropsNothing) {
    draw(0, 0);
    draw(0, 1);
    history.undo();
    draw(0, 4);
    EXPECT_EQ(history.entries().size(), 3U);
    EXPECT_TRUE(history.isUndone(2));
    EXPECT_FALSE(history.isUndone(3));
    history.undo();
    EXPECT_EQ(notes(), "60 . . . .");
    history.redo();
    EXPECT_EQ(notes(), "60 . . . 60");
}

TEST_F(HistoryTest, StateOfAnotherBranchComesBackAsANewOneAndUndoLeadsBack) {
    draw(0, 0);
    draw(0, 1);
    history.undo();
    draw(0, 4);
    EXPECT_EQ(history.goTo(2), HistoryStep::done);
    EXPECT_EQ(notes(), "60 60 . . .");
    EXPECT_EQ(texts().back(), "Back to: Note drawn on channel 1, column 2");
    history.undo();
    EXPECT_EQ(notes(), "60 . . . 60");
}

TEST_F(HistoryTest, ChangeThatNobodyLookedAtIsKeptBeforeAnUndo) {
    draw(0, 0);
    scripted::putNote(score(), 0, 3, 60, 1, 24);
    history.undo();
    EXPECT_EQ(notes(), "60 . . . .");
    history.redo();
    EXPECT_EQ(notes(), "60 . . 60 .");
}

TEST_F(HistoryTest, NothingIsPutBackWhileTheSongPlaysOrADragGoesOn) {
    draw(0, 0);
    session.studio.run.IsPlaying = flagSet;
    EXPECT_EQ(history.undo(), HistoryStep::locked);
    session.studio.run.IsPlaying = flagClear;
    session.studio.drag.MouseHeld = flagSet;
    EXPECT_EQ(history.undo(), HistoryStep::locked);
    EXPECT_EQ(history.goTo(0), HistoryStep::locked);
    session.studio.drag.MouseHeld = flagClear;
    EXPECT_EQ(history.undo(), HistoryStep::done);
}

TEST_F(HistoryTest, StateThatCannotBeReadLeavesTheScoreAlone) {
    draw(0, 0);
    draw(0, 1);
    store.scores.erase(1);
    EXPECT_EQ(history.undo(), HistoryStep::lost);
    EXPECT_EQ(notes(), "60 60 . . .");
}

TEST_F(HistoryTest, ViewStaysWhereTheChangeIsInSight) {
    session.studio.view.TopPitch = 50;
    session.studio.view.BottomPitch = 70;
    draw(0, 5, 60);
    history.undo();
    EXPECT_EQ(desk.column, -1);
    EXPECT_EQ(desk.pitch, -1);
}

TEST_F(HistoryTest, ViewStaysWhereTheChangeIsInItsLastLine) {
    session.studio.view.TopPitch = 50;
    session.studio.view.BottomPitch = 70;
    for (const int pitch : {50, 70}) {
        draw(0, 5, pitch);
        history.undo();
        EXPECT_EQ(desk.pitch, -1) << pitch;
    }
}

TEST_F(HistoryTest, ViewMovesToAChangeThatIsOutOfSight) {
    session.studio.view.TopPitch = 50;
    session.studio.view.BottomPitch = 70;
    draw(0, 500, 20);
    history.undo();
    EXPECT_EQ(desk.column, 500);
    EXPECT_EQ(desk.pitch, 20);
}

TEST_F(HistoryTest, ClosedPercussionStripOpensForBeatsThatComeBack) {
    draw(8, 3, 55);
    score().InstrumentArray.write(8, 3, 130);
    history.changeFinished();
    score().ClearNoteArrays();
    history.changeFinished();
    desk.heightPx = 12;
    history.undo();
    EXPECT_EQ(desk.heightPx, 36);
    desk.heightPx = 60;
    history.redo();
    history.undo();
    EXPECT_EQ(desk.heightPx, 60) << "it is open already";
}

TEST_F(HistoryTest, MarkerAndSelectionStay) {
    draw(0, 5);
    score().StartColumn = 7;
    score().SelectStart = 2;
    score().SelectEnd = 4;
    history.undo();
    EXPECT_EQ(score().StartColumn, 7);
    EXPECT_EQ(score().SelectStart, 2);
    EXPECT_EQ(score().SelectEnd, 4);
}

TEST_F(HistoryTest, OpeningIsOneChangeAndUndoBringsTheOldNameBack) {
    draw(0, 0);
    std::ofstream(songPath("boat.sng")) << "61,62\r\n24,24\r\n";
    ASSERT_TRUE(session.files.openChosen(songPath("boat.sng")));
    history.changeFinished();
    EXPECT_EQ(texts().back(), "Opened boat.sng");
    EXPECT_TRUE(history.entries().back().isSaved);
    EXPECT_FALSE(history.isUnsaved());
    history.undo();
    EXPECT_EQ(score().CurrentFileName, "");
    EXPECT_EQ(notes(), "60 . . . .");
    history.redo();
    EXPECT_EQ(notes(), "61 62 . . .");
    EXPECT_NE(score().CurrentFileName, "");
}

TEST_F(HistoryTest, SavedMomentIsALineOfItsOwnAndNoStep) {
    draw(0, 0);
    EXPECT_TRUE(history.isUnsaved());
    session.files.SaveScoreFile(songPath("boat.sng"));
    history.changeFinished();
    EXPECT_FALSE(history.isUnsaved());
    ASSERT_EQ(history.entries().size(), 2U);
    EXPECT_EQ(history.entries()[1].kind, "saved");
    EXPECT_EQ(history.entries()[1].state, 1);
    EXPECT_EQ(history.current(), 1);
    draw(0, 3);
    EXPECT_TRUE(history.isUnsaved());
    history.undo();
    EXPECT_FALSE(history.isUnsaved());
    EXPECT_EQ(score().CurrentFileName, songPath("boat.sng")) << "the file is the same one";
}

TEST_F(HistoryTest, ScoreThatIsDrawnBackToItsFileIsNoSavedMoment) {
    draw(0, 0);
    session.files.SaveScoreFile(songPath("boat.sng"));
    history.changeFinished();
    draw(0, 3);
    score().NoteArray.write(0, 3, emptyCell);
    score().InstrumentArray.write(0, 3, 0);
    history.changeFinished();
    EXPECT_FALSE(history.isUnsaved()) << "nothing would be lost";
    EXPECT_FALSE(history.entries().back().isSaved) << "but no file was written at this moment";
}

TEST_F(HistoryTest, ReplacedScoreThatWasNotSavedIsReportedOnce) {
    int reports = 0;
    history.onReplacedUnsaved = [&reports] { ++reports; };
    draw(0, 0);
    draw(0, 3);
    score().ClearNoteArrays();
    history.changeFinished();
    EXPECT_EQ(reports, 1);
    draw(0, 0);
    draw(0, 3);
    score().ClearNoteArrays();
    history.changeFinished();
    EXPECT_EQ(reports, 1);
}

TEST_F(HistoryTest, ClearOfASheetWithOneNoteIsReportedToo) {
    int reports = 0;
    history.onReplacedUnsaved = [&reports] { ++reports; };
    draw(0, 0);
    score().ClearNoteArrays();
    history.changeFinished();
    EXPECT_EQ(reports, 1);
}

TEST_F(HistoryTest, ReplacedScoreThatWasSavedIsNotReported) {
    int reports = 0;
    history.onReplacedUnsaved = [&reports] { ++reports; };
    draw(0, 0);
    draw(0, 3);
    session.files.SaveScoreFile(songPath("boat.sng"));
    history.changeFinished();
    score().ClearNoteArrays();
    history.changeFinished();
    EXPECT_EQ(reports, 0);
}

TEST_F(HistoryTest, ClearedHistoryBeginsWithTheScoreAsItIs) {
    draw(0, 0);
    draw(0, 1);
    history.clear();
    EXPECT_THAT(texts(), ElementsAre("Kept when the history was cleared"));
    EXPECT_EQ(notes(), "60 60 . . .");
    history.undo();
    EXPECT_EQ(notes(), "60 60 . . .") << "the score as it was is the start";
    draw(0, 4);
    history.undo();
    EXPECT_EQ(notes(), "60 60 . . .");
}

TEST_F(HistoryTest, ClearedHistoryOfABlankSheetIsEmpty) {
    draw(0, 0);
    score().ClearNoteArrays();
    history.clear();
    EXPECT_TRUE(history.entries().empty());
    EXPECT_EQ(history.current(), 0);
    EXPECT_EQ(history.undo(), HistoryStep::atEnd);
}

TEST_F(HistoryTest, EndTellsWhetherTheScoreNeedsRecovery) {
    draw(0, 0);
    session.files.SaveScoreFile(songPath("boat.sng"));
    history.end();
    EXPECT_TRUE(store.endedSafely);
}

TEST_F(HistoryTest, EndWithAnErrorLeavesAlsoASavedScoreToRecover) {
    draw(0, 0);
    session.files.SaveScoreFile(songPath("boat.sng"));
    scripted::putNote(score(), 0, 1, 60, 1, 24);
    history.endWithError();
    EXPECT_TRUE(store.ended);
    EXPECT_FALSE(store.endedSafely);
    EXPECT_EQ(store.toRecover(), exactText(score()));
    history.end();
    EXPECT_FALSE(store.endedSafely) << "the first end counts";
}

TEST_F(HistoryTest, ChangeAfterTheEndIsNotKept) {
    draw(0, 0);
    history.end();
    EXPECT_FALSE(store.endedSafely);
    score().ClearNoteArrays();
    history.changeFinished();
    EXPECT_EQ(store.kept.size(), 1U);
    EXPECT_EQ(history.undo(), HistoryStep::locked);
}

TEST_F(HistoryTest, WithoutAStoreTheStatesAreInMemory) {
    History own(session.studio, session.files, nullptr);
    own.begin();
    scripted::putNote(score(), 0, 1, 60, 1, 24);
    own.changeFinished();
    EXPECT_EQ(own.undo(), HistoryStep::done);
    EXPECT_EQ(notes(), ". . . . .");
}

TEST_F(HistoryTest, EntriesOfEarlierRunsComeFirst) {
    History later(session.studio, session.files, &store);
    draw(0, 0);
    history.end();
    store.ended = false;
    score().ClearNoteArrays();
    later.begin();
    EXPECT_EQ(later.entries().size(), 1U);
    EXPECT_EQ(later.goTo(1), HistoryStep::done);
    EXPECT_EQ(notes(), "60 . . . .");
    later.undo();
    EXPECT_EQ(notes(), ". . . . .");
}
