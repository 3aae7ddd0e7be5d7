// The pen in the whole program: the history, the lock, the focus, and keys with another meaning.
#include "WholeProgram.h"
#include "windows/pen/Pen.h"
#include "windows/strip/PressWords.h"
#include "windows/strip/StateLine.h"
#include "windows/strip/StateWatch.h"
#include "windows/strip/StripTools.h"
#include "windows/texts/ButtonNumbers.h"
#include "windows/texts/KeyTable.h"

#include <gtest/gtest.h>

#include <QEventLoop>
#include <QKeyEvent>
#include <QScrollBar>
#include <QTimer>

namespace velorin {
namespace {

/// Runs the loop until it has nothing to do and sleeps.
void letPenLoopRest() {
    QEventLoop loop;
    QTimer::singleShot(5, &loop, &QEventLoop::quit);
    loop.exec();
}

struct PenProgramTest : testing::Test {
    PenProgramTest() {
        whole.program.setup.form().hide();
        letPenLoopRest();
        QApplication::setActiveWindow(&form);
        letPenLoopRest();
        tabTo(*form.area->MusicBox);
    }

    void send(QEvent::Type type, int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QWidget* const holder = form.focusWidget() != nullptr ? form.focusWidget() : &form;
        if (type == QEvent::KeyPress) {
            QKeyEvent question(QEvent::ShortcutOverride, key, modifiers);
            question.ignore();
            QApplication::sendEvent(holder, &question);
        }
        QKeyEvent event(type, key, modifiers);
        QApplication::sendEvent(holder, &event);
    }
    void hold(int key) { send(QEvent::KeyPress, key); }
    void lift(int key) { send(QEvent::KeyRelease, key); }
    void key(int code) {
        hold(code);
        lift(code);
    }
    void tabTo(const QWidget& box) {
        for (int i = 0; i < 40 && form.focusWidget() != &box; ++i)
            key(Qt::Key_Tab);
        ASSERT_EQ(form.focusWidget(), &box);
    }
    [[nodiscard]] int note(int row, int column) {
        return whole.program.studio().score.NoteArray.at(row, column);
    }
    [[nodiscard]] const StripState& state() const { return form.strip->line->state(); }
    /// The focus ring is inside the lower edge of the tableau.
    [[nodiscard]] static bool hasRing(PictureBox& box) {
        const QImage seen = box.grab().toImage();
        return seen.pixelColor(seen.width() / 2, seen.height() - 1) == QColor(68, 204, 255);
    }

