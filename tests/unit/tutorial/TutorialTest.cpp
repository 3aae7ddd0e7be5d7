// A step of the tutorial: first the hint, then the acts in order, whatever other handlers do.
#include "tutorial/Tutorial.h"

#include "RecordingWizardDesk.h"
#include "session/Session.h"
#include "support/PlainSetupView.h"
#include "support/ScriptedPlatform.h"
#include "tutorial/Lesson.h"
#include "tutorial/WizardView.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace velorin {
namespace {

using Lines = std::vector<std::string>;
using scripted::nanosecondsPerSecond;

struct PlainView final : WizardView {
    bool showsTips = true;
    std::vector<std::string> hints;
    float left = 0.0F;
    float top = 0.0F;
    std::function<void()> onHint;

    bool Check1() override { return showsTips; }
    float Left() override { return 2670.0F; }
    float Top() override { return 2235.0F; }
    float labelTop(int, int step) override { return 750.0F + 360.0F * static_cast<float>(step); }
    std::vector<std::pair<int, int>> done;
    void stepDone(int lesson, int step) override { done.emplace_back(lesson, step); }
    bool showLesson(const std::string& text, float leftGiven, float topGiven) override {
        hints.push_back(text);
        left = leftGiven;
        top = topGiven;
        if (onHint)
            onHint();
        return goesOn;
    }

    bool goesOn = true;
};

class TutorialTest : public testing::Test {
protected:
    scripted::ScriptedPlatform host;
    Session session{host.platform};
    RecordingWizardDesk desk;
    PlainView view;
    Tutorial tutorial{session, desk, view};

    void SetUp() override { std::filesystem::create_directory(host.folder.path() / "media"); }

    /// The name as the program makes it.
    [[nodiscard]] std::string sample(const std::string& name) const {
        return host.platform.programFolder + "/media/" + name;
    }
    [[nodiscard]] std::filesystem::path onDisk(const std::string& name) const {
        return host.folder.path() / "media" / name;
    }
    void write(const std::string& name, const std::string& text) const {
        std::ofstream(onDisk(name), std::ios::binary) << text;
    }
    [[nodiscard]] bool isOnDisk(const std::string& name) const {
        return std::filesystem::exists(onDisk(name));
    }
    [[nodiscard]] std::size_t filesOnDisk() const {
        const std::filesystem::directory_iterator files(host.folder.path() / "media");
        return static_cast<std::size_t>(std::distance(begin(files), end(files)));
    }

    /// The cells of the first row, columns [0, 5).
    [[nodiscard]] std::vector<int> firstCells() const {
        std::vector<int> cells;
        for (int column = 0; column < 5; ++column)
            cells.push_back(session.studio.score.NoteArray.at(0, column));
        return cells;
    }
    /// A note in a place that no sample writes to. Every clear of the score removes it.
    void drawNote() { session.studio.score.NoteArray.write(5, 900, 60); }
    [[nodiscard]] bool hasNote() const { return session.studio.score.NoteArray.at(5, 900) == 60; }

