// The greeting goes with the first press, a key of the toolbars and a changed score, and is in no
// picture.
#include "windows/sheet/Greeting.h"

#include "support/TableauStage.h"
#include "windows/sheet/GreetingWidgets.h"
#include "windows/sheet/SheetContent.h"

#include <gtest/gtest.h>

#include <QLineEdit>
#include <QShortcut>
#include <QTest>

#include <memory>

using namespace velorin;
using scripted::TableauStage;

namespace {

/// The work area in a window of 1280 by 800, greeted.
struct Greeted : testing::Test {
    Greeted() {
        window.resize(1280, 800);
        stage.area.setParent(&window);
        stage.resize(1280, 800);
        window.show();
        greeting = std::make_unique<Greeting>(window, stage.area, stage.studio.score);
        greeting->onOpenSong = [this] { ++opened; };
    }
    ~Greeted() override {
        greeting.reset();
        stage.area.setParent(nullptr);
    }

    OpenSongButton& button() { return *stage.area.findChild<OpenSongButton*>(); }
    [[nodiscard]] bool isPainted() const {
        const auto* const overlay = stage.area.findChild<GreetingOverlay*>();
        return overlay != nullptr && overlay->isVisible();
    }

    QWidget window;
    TableauStage stage;
    std::unique_ptr<Greeting> greeting;
    int opened = 0;
};

} // namespace

TEST_F(Greeted, IsAboveTheTableauxAndInNoPicture) {
    EXPECT_TRUE(isPainted());
    const QImage plain = stage.area.MusicBox->picture.image();
    // Inside the first letter of "Click here": column 34 and line 22 at (408, 264).
    const QImage shown = stage.area.grab().toImage();
    int inked = 0;
    for (int x = 500; x < 770; ++x)
        inked += QColor(shown.pixel(x, 292)).lightness() < 140 ? 1 : 0;
    EXPECT_GT(inked, 20);
    for (int x = 0; x < plain.width(); ++x)
        ASSERT_GE(qRed(plain.pixel(x, 267)) + qGreen(plain.pixel(x, 267)), 68 + 204) << x;
    EXPECT_EQ(window.accessibleDescription(),
              "Click here to place a note. Hold and pull to the right: it lasts longer. Click the "
              "green strip for a beat. Mark chords here.");
}

TEST_F(Greeted, GoesWithTheFirstPressWhichStillDraws) {
    int presses = 0;
    stage.area.MusicBox->onMouseDown = [&](int, int, double, double) {
        EXPECT_FALSE(greeting->isShown());
        ++presses;
    };
    // On the words: they take no mouse.
    QTest::mousePress(window.childAt(stage.area.pos() + QPoint(560, 290)), Qt::LeftButton);
    EXPECT_EQ(presses, 1);
    EXPECT_FALSE(isPainted());
    EXPECT_TRUE(window.accessibleDescription().isEmpty());
}

TEST_F(Greeted, StaysWhileThePointerMovesAndForPressesInOtherWindows) {
    QTest::mouseMove(stage.area.MusicBox, QPoint(300, 300));
    QWidget other;
    other.show();
    QTest::mouseClick(&other, Qt::LeftButton);
    EXPECT_TRUE(greeting->isShown());
}

TEST_F(Greeted, GoesWithAKeyOfTheToolbarsAndNotWithAnother) {
    QTest::keyClick(&window, Qt::Key_F1);
    QTest::keyClick(&window, Qt::Key_Shift);
    EXPECT_TRUE(greeting->isShown());
    QTest::keyClick(&window, Qt::Key_V, Qt::ControlModifier);
    EXPECT_FALSE(greeting->isShown());
}

TEST_F(Greeted, TypingInAnotherWindowIsNoCommand) {
    QLineEdit box;
    box.show();
    QTest::keyClick(&box, Qt::Key_P);
    EXPECT_TRUE(greeting->isShown());
    QTest::keyClick(&box, Qt::Key_N, Qt::ControlModifier);
    EXPECT_FALSE(greeting->isShown());
}

TEST_F(Greeted, GoesWhenTheScoreHasChanged) {
    greeting->sheetDrawn();
    EXPECT_TRUE(greeting->isShown());
    stage.note(0, 3, 60, 2);
    greeting->sheetDrawn();
    EXPECT_FALSE(greeting->isShown());
}

TEST_F(Greeted, TheButtonOpensASongByMouseAndByKey) {
    QTest::mouseClick(&button(), Qt::LeftButton);
    EXPECT_EQ(opened, 1);
    EXPECT_FALSE(greeting->isShown());
    greeting = std::make_unique<Greeting>(window, stage.area, stage.studio.score);
    greeting->onOpenSong = [this] { ++opened; };
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    button().setFocus(Qt::TabFocusReason);
    // In the main window Space is also a key of the toolbar.
    int played = 0;
    const QShortcut play(QKeySequence(Qt::Key_Space), &window, [&played] { ++played; });
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    QTest::keyClick(&button(), Qt::Key_Space);
    EXPECT_EQ(opened, 2);
    EXPECT_EQ(played, 0);
}

TEST_F(Greeted, FollowsTheTableaux) {
    const QRect before = button().geometry();
    stage.resize(1100, 700);
    EXPECT_NE(button().geometry(), before);
    stage.resize(900, 420);
    EXPECT_FALSE(button().isVisible());
    stage.area.Beatbox->setVisible(false);
    EXPECT_TRUE(isPainted());
}

TEST(EmptySheet, HasNoNoteNoMarkAndNoName) {
    Score score;
    score.ClearNoteArrays();
    score.ClearPolies();
    EXPECT_TRUE(isEmptySheet(score));
    score.NoteArray.write(12, 999, 60);
    EXPECT_FALSE(isEmptySheet(score));
    score.NoteArray.write(12, 999, -1);
    score.PolyArray.write(1, 5, 1);
    EXPECT_FALSE(isEmptySheet(score));
    score.PolyArray.write(1, 5, 0);
    score.CurrentFileName = "empty.sng";
    EXPECT_FALSE(isEmptySheet(score));
}
