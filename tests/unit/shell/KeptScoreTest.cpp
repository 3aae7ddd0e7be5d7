// The score after each finished change, as the host is given it to keep.
#include "shell/KeptScore.h"

#include "platform/KeptState.h"
#include "score/SavedState.h"
#include "score/Score.h"
#include "score/ScoreWriter.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QEventLoop>
#include <QTest>
#include <QTimer>
#include <QWidget>

#include <memory>
#include <optional>

using namespace velorin;

namespace {

class RecordingState final : public platform::KeptState {
public:
    void keep(const std::string& textGiven) override {
        text = textGiven;
        ++timesKept;
    }
    void forget() override { text.reset(); }
    std::vector<platform::RecoveredText> recoverInto(const std::string&) override { return {}; }

    std::optional<std::string> text;
    int timesKept = 0;
};

/// Writes a cell of row 0 at each press and each move of the mouse, as a drag does.
class DrawingWidget : public QWidget {
public:
    explicit DrawingWidget(Score& score) : score_(score) { resize(200, 50); }

protected:
    void mousePressEvent(QMouseEvent*) override { draw(); }
    void mouseMoveEvent(QMouseEvent*) override { draw(); }

private:
    void draw() { score_.NoteArray.write(0, column_++, 60); }
    Score& score_;
    int column_ = 0;
};

/// Lets the loop run until it has nothing to do, and sleep.
void letLoopRest() {
    QEventLoop loop;
    QTimer::singleShot(5, &loop, &QEventLoop::quit);
    loop.exec();
}

class KeptScoreTest : public testing::Test {
protected:
    std::unique_ptr<Score> score = std::make_unique<Score>();
    RecordingState state;
    SavedState saved;
    KeptScore kept{&state, *score, saved};
};

} // namespace

TEST_F(KeptScoreTest, ChangedScoreIsKept) {
    score->NoteArray.write(0, 3, 60);
    kept.changeFinished();
    EXPECT_EQ(state.text, keptText(*score));
}

TEST_F(KeptScoreTest, ScoreThatHasNotChangedIsKeptOnce) {
    score->NoteArray.write(0, 3, 60);
    kept.changeFinished();
    kept.changeFinished();
    score->NoteArray.write(0, 3, 60); // the same again
    kept.changeFinished();
    EXPECT_EQ(state.timesKept, 1);
}

TEST_F(KeptScoreTest, TempoAndInstrumentsAndChordMarksAreChanges) {
    score->NoteArray.write(0, 3, 60);
    kept.changeFinished();
    score->Tempo = 80;
    kept.changeFinished();
    score->RowInstrument[4] = 40;
    kept.changeFinished();
    score->PolyArray.write(1, 4, 1);
    kept.changeFinished();
    EXPECT_EQ(state.timesKept, 4);
}

TEST_F(KeptScoreTest, ScoreWithoutNotesIsNotKept) {
    score->Tempo = 80;
    kept.changeFinished();
    EXPECT_EQ(state.timesKept, 0);
    score->NoteArray.write(0, 3, 60);
    kept.changeFinished();
    score->ClearNoteArrays();
    kept.changeFinished();
    EXPECT_EQ(state.text, std::nullopt);
}

TEST_F(KeptScoreTest, OrderlyEndKeepsAScoreThatIsNotSaved) {
    score->NoteArray.write(0, 3, 60);
    kept.end();
    const std::string asItStood = keptText(*score);
    score->ClearNoteArrays(); // as the windows may do while they close
    kept.changeFinished();
    EXPECT_EQ(state.text, asItStood);
}

TEST_F(KeptScoreTest, OrderlyEndLeavesNothingOfASavedScore) {
    score->NoteArray.write(0, 3, 60);
    kept.changeFinished();
    saved.setSaved(*score);
    kept.end();
    EXPECT_EQ(state.text, std::nullopt);
}

TEST_F(KeptScoreTest, SaveBeforeTheLastChangeDoesNotCount) {
    score->NoteArray.write(0, 3, 60);
    saved.setSaved(*score);
    score->Tempo = 80;
    kept.end();
    EXPECT_EQ(state.text, keptText(*score));
}

TEST_F(KeptScoreTest, ScoreThatIsSetAsideOutlivesTheOrderlyEnd) {
    score->NoteArray.write(0, 3, 60);
    saved.setSaved(*score);
    kept.setAside();
    const std::string asItStood = keptText(*score);
    score->ClearNoteArrays();
    kept.changeFinished();
    kept.end();
    EXPECT_EQ(state.text, asItStood);
}

TEST_F(KeptScoreTest, NothingHappensOnAHostThatKeepsNothing) {
    KeptScore idle(nullptr, *score, saved);
    idle.watch();
    score->NoteArray.write(0, 3, 60);
    idle.changeFinished();
    idle.setAside();
    idle.end();
}

TEST_F(KeptScoreTest, DragIsOneChangeAndIsKeptWhenTheLoopComesToRest) {
    kept.watch();
    DrawingWidget widget(*score);
    widget.show();
    QTest::mousePress(widget.windowHandle(), Qt::LeftButton, {}, QPoint(5, 5));
    letLoopRest();
    for (int x = 10; x < 60; x += 10)
        QTest::mouseMove(widget.windowHandle(), QPoint(x, 5));
    letLoopRest();
    EXPECT_EQ(state.timesKept, 0);
    QTest::mouseRelease(widget.windowHandle(), Qt::LeftButton, {}, QPoint(60, 5));
    letLoopRest();
    EXPECT_EQ(state.timesKept, 1);
    EXPECT_EQ(state.text, keptText(*score));
}

TEST_F(KeptScoreTest, ChangeIsKeptBeforeTheNextPress) {
    kept.watch();
    DrawingWidget widget(*score);
    widget.show();
    score->NoteArray.write(5, 5, 60);
    const std::string before = keptText(*score);
    QTest::mousePress(&widget, Qt::LeftButton, {}, QPoint(5, 5));
    EXPECT_EQ(state.text, before);
}