    /// Channel 2 (row 1) is selected by the third step of the lesson Composition.
    [[nodiscard]] bool isChannel2Selected() { return session.studio.setup.TrackSel(1); }
};

TEST_F(TutorialTest, AStepIsExplainedBeforeItIsPerformed) {
    view.onHint = [this] { EXPECT_FALSE(isChannel2Selected()); };
    tutorial.L1_Click(2);
    ASSERT_EQ(view.hints.size(), 1U);
    EXPECT_EQ(view.hints[0],
              "Select channels using the Setup toolbar (Button #9 on the main toolbar), which is "
              "normally always open.\r\n"
              "Click Channel 2 in the Instrument group, to open it.\r\n"
              "Close this window to continue. (Double-click on it or click the X button).This step "
              "will then be performed automatically.");
    EXPECT_TRUE(isChannel2Selected());
    EXPECT_FALSE(session.studio.setup.TrackSel(0));
    EXPECT_TRUE(desk.log.empty());
}

TEST_F(TutorialTest, TheHintIsNextToTheWizardBelowTheStep) {
    tutorial.L1_Click(2);
    EXPECT_EQ(view.left, 2670.0F - 500.0F);
    EXPECT_EQ(view.top, 2235.0F + 750.0F + 720.0F + 1500.0F);
}

TEST_F(TutorialTest, AStepThatTheUserDeclinesIsNotPerformed) {
    view.goesOn = false;
    tutorial.L1_Click(2);
    EXPECT_EQ(view.hints.size(), 1U);
    EXPECT_FALSE(isChannel2Selected());
    EXPECT_TRUE(desk.log.empty());
}

TEST_F(TutorialTest, WithoutTipsAStepIsPerformedAtOnce) {
    view.showsTips = false;
    session.studio.score.CurrentFileName = "mine.sng";
    session.studio.score.CurrentRow = 3;
    drawNote();
    tutorial.L1_Click(0);
    EXPECT_TRUE(view.hints.empty());
    EXPECT_FALSE(hasNote());
    EXPECT_EQ(session.studio.score.CurrentFileName, "");
    EXPECT_EQ(session.studio.score.CurrentRow, 0);
    EXPECT_TRUE(desk.log.empty());
    EXPECT_EQ(host.time.now(), 0);
}

TEST_F(TutorialTest, AStepIsDoneAtItsEndAndNotIfTheUserDeclinesIt) {
    view.onHint = [this] { EXPECT_TRUE(view.done.empty()); };
    tutorial.L1_Click(2);
    EXPECT_EQ(view.done, (std::vector<std::pair<int, int>>{{LessonIndex::composition, 2}}));
    view.onHint = {};
    view.goesOn = false;
    tutorial.L1_Click(3);
    EXPECT_EQ(view.done.size(), 1U);
}

TEST_F(TutorialTest, AStepThatTheProgramEndsInIsNotDone) {
    view.showsTips = false;
    desk.onMouseDown = [this] { host.time.end(); };
    tutorial.L1E_Click(0);
    EXPECT_TRUE(view.done.empty());
}

TEST_F(TutorialTest, ALessonThatBeginsInSelectModePressesTheModeButtonFirst) {
    view.showsTips = false;
    for (int lesson = 0; lesson < lessonCount; ++lesson) {
        session.studio.run.EditMode = editMode::select;
        desk.log.clear();
        tutorial.performStep(lesson, 0);
        ASSERT_FALSE(desk.log.empty()) << lesson;
        EXPECT_EQ(desk.log[0], "toggleEditMode") << lesson;
    }
}

TEST_F(TutorialTest, StepsThatDrawSingleNotesPressTheModeButtonFirst) {
    view.showsTips = false;
    for (const int step : {2, 3, 4}) {
        session.studio.run.EditMode = editMode::select;
        desk.log.clear();
        tutorial.L1E_Click(step);
        EXPECT_EQ(std::count(desk.log.begin(), desk.log.end(), "toggleEditMode"), 1) << step;
        EXPECT_EQ(desk.log[0], "toggleEditMode") << step;
    }
    session.studio.run.EditMode = editMode::select;
    desk.log.clear();
    tutorial.L1E_Click(7); // selects columns
    EXPECT_EQ(std::count(desk.log.begin(), desk.log.end(), "toggleEditMode"), 0);
}

TEST_F(TutorialTest, ActivatingTheEditingModeNeverSwitchesItOff) {
    view.showsTips = false;
    tutorial.L1E_Click(6);
    EXPECT_EQ(desk.log, (Lines{"toggleEditMode"}));
    session.studio.run.EditMode = editMode::select;
    tutorial.L1E_Click(6);
    EXPECT_EQ(desk.log.size(), 3U); // off and on again
}

TEST_F(TutorialTest, AStepThatTheLessonDoesNotHaveDoesNothing) {
    drawNote();
    const auto changes = session.studio.score.NoteArray.changes();
    tutorial.L1_Click(8);
    tutorial.L1_Click(-1);
    EXPECT_TRUE(view.hints.empty());
    EXPECT_TRUE(desk.log.empty());
    EXPECT_EQ(session.studio.score.NoteArray.changes(), changes);
    EXPECT_FALSE(isChannel2Selected());
}

TEST_F(TutorialTest, ASampleThatIsMissingIsWrittenFirstAndDeletedOnceLoaded) {
    view.showsTips = false;
    tutorial.L1_Click(1);
    EXPECT_EQ(firstCells(), (std::vector<int>{60, 60, 60, 60, 58}));
    EXPECT_EQ(session.studio.score.Tempo, 70);
    EXPECT_FALSE(isOnDisk("101.sng"));
    EXPECT_TRUE(isOnDisk("102.sng"));
    EXPECT_EQ(filesOnDisk(), 11U); // of twelve
    EXPECT_EQ(host.time.now(), nanosecondsPerSecond / 5);
    EXPECT_TRUE(desk.log.empty());
}

TEST_F(TutorialTest, AnExistingSampleIsLoadedAsItIs) {
    view.showsTips = false;
    write("101.sng", "65,65,1065");
    tutorial.L1_Click(1);
    EXPECT_EQ(firstCells(), (std::vector<int>{65, 65, 1065, -1, -1}));
    EXPECT_EQ(filesOnDisk(), 0U); // the others are not written, and this one is deleted
    EXPECT_TRUE(desk.log.empty());
}

TEST_F(TutorialTest, TheMidFileStaysSoThatItCanBePlayed) {
    view.showsTips = false;
    drawNote();
    tutorial.L1R_Click(7);
    EXPECT_FALSE(hasNote()); // it is opened like a score
    EXPECT_EQ(filesOnDisk(), 12U);
    EXPECT_EQ(std::filesystem::file_size(onDisk("333.mid")), 597U);
    EXPECT_EQ(desk.log, (Lines{"Text6 " + sample("333.mid"), "Optsourcemid"}));
    EXPECT_EQ(host.time.now(), 0);
}

TEST_F(TutorialTest, APauseLastsHalfASecondAndServesEvents) {
    bool served = false;
    host.time.plan(nanosecondsPerSecond / 5, [&served] { served = true; });
    tutorial.pause1();
    EXPECT_TRUE(served);
    EXPECT_EQ(host.time.now(), nanosecondsPerSecond / 2);
}

TEST_F(TutorialTest, ScriptedClicksHaveTheHourglassAndAPauseAfterEach) {
    view.showsTips = false;
    tutorial.L1E_Click(2);
    EXPECT_EQ(desk.log,
              (Lines{"hourglass 1", "down 2 at 89,115", "up 2 at 89,115", "down 2 at 100,134",
                     "up 2 at 100,134", "down 2 at 115,163", "up 2 at 115,163", "hourglass 0"}));
    EXPECT_EQ(host.time.now(), 3 * nanosecondsPerSecond / 2);
}

TEST_F(TutorialTest, AScriptedDragMovesOnTheSpotAndThenOn) {
    view.showsTips = false;
    tutorial.L1E_Click(7);
    EXPECT_EQ(desk.log, (Lines{"down 1 at 23,115", "move 1 at 23,115", "move 1 at 89,115",
                               "up 1 at 89,115"}));
    EXPECT_EQ(host.time.now(), nanosecondsPerSecond / 2);
}

TEST_F(TutorialTest, TheActsOnTheSessionAndOnTheWindowsRunInOneOrder) {
    view.showsTips = false;
    drawNote();
    desk.onMouseDown = [this] { EXPECT_FALSE(hasNote()); }; // the clear is the first act
    tutorial.L1E_Click(0);
    EXPECT_EQ(desk.log.size(), 20U); // nine presses and releases, inside the hourglass
    EXPECT_EQ(desk.log[1], "down 1 at 8,87");
}

TEST_F(TutorialTest, AStepThatIsClickedDuringAnotherRunsInsideIt) {
    view.showsTips = false;
    host.time.plan(nanosecondsPerSecond / 4, [this] {
        EXPECT_EQ(desk.log, (Lines{"down 1 at 23,115", "move 1 at 23,115"}));
        tutorial.L1_Click(2);
        EXPECT_TRUE(isChannel2Selected());
    });
    tutorial.L1E_Click(7);
    EXPECT_TRUE(isChannel2Selected());
    EXPECT_EQ(desk.log, (Lines{"down 1 at 23,115", "move 1 at 23,115", "move 1 at 89,115",
                               "up 1 at 89,115"}));
}

TEST_F(TutorialTest, TheEndOfTheProgramEndsAStepBetweenTwoActs) {
    view.showsTips = false;
    host.time.plan(nanosecondsPerSecond / 4, [this] { host.time.end(); });
    tutorial.L1E_Click(2);
    EXPECT_EQ(desk.log,
              (Lines{"hourglass 1", "down 2 at 89,115", "up 2 at 89,115", "hourglass 0"}));
}

TEST_F(TutorialTest, TheEndOfTheProgramDuringTheHintLeavesTheStepUndone) {
    drawNote();
    view.onHint = [this] { host.time.end(); };
    tutorial.L1_Click(0);
    EXPECT_TRUE(hasNote());
    EXPECT_TRUE(desk.log.empty());
}

TEST_F(TutorialTest, ThePercussionLessonOpensThePercussionRowsOneAfterTheOther) {
    struct PressedRows final : scripted::PlainSetupView {
        using PlainSetupView::PlainSetupView;
        void TrackSel_MouseDown(int row) override { pressed.push_back(row); }
        std::vector<int> pressed;
    } rows(session.studio.setup);
    view.showsTips = false;
    const std::vector<std::pair<int, int>> rowsOfSteps{{0, 8}, {3, 10}, {6, 11}};
    for (const auto& [step, row] : rowsOfSteps) {
        rows.pressed.clear();
        tutorial.performStep(LessonIndex::percussion, step);
        EXPECT_EQ(rows.pressed, std::vector<int>{row}) << step;
        for (int other = 8; other < scoreRows; ++other)
            EXPECT_EQ(session.studio.setup.TrackSel(other), other == row) << step;
    }
    desk.log.clear();
    for (const int step : {1, 4, 7})
        tutorial.performStep(LessonIndex::percussion, step);
    EXPECT_EQ(desk.log, (Lines{"Combo5 0", "Combo5 25", "Combo5 4"}));
}

TEST_F(TutorialTest, TheSetupLessonMovesTheTempoTo70) {
    struct MovedBar final : scripted::PlainSetupView {
        using PlainSetupView::PlainSetupView;
        void setTempoBar(int value) override { moved.push_back(value); }
        std::vector<int> moved;
    } bar(session.studio.setup);
    view.showsTips = false;
    tutorial.performStep(LessonIndex::setup, 1);
    EXPECT_EQ(bar.moved, std::vector<int>{70});
}

TEST_F(TutorialTest, ThereAreSevenLessonsOfSixtyOneSteps) {
    std::vector<std::size_t> steps;
    for (const Lesson& lesson : lessons())
        steps.push_back(lesson.steps.size());
    EXPECT_EQ(steps, (std::vector<std::size_t>{8, 8, 11, 12, 10, 5, 7}));
}

TEST_F(TutorialTest, AStepThatOnlyExplainsDoesNothingElse) {
    drawNote();
    const auto changes = session.studio.score.NoteArray.changes();
    tutorial.L1E_Click(1);
    tutorial.L1R_Click(2);
    tutorial.L1R_Click(6);
    EXPECT_EQ(view.hints.size(), 3U);
    EXPECT_TRUE(desk.log.empty());
    EXPECT_EQ(session.studio.score.NoteArray.changes(), changes);
    EXPECT_EQ(filesOnDisk(), 0U);
}

} // namespace
} // namespace velorin
