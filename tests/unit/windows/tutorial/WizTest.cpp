// The Tutorial Wizard's window: its load and its end, its labels under the mouse and the keyboard.
#include "windows/tutorial/Wiz.h"

#include "../../tutorial/RecordingWizardDesk.h"
#include "support/ToolStage.h"
#include "windows/help/frminfo.h"
#include "windows/tutorial/StepLabel.h"
#include "windows/tutorial/TutorialWizard.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPointer>

#include <filesystem>
#include <fstream>

namespace velorin {
namespace {

using Lines = std::vector<std::string>;

class WizTest : public testing::Test, protected scripted::ToolStage {
protected:
    frminfo hints{platform, windows.frames};
    RecordingWizardDesk* calls = new RecordingWizardDesk; ///< owned by `wizard`
    TutorialWizard wizard{session, std::unique_ptr<WizardDesk>(calls), windows, hints};

    /// The user closes each hint of a lesson at once.
    void SetUp() override {
        host.time.onNothingPlanned = [this] {
            const bool open = hints.isLessonOpen();
            if (open)
                hints.imgTitleClose_Click();
            return open;
        };
    }

    Wiz& form() { return wizard.form(); }
    StepLabel& label(const char* name) { return *form().findChild<StepLabel*>(name); }
    [[nodiscard]] std::string saved(const char* key) {
        return host.settings.find("Settings", key).value_or("none");
    }
    [[nodiscard]] std::filesystem::path sample(int number) const {
        return host.folder.path() / "media" / (std::to_string(number) + ".sng");
    }
    /// Every step that clears the score removes the note.
    void drawNote() { studio.score.NoteArray.write(0, 0, 60); }
    [[nodiscard]] bool hasNote() const { return studio.score.NoteArray.at(0, 0) == 60; }
    static bool isHot(const StepLabel& label) { return label.property("hot").toBool(); }
    static void sendMouse(QWidget& to, QEvent::Type type, Qt::MouseButton button) {
        QMouseEvent event(type, QPointF(5, 5), to.mapToGlobal(QPointF(5, 5)), button,
                          type == QEvent::MouseButtonPress ? button : Qt::NoButton, {});
        QCoreApplication::sendEvent(&to, &event);
    }
    static void click(QWidget& to) {
        sendMouse(to, QEvent::MouseButtonPress, Qt::LeftButton);
        sendMouse(to, QEvent::MouseButtonRelease, Qt::LeftButton);
    }
    static void press(QWidget& to, int key) {
        QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier);
        QCoreApplication::sendEvent(&to, &event);
    }
};

TEST_F(WizTest, TheFirstPlaceIsTheMiddleOfTheScreen) {
    EXPECT_EQ(form().place.Left(), (1024 - 668) / 2 * 15);
    EXPECT_EQ(form().place.Top(), (768 - 470) / 2 * 15);
}

TEST_F(WizTest, TheLoadMakesWayForFreshSamplesOfTheFirstLesson) {
    std::filesystem::create_directory(host.folder.path() / "media");
    for (const int number : {101, 105, 201})
        std::ofstream(sample(number)) << "old";
    form();
    EXPECT_EQ(std::filesystem::file_size(sample(101)), 364U);
    EXPECT_EQ(std::filesystem::file_size(sample(105)), 1286U);
    EXPECT_EQ(std::filesystem::file_size(sample(201)), 3U); // of another lesson: it stays
    EXPECT_EQ(std::filesystem::file_size(sample(102)), 624U);
    EXPECT_EQ(host.time.now(), scripted::nanosecondsPerSecond * 2 / 5); // 0.2 s for each deleted
    EXPECT_EQ(studio.run.WizOpen, -1);
    EXPECT_TRUE(isTopMost(form()));
}

TEST_F(WizTest, ShowTipsIsSavedAtOnceAndReadAgain) {
    EXPECT_TRUE(form().Check1->isChecked());
    form().Check1->click();
    EXPECT_EQ(saved("Show tips"), "0");
    wizard.unload();
    EXPECT_FALSE(form().Check1->isChecked());
}

TEST_F(WizTest, TheEndSavesThePlaceAndClearsTheOpenFlag) {
    const QPointer<Wiz> window = &form();
    window->place.moveTo(1501.0F, 302.0F);
    wizard.unload();
    EXPECT_EQ(saved("Wiz left"), "1501");
    EXPECT_EQ(saved("Wiz top"), "302");
    EXPECT_EQ(studio.run.WizOpen, 0);
    EXPECT_EQ(wizard.window(), nullptr);
    ASSERT_FALSE(window.isNull());
    EXPECT_FALSE(window->isVisible());
    QCoreApplication::processEvents();
    EXPECT_TRUE(window.isNull());
}

TEST_F(WizTest, TheTabsKeepTheirTrailingBlanks) {
    Lines tabs;
    for (int tab = 0; tab < form().SSTab1->count(); ++tab)
        tabs.push_back(form().SSTab1->tabText(tab).toStdString());
    EXPECT_EQ(tabs, (Lines{"Composition", "Polyphonics", "Percussion  ", "Editing     ",
                           "Recording     ", "Midi       ", "Setup    "}));
}

TEST_F(WizTest, TheHeadingOfTheLessonMidiTakesALineOfItsOwn) {
    EXPECT_EQ(label("L1M(1)").y(), 50 + 24);
    EXPECT_EQ(label("L1M(2)").y(), 50 + 3 * 24);
    EXPECT_EQ(label("L1M(4)").y(), 50 + 5 * 24);
}

TEST_F(WizTest, SubStepsAreIndented) {
    EXPECT_EQ(label("L1R(3)").x(), 32);
    EXPECT_EQ(label("L1R(5)").x(), 32); // "(Optional) ..."
    EXPECT_EQ(label("L1R(6)").x(), 12);
}

TEST_F(WizTest, AClickOnALabelPerformsItsStep) {
    form().Check1->setChecked(false);
    drawNote();
    click(label("L1(0)"));
    EXPECT_FALSE(hasNote());
}

TEST_F(WizTest, TheRightButtonPerformsNothing) {
    form().Check1->setChecked(false);
    drawNote();
    sendMouse(label("L1(0)"), QEvent::MouseButtonPress, Qt::RightButton);
    sendMouse(label("L1(0)"), QEvent::MouseButtonRelease, Qt::RightButton);
    EXPECT_TRUE(hasNote());
    EXPECT_TRUE(calls->log.empty());
}

TEST_F(WizTest, ADoubleClickIsOneClickAndTwoClicksAreTwo) {
    form().Check1->setChecked(false);
    drawNote();
    click(label("L1(0)"));
    EXPECT_FALSE(hasNote());
    drawNote();
    sendMouse(label("L1(0)"), QEvent::MouseButtonDblClick, Qt::LeftButton);
    sendMouse(label("L1(0)"), QEvent::MouseButtonRelease, Qt::LeftButton);
    EXPECT_TRUE(hasNote());
    click(label("L1(0)"));
    EXPECT_FALSE(hasNote());
}

TEST_F(WizTest, EnterAndSpacePerformTheStepThatHasTheKeyboard) {
    form().Check1->setChecked(false);
    for (const int key : {Qt::Key_Return, Qt::Key_Space}) {
        drawNote();
        press(label("L2(0)"), key);
        EXPECT_FALSE(hasNote()) << key;
    }
}

TEST_F(WizTest, NoStepIsHighlightedBeforeTheMouseOrTheKeyboardIsOnOne) {
    const auto steps = form().findChildren<StepLabel*>();
    EXPECT_GT(steps.size(), 50);
    for (const StepLabel* step : steps)
        EXPECT_EQ(step->property("hot"), QVariant(false)) << step->objectName().toStdString();
}

TEST_F(WizTest, OnlyTheLabelUnderTheMouseIsHighlighted) {
    sendMouse(label("L1(1)"), QEvent::MouseMove, Qt::NoButton);
    EXPECT_TRUE(isHot(label("L1(1)")));
    sendMouse(label("L1(2)"), QEvent::MouseMove, Qt::NoButton);
    EXPECT_FALSE(isHot(label("L1(1)")));
    EXPECT_TRUE(isHot(label("L1(2)")));
    sendMouse(*form().findChild<QWidget*>("Ltit2"), QEvent::MouseMove, Qt::NoButton);
    EXPECT_TRUE(isHot(label("L1(2)"))); // the title of another lesson
    sendMouse(*form().findChild<QWidget*>("Picbac1"), QEvent::MouseMove, Qt::NoButton);
    EXPECT_FALSE(isHot(label("L1(2)")));
}

TEST_F(WizTest, ScreenReadersReadThatAStepIsDone) {
    form().Check1->setChecked(false);
    StepLabel& step = label("L1(2)");
    click(step);
    EXPECT_TRUE(step.isDone());
    EXPECT_EQ(step.accessibleName(), step.text() + " done");
    EXPECT_FALSE(label("L1(3)").isDone());
    EXPECT_EQ(label("L1(3)").accessibleName(), "");
}

TEST_F(WizTest, TicksStayWhenTheWindowIsClosedUntilTheLessonBeginsAgain) {
    form().Check1->setChecked(false);
    click(label("L1(2)"));
    click(label("L1S(1)"));
    wizard.unload();
    QCoreApplication::processEvents();
    EXPECT_TRUE(label("L1(2)").isDone());
    click(label("L1(0)"));
    EXPECT_TRUE(label("L1(0)").isDone());
    EXPECT_FALSE(label("L1(2)").isDone());
    EXPECT_TRUE(label("L1S(1)").isDone()); // of another lesson
}

TEST_F(WizTest, TheWindowMayBeClosedWhileAStepRuns) {
    form().Check1->setChecked(false);
    calls->onMouseDown = [this] { wizard.unload(); };
    calls->log.clear();
    click(label("L1E(2)"));
    EXPECT_EQ(wizard.window(), nullptr);
    EXPECT_EQ(calls->log.back(), "hourglass 0");
    EXPECT_EQ(calls->log.size(), 8U);
}

TEST_F(WizTest, AStepCalledBeforeTheWindowIsThereLoadsIt) {
    wizard.tutorial.L1S_Click(0);
    EXPECT_NE(wizard.window(), nullptr);
    EXPECT_FALSE(wizard.window()->isVisible());
    EXPECT_TRUE(std::filesystem::exists(sample(101)));
    EXPECT_EQ(calls->log, Lines{"Form3.SSTab1 2"});
}

} // namespace
} // namespace velorin
