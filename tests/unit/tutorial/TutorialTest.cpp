// The step procedure: the hint first, then the acts in their order, whatever happens meanwhile.
#include "tutorial/Tutorial.h"

#include "RecordingWizardDesk.h"
#include "score/PlainSetup.h"
#include "score/Studio.h"
#include "support/ScriptedPlatform.h"
#include "tutorial/Lesson.h"
#include "tutorial/WizardView.h"

#include <gtest/gtest.h>

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
    PlainSetup setup;
    Studio studio{host.platform, setup};
    RecordingWizardDesk desk;
    PlainView view;
    Tutorial tutorial{studio, desk, view};

    [[nodiscard]] std::string sample(const std::string& name) const {
        return host.platform.programFolder + "/media/" + name;
    }
};

TEST_F(TutorialTest, AStepIsExplainedBeforeItIsPerformed) {
    view.onHint = [this] { EXPECT_TRUE(desk.log.empty()); };
    tutorial.L1_Click(2);
    ASSERT_EQ(view.hints.size(), 1U);
    EXPECT_EQ(view.hints[0],
              "Select channels using the Setup toolbar (Button #9 on the main toolbar), which is "
              "normally always open.\r\n"
              "Click Channel 2 in the Instrument group, to open it.\r\n"
              "Close this window to continue. (Double-click on it or click the X button).This step "
              "will then be performed automatically.");
    EXPECT_EQ(desk.log, Lines{"TrackSel(1) 1"});
}

TEST_F(TutorialTest, TheHintStandsByTheWizardBelowTheStep) {
    tutorial.L1_Click(2);
    EXPECT_EQ(view.left, 2670.0F - 500.0F);
    EXPECT_EQ(view.top, 2235.0F + 750.0F + 720.0F + 1500.0F);
}

TEST_F(TutorialTest, AStepThatTheUserDeclinesIsNotPerformed) {
    view.goesOn = false;
    tutorial.L1_Click(2);
    EXPECT_EQ(view.hints.size(), 1U);
    EXPECT_TRUE(desk.log.empty());
}

TEST_F(TutorialTest, WithoutTipsAStepIsPerformedAtOnce) {
    view.showsTips = false;
    tutorial.L1_Click(0);
    EXPECT_TRUE(view.hints.empty());
    EXPECT_EQ(desk.log, Lines{"Command4_Click"});
    EXPECT_EQ(host.time.now(), 0);
}

TEST_F(TutorialTest, AStepThatTheLessonDoesNotHaveDoesNothing) {
    tutorial.L1_Click(8);
    tutorial.L1_Click(-1);
    EXPECT_TRUE(view.hints.empty());
    EXPECT_TRUE(desk.log.empty());
}

TEST_F(TutorialTest, ASampleThatIsMissingIsWrittenFirstAndDeletedOnceLoaded) {
    view.showsTips = false;
    tutorial.L1_Click(1);
    EXPECT_EQ(desk.log, (Lines{"ExtractSamples", "OpenFile " + sample("101.sng"),
                               "p_DestroyFile " + sample("101.sng")}));
}

TEST_F(TutorialTest, ASampleThatIsThereIsLoadedAsItIs) {
    view.showsTips = false;
    desk.files.insert(sample("101.sng"));
    tutorial.L1_Click(1);
    EXPECT_EQ(desk.log,
              (Lines{"OpenFile " + sample("101.sng"), "p_DestroyFile " + sample("101.sng")}));
}

TEST_F(TutorialTest, TheMidFileStaysSoThatItCanBePlayed) {
    view.showsTips = false;
    tutorial.L1R_Click(7);
    EXPECT_EQ(desk.log, (Lines{"ExtractSamples", "OpenFile " + sample("333.mid"),
                               "Text6 " + sample("333.mid"), "Optsourcemid"}));
}

TEST_F(TutorialTest, APauseLastsHalfASecondAndServesEvents) {
    bool served = false;
    host.time.plan(nanosecondsPerSecond / 5, [&served] { served = true; });
    tutorial.pause1();
    EXPECT_TRUE(served);
    EXPECT_EQ(host.time.now(), nanosecondsPerSecond / 2);
}

TEST_F(TutorialTest, ScriptedClicksHaveTheHourglassAndAPauseBehindEach) {
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

TEST_F(TutorialTest, AStepThatIsClickedDuringAnotherRunsInsideIt) {
    view.showsTips = false;
    host.time.plan(nanosecondsPerSecond / 4, [this] { tutorial.L1_Click(2); });
    tutorial.L1E_Click(7);
    EXPECT_EQ(desk.log, (Lines{"down 1 at 23,115", "move 1 at 23,115", "TrackSel(1) 1",
                               "move 1 at 89,115", "up 1 at 89,115"}));
}

TEST_F(TutorialTest, TheEndOfTheProgramEndsAStepBetweenTwoActs) {
    view.showsTips = false;
    host.time.plan(nanosecondsPerSecond / 4, [this] { host.time.end(); });
    tutorial.L1E_Click(2);
    EXPECT_EQ(desk.log,
              (Lines{"hourglass 1", "down 2 at 89,115", "up 2 at 89,115", "hourglass 0"}));
}

TEST_F(TutorialTest, TheEndOfTheProgramDuringTheHintLeavesTheStepUndone) {
    view.onHint = [this] { host.time.end(); };
    tutorial.L1_Click(0);
    EXPECT_TRUE(desk.log.empty());
}

TEST_F(TutorialTest, ThereAreSevenLessonsOfSixtyOneSteps) {
    std::vector<std::size_t> steps;
    for (const Lesson& lesson : lessons())
        steps.push_back(lesson.steps.size());
    EXPECT_EQ(steps, (std::vector<std::size_t>{8, 8, 11, 12, 10, 5, 7}));
}

TEST_F(TutorialTest, AStepThatOnlyTellsDoesNothingElse) {
    tutorial.L1E_Click(1);
    tutorial.L1R_Click(2);
    tutorial.L1R_Click(6);
    EXPECT_EQ(view.hints.size(), 3U);
    EXPECT_TRUE(desk.log.empty());
}

} // namespace
} // namespace velorin
