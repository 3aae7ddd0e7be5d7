// The free part of the strip in the whole program: steps, sentences, and what a narrow window
// hides.
#include "WholeProgram.h"
#include "windows/strip/StateLine.h"
#include "windows/strip/StateWatch.h"
#include "windows/strip/StripTools.h"

#include <gtest/gtest.h>

#include <QAbstractEventDispatcher>
#include <QAccessible>
#include <QMouseEvent>

using namespace velorin;

namespace {

constexpr int cell = 12;

class StripTest : public testing::Test {
protected:
    void resize(int width) {
        form.resize(width, 600);
        form.layout.Form_Resize();
    }
    static void send(QWidget& box, QEvent::Type type, int column, int line,
                     Qt::MouseButton button) {
        const QPointF place(column * cell + 6, line * cell + 6);
        QMouseEvent event(type, place, box.mapToGlobal(place), button,
                          type == QEvent::MouseButtonPress ? button : Qt::NoButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&box, &event);
    }
    static void click(QWidget& box, int column, int line, Qt::MouseButton button = Qt::LeftButton) {
        send(box, QEvent::MouseButtonPress, column, line, button);
        send(box, QEvent::MouseButtonRelease, column, line, button);
    }
    void draw(int column) {
        program.studio().score.NoteArray.write(0, column, 60);
        program.history.changeFinished();
    }
    [[nodiscard]] QToolButton& button(StripCommand command) const {
        return form.strip->button(command);
    }
    [[nodiscard]] QString sentence() const { return form.strip->line->state().sentence; }

    WholeProgram whole;
    Program& program = whole.program;
    Form1& form = program.form1();
};

} // namespace

TEST_F(StripTest, ButtonsUndoAndRedo) {
    EXPECT_FALSE(button(StripCommand::undo).isEnabled());
    draw(4);
    EXPECT_EQ(button(StripCommand::undo).toolTip(),
              "Undo: note drawn on channel 1, column 5 (Ctrl+Z)");
    button(StripCommand::undo).click();
    EXPECT_EQ(program.studio().score.NoteArray.at(0, 4), -1);
    EXPECT_FALSE(button(StripCommand::undo).isEnabled());
    button(StripCommand::redo).click();
    EXPECT_EQ(program.studio().score.NoteArray.at(0, 4), 60);
}

TEST_F(StripTest, ButtonsOpenTheirWindows) {
    button(StripCommand::history).click();
    EXPECT_NE(program.window("History", false), nullptr);
    button(StripCommand::exporting).click();
    EXPECT_NE(program.window("Export", false), nullptr);
}

TEST_F(StripTest, SongThatPlaysLocksTheSteps) {
    draw(4);
    program.studio().run.IsPlaying = flagSet;
    form.desk.enableTableaux(false);
    EXPECT_FALSE(button(StripCommand::undo).isEnabled());
    program.studio().run.IsPlaying = flagClear;
    form.desk.enableTableaux(true);
    EXPECT_TRUE(button(StripCommand::undo).isEnabled());
}

// A pause releases the tableaux before it clears `IsPlaying`.
TEST_F(StripTest, PauseReleasesTheSteps) {
    draw(4);
    program.studio().run.IsPlaying = flagSet;
    QAbstractEventDispatcher::instance()->aboutToBlock();
    form.desk.enableTableaux(true);
    EXPECT_FALSE(button(StripCommand::undo).isEnabled());
    program.studio().run.IsPlaying = flagClear;
    QAbstractEventDispatcher::instance()->aboutToBlock();
    EXPECT_TRUE(button(StripCommand::undo).isEnabled());
}

TEST_F(StripTest, FirstClickAfterADrumSaysWhatItDid) {
    click(*form.area->Beatbox, 20, 0);
    EXPECT_TRUE(sentence().startsWith("Percussion Channel 1 is chosen now"))
        << sentence().toStdString();
    click(*form.area->MusicBox, 8, 10);
    EXPECT_EQ(sentence(), "Channel 1 is chosen now, with Nylon Guitar. Click again to draw notes.");
    click(*form.area->MusicBox, 8, 10);
    EXPECT_EQ(sentence(), "") << "this click has drawn";
}

TEST_F(StripTest, ClickInSelectModeSaysHowToSelectAndADragDoesNot) {
    form.musicMouse.FunctionBut_Click(2);
    click(*form.area->MusicBox, 8, 10);
    EXPECT_TRUE(sentence().startsWith("Select mode:"));
    send(*form.area->MusicBox, QEvent::MouseButtonPress, 8, 10, Qt::LeftButton);
    send(*form.area->MusicBox, QEvent::MouseButtonRelease, 12, 10, Qt::LeftButton);
    EXPECT_EQ(sentence(), "");
}

TEST_F(StripTest, LaneOfAChannelWithoutANoteSaysSo) {
    const QPointF place(16 * cell + 6, 10); // lane 2
    QMouseEvent press(QEvent::MouseButtonPress, place, place, Qt::LeftButton, Qt::LeftButton,
                      Qt::NoModifier);
    QCoreApplication::sendEvent(form.area->Pic1, &press);
    EXPECT_EQ(sentence(),
              "No note of Channel 2 begins in column 17, so this mark changes nothing yet.");
}

TEST_F(StripTest, ClosingTheSetupToolbarSaysWhatIsLost) {
    program.windows.show(Tool::setup);
    program.windows.unload(Tool::setup);
    EXPECT_EQ(sentence(), "") << "nothing was set";
    program.studio().setup.setTrackHide(3, true);
    program.windows.unload(Tool::setup);
    EXPECT_EQ(sentence(),
              "The Setup Toolbar is closed: volumes, hidden channels and chords are reset.");
}

TEST_F(StripTest, NarrowWindowHasAnArrowAndKeepsTheFourteenButtons) {
    resize(1280);
    EXPECT_TRUE(form.strip->line->isVisible());
    EXPECT_TRUE(form.Picture2->isVisible());
    resize(700);
    EXPECT_FALSE(form.strip->line->isVisible());
    EXPECT_FALSE(form.Picture2->isVisible());
    EXPECT_TRUE(form.strip->arrow->isVisible());
    EXPECT_EQ(form.toolbMenu->firstCut(), 15) << "none";
    resize(636);
    EXPECT_EQ(form.toolbMenu->firstCut(), 15);
    resize(635);
    EXPECT_EQ(form.toolbMenu->firstCut(), 14) << "Exit";
    resize(597);
    EXPECT_EQ(form.toolbMenu->firstCut(), 13) << "Help";
    EXPECT_TRUE(form.strip->arrowInTitle->isVisible());
    for (int i = 1; i <= 14; ++i)
        EXPECT_TRUE(form.toolbMenu->Cmd2[i]->isVisible()) << i;
}

TEST_F(StripTest, ReaderFindsAFrameAStatusAndTheLanes) {
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&form)->role(), QAccessible::Window);
    form.state->say("A sentence.");
    QAccessibleInterface* const line = QAccessible::queryAccessibleInterface(form.strip->line);
    EXPECT_EQ(line->role(), QAccessible::StatusBar);
    EXPECT_EQ(line->text(QAccessible::Name), "A sentence.");
    EXPECT_TRUE(QAccessible::queryAccessibleInterface(form.area->Pic1)->state().focusable);
}