    WholeProgram whole;
    Form1& form = whole.program.form1();
    Pen& pen = *form.pen;
};

TEST_F(PenProgramTest, DragOfThePenIsOneChangeOfTheHistory) {
    const std::size_t before = whole.program.history.entries().size();
    key(Qt::Key_Right);
    hold(Qt::Key_Return);
    letPenLoopRest();
    hold(Qt::Key_Right);
    letPenLoopRest();
    EXPECT_EQ(whole.program.history.entries().size(), before);
    EXPECT_TRUE(whole.program.isPenHeld());
    form.onHistoryKey(HistoryCommand::undo); // locked
    lift(Qt::Key_Return);
    letPenLoopRest();
    EXPECT_EQ(whole.program.history.entries().size(), before + 1);
    EXPECT_EQ(whole.program.history.undoText(), "Note drawn on channel 1, column 1");
    EXPECT_NE(note(0, 0), emptyCell);
    form.onHistoryKey(HistoryCommand::undo);
    EXPECT_EQ(note(0, 0), emptyCell);
    EXPECT_TRUE(pen.isShown());
}

TEST_F(PenProgramTest, MarksInTheLanesAreOneChangeToo) {
    tabTo(*form.area->Pic1);
    const std::size_t before = whole.program.history.entries().size();
    key(Qt::Key_Right);
    hold(Qt::Key_Return);
    for (int i = 0; i < 3; ++i) {
        key(Qt::Key_Right);
        letPenLoopRest();
    }
    lift(Qt::Key_Return);
    letPenLoopRest();
    EXPECT_EQ(whole.program.history.entries().size(), before + 1);
    for (int column = 0; column < 4; ++column)
        EXPECT_EQ(whole.program.studio().score.PolyArray.at(1, column + 1), 1);
}

TEST_F(PenProgramTest, FocusRingGoesWhileThePenIsShown) {
    PictureBox& box = *form.area->MusicBox;
    EXPECT_TRUE(hasRing(box));
    key(Qt::Key_Right);
    EXPECT_FALSE(hasRing(box));
    key(Qt::Key_Escape);
    EXPECT_FALSE(pen.isShown());
    EXPECT_TRUE(hasRing(box));
}

TEST_F(PenProgramTest, LineOfStateNamesItsColumn) {
    key(Qt::Key_Right);
    key(Qt::Key_End);
    letPenLoopRest();
    EXPECT_EQ(form.state->isBehind() ? pen.place().column : state().column, pen.place().column);
    key(Qt::Key_Escape);
    EXPECT_EQ(form.focusWidget(), form.area->MusicBox);
}

TEST_F(PenProgramTest, FirstPressInTheStripOnlyChoosesTheDrums) {
    tabTo(*form.area->Beatbox);
    EXPECT_TRUE(whole.program.windows.focus.isWaiting(form.area->Beatbox));
    key(Qt::Key_Right);
    EXPECT_TRUE(pen.isShown());
    EXPECT_EQ(whole.program.studio().score.CurrentRow, 0);
    key(Qt::Key_Return);
    EXPECT_EQ(whole.program.studio().score.CurrentRow, 8);
    EXPECT_FALSE(whole.program.windows.focus.isWaiting(form.area->Beatbox));
    EXPECT_EQ(note(8, 0), emptyCell);
}

TEST_F(PenProgramTest, WithoutThePenEnterChoosesTheDrumsAsBefore) {
    tabTo(*form.area->Beatbox);
    key(Qt::Key_Return);
    EXPECT_FALSE(pen.isShown());
    EXPECT_TRUE(form.percussion.isRowChosen());
}

TEST_F(PenProgramTest, LockedTableauSaysSoAndThePenIsBackAfterTheSong) {
    key(Qt::Key_Right);
    key(Qt::Key_Return);
    key(Qt::Key_Down);
    const Place before = pen.place();
    bool wasRefused = false;
    whole.host.time.plan(100'000'000, [&] {
        EXPECT_TRUE(whole.program.studio().run.IsPlaying.isSet());
        EXPECT_FALSE(pen.isShown());
        key(Qt::Key_Return);
        wasRefused = state().sentence == QString::fromStdString(lockedSentence());
        form.Cmd2_Click(mainButton::stop);
    });
    form.Cmd2_Click(mainButton::play);
    EXPECT_TRUE(wasRefused);
    EXPECT_EQ(note(0, 1), emptyCell);
    EXPECT_TRUE(pen.isShown());
    EXPECT_EQ(pen.place(), before);
}

// The tableau is locked when the pen lets go, as for a mouse: the note is not written.
TEST_F(PenProgramTest, SongThatBeginsEndsWhatItHolds) {
    key(Qt::Key_Right);
    hold(Qt::Key_Return);
    whole.host.time.plan(100'000'000, [&] { form.Cmd2_Click(mainButton::stop); });
    form.Cmd2_Click(mainButton::play);
    EXPECT_FALSE(pen.isHeld());
    lift(Qt::Key_Return);
    EXPECT_EQ(note(0, 0), emptyCell);
    ASSERT_TRUE(pen.isShown());
    key(Qt::Key_Return);
    EXPECT_NE(note(0, 0), emptyCell);
    EXPECT_TRUE(whole.program.history.canStep());
}

TEST_F(PenProgramTest, ClearedScoreLeavesItWhereItIs) {
    key(Qt::Key_Right);
    key(Qt::Key_End);
    const Place before = pen.place();
    form.Cmd2_Click(mainButton::clear);
    EXPECT_TRUE(pen.isShown());
    EXPECT_EQ(pen.place(), before);
}

TEST_F(PenProgramTest, MenuOfARightPressEndsThePress) {
    form.musicMouse.FunctionBut_Click(editMode::select);
    key(Qt::Key_Right);
    key(Qt::Key_Delete);
    EXPECT_EQ(whole.host.menus.log.size(), 1U);
    EXPECT_FALSE(pen.isHeld());
    EXPECT_TRUE(pen.isShown());
}

} // namespace
} // namespace velorin
