// The buttons of the strip: their tips, when they are disabled, and the menu of the arrow.
#include "windows/strip/StripTools.h"
#include "windows/strip/StateLine.h"
#include "windows/texts/DescribedControls.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QTest>

using namespace velorin;

namespace {

class StripToolsTest : public testing::Test {
protected:
    void SetUp() override {
        window.resize(1280, 400);
        strip.setGeometry(26, 25, 1230, 46);
        describeControls(window, "Form1");
        tools.enable = [](QWidget& button, bool enabled) { button.setEnabled(enabled); };
        tools.onCommand = [this](StripCommand command) { commands.push_back(command); };
        tools.onCutButton = [this](int index) { cutPressed.push_back(index); };
        tools.cutButtons = [this] { return cut; };
        window.show();
    }
    void layOut(int width) { tools.layOut(stripPlan(width), width); }
    [[nodiscard]] QString tip(StripCommand command) const {
        return tools.button(command).toolTip();
    }
    QMenu* open(PictureButton& arrow) {
        arrow.click();
        return arrow.findChild<QMenu*>("stripMenu");
    }
    static QStringList textsOf(const QMenu& menu) {
        QStringList texts;
        for (const QAction* action : menu.actions())
            texts << (action->isSeparator() ? "-" : action->text());
        return texts;
    }

    QWidget window;
    QWidget strip{&window};
    StripTools tools{window, strip};
    std::vector<StripCommand> commands;
    std::vector<int> cutPressed;
    std::vector<OverflowEntry> cut;
};

} // namespace

TEST_F(StripToolsTest, StepsAreInTheTipsAndNothingToTakeBackDisables) {
    EXPECT_FALSE(tools.button(StripCommand::undo).isEnabled());
    tools.showSteps("3 notes drawn on channel 2", "", false);
    EXPECT_EQ(tip(StripCommand::undo), "Undo: 3 notes drawn on channel 2 (Ctrl+Z)");
    EXPECT_EQ(tools.button(StripCommand::undo).accessibleName(),
              "Undo: 3 notes drawn on channel 2");
    EXPECT_TRUE(tools.button(StripCommand::undo).isEnabled());
    EXPECT_EQ(tip(StripCommand::redo), "Redo (Ctrl+Y)");
    EXPECT_FALSE(tools.button(StripCommand::redo).isEnabled());
    tools.showSteps("", "Note drawn on channel 1", false);
    EXPECT_EQ(tip(StripCommand::undo), "Undo (Ctrl+Z)");
    EXPECT_EQ(tip(StripCommand::redo), "Redo: note drawn on channel 1 (Ctrl+Y)");
    EXPECT_TRUE(tools.button(StripCommand::redo).isEnabled());
}

TEST_F(StripToolsTest, SongThatPlaysDisablesBoth) {
    tools.showSteps("Note drawn on channel 1", "Note drawn on channel 1", true);
    EXPECT_FALSE(tools.button(StripCommand::undo).isEnabled());
    EXPECT_FALSE(tools.button(StripCommand::redo).isEnabled());
    EXPECT_EQ(tip(StripCommand::undo), "Undo: not while the song plays (Ctrl+Z)");
}

TEST_F(StripToolsTest, ClickGivesTheCommandOfTheButton) {
    layOut(1280);
    tools.button(StripCommand::history).click();
    tools.button(StripCommand::exporting).click();
    EXPECT_EQ(commands, (std::vector{StripCommand::history, StripCommand::exporting}));
}

TEST_F(StripToolsTest, ControlsAreWhereTheyBelongAtEachWidth) {
    layOut(1280);
    EXPECT_EQ(tools.button(StripCommand::exporting).geometry(), QRect(714, 5, 36, 36));
    EXPECT_EQ(tools.line->geometry(), QRect(769, 0, 1280 - 184 - 769, 46));
    EXPECT_FALSE(tools.arrow->isVisible());
    layOut(900);
    EXPECT_TRUE(tools.button(StripCommand::redo).isVisible());
    EXPECT_FALSE(tools.button(StripCommand::history).isVisible());
    EXPECT_FALSE(tools.line->isVisible());
    EXPECT_EQ(tools.arrow->geometry(), QRect(676, 5, 24, 36));
    layOut(560);
    EXPECT_FALSE(tools.arrow->isVisible());
    EXPECT_TRUE(tools.arrowInTitle->isVisible());
    EXPECT_EQ(tools.arrowInTitle->geometry(), QRect(408, 3, 26, 20));
}

TEST_F(StripToolsTest, MenuHasWhatTheStripDoesNotShowAndTheArrowIsPressedMeanwhile) {
    layOut(900);
    QMenu* const menu = open(*tools.arrow);
    ASSERT_NE(menu, nullptr);
    EXPECT_EQ(textsOf(*menu), QStringList({"History", "Export"}));
    EXPECT_TRUE(tools.arrow->isDown());
    EXPECT_EQ(menu->width(), 224);
    menu->actions().at(1)->trigger();
    menu->close();
    QCoreApplication::processEvents();
    EXPECT_FALSE(tools.arrow->isDown());
    EXPECT_EQ(commands, std::vector{StripCommand::exporting});
}

TEST_F(StripToolsTest, CutButtonsComeFirstInTheMenu) {
    cut = {{"Help", "F1", "main-13-help", true, 13}, {"Exit", "", "main-14-exit", true, 14}};
    tools.showSteps("Note drawn on channel 1", "", false);
    layOut(560);
    QMenu* const menu = open(*tools.arrowInTitle);
    ASSERT_NE(menu, nullptr);
    EXPECT_EQ(textsOf(*menu), QStringList({"Help", "Exit", "-", "Undo: note drawn on channel 1",
                                           "Redo", "History", "Export"}));
    EXPECT_FALSE(menu->actions().at(4)->isEnabled());
    menu->actions().at(0)->trigger();
    menu->close();
    QCoreApplication::processEvents();
    EXPECT_EQ(cutPressed, std::vector{13});
    EXPECT_TRUE(commands.empty());
}
