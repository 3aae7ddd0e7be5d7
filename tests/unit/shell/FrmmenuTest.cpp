// The popup menus: their entries, their check marks, what each entry does.
#include "shell/Frmmenu.h"

#include "RecordingMenuDesk.h"
#include "score/PlainSetup.h"
#include "score/Studio.h"
#include "shell/Menus.h"
#include "support/ScriptedPlatform.h"

#include <gtest/gtest.h>

#include <utility>

namespace velorin {
namespace {

class FrmmenuTest : public testing::Test {
protected:
    scripted::ScriptedPlatform host;
    PlainSetup setup;
    Studio studio{host.platform, setup};
    RecordingMenuDesk desk;
    Frmmenu menu{studio, desk};

    std::vector<std::string> chosen(const std::string& entry) {
        desk.log.clear();
        menu.click(entry);
        return desk.log;
    }
};

using Log = std::vector<std::string>;

TEST_F(FrmmenuTest, TheFirstPopupEditsAndIsOpenedBySecondButtonAndByTheWindow) {
    menu.Command2_Click();
    menu.Form_Click();
    const std::string line = "mnupopup;Clear All;-;Cut selection;Copy selection;Paste (insert);"
                             "Paste (overwrite);-;Open File;Save as;Save;-;Cancel";
    EXPECT_EQ(host.menus.log, (Log{line, line}));
}

TEST_F(FrmmenuTest, TheSecondPopupIsTheProgramAndIsOpenedByTheFirstButton) {
    menu.Command1_Click();
    EXPECT_EQ(host.menus.log,
              (Log{"mnupopup2;Clear All;File;Save;Erase/Menu toggle;-;Rewind;Play;Stop Playing;"
                   "Stop all sound;-;Setup Toolbar;Editing Toolbar;Recording Toolbar;-;Tutorial;"
                   "Help;Exit"}));
}

TEST_F(FrmmenuTest, TheThirdPopupIsTheHelp) {
    menu.Command3_Click();
    EXPECT_EQ(host.menus.log, (Log{"mnupopup3;Help"}));
}

TEST_F(FrmmenuTest, TheFourthPopupMarksWhatIsOpen) {
    studio.run.Form3Open = flagSet;
    studio.view.PolyOpen = flagClear;
    desk.beatboxVisible = true;
    menu.Command4_Click();
    studio.run.Form3Open = flagClear;
    studio.view.PolyOpen = flagSet;
    desk.beatboxVisible = false;
    menu.Command4_Click();
    EXPECT_EQ(host.menus.log,
              (Log{"mnupopup4;*Setup Toolbar;*Percussion Tableau;Polyphonics Tableau",
                   "mnupopup4;Setup Toolbar;Percussion Tableau;*Polyphonics Tableau"}));
}

TEST_F(FrmmenuTest, TheFifthPopupMarksTheRightClickMode) {
    for (const std::int16_t mode : {0, 1, 2}) {
        studio.run.RightClickMode = mode;
        menu.Command5_Click();
    }
    EXPECT_EQ(host.menus.log, (Log{"mnupopup5;*Erase on Right-click;Menu on Right-Click;"
                                   "Set Polynotes on Right-Click",
                                   "mnupopup5;Erase on Right-click;*Menu on Right-Click;"
                                   "Set Polynotes on Right-Click",
                                   "mnupopup5;Erase on Right-click;Menu on Right-Click;"
                                   "*Set Polynotes on Right-Click"}));
}

TEST_F(FrmmenuTest, TheOwnerIsLoadedForThePopupOnly) {
    EXPECT_FALSE(menu.isLoaded());
    host.menus.choices.emplace_back("mnuCut");
    menu.Command2_Click();
    EXPECT_EQ(desk.log, (Log{"CutBut_Click"}));
    EXPECT_FALSE(menu.isLoaded());
}

TEST_F(FrmmenuTest, NothingChosenDoesNothing) {
    menu.Command1_Click();
    EXPECT_TRUE(desk.log.empty());
}

TEST_F(FrmmenuTest, EachEntryRunsOneCommand) {
    const std::vector<std::pair<std::string, std::string>> table{
        {"mnuNew", "Cmd2_Click 1"},
        {"mnuClearall", "Cmd2_Click 1"},
        {"mnuCut", "CutBut_Click"},
        {"mnuCopy", "copyIt"},
        {"mnuPasteInsert", "PasteIntoBut_Click"},
        {"mnuPasteoverwrite", "PasteBut_Click"},
        {"mnuOpen", "Command33_Click"},
        {"mnuFile", "Command33_Click"},
        {"mnuSaveAs2", "Command34_Click"},
        {"mnuSave2", "Command34_Click"},
        {"mnuSave", "Command34_Click"},
        {"mnutoggle", "Check3_Click"},
        {"mnuRewind", "RewindBut_Click"},
        {"mnuPlay", "PlayAndStop_Click 0"},
        {"mnuStopPlaying", "PlayAndStop_Click 1"},
        {"mnuStopall", "Command32_Click"},
        {"mnuSetup", "show Form3"},
        {"mnuEdittool", "show Form2"},
        {"mnuRecordtool", "show Record"},
        {"mnuTutorial", "show Wiz"},
        {"mnuHelp", "Cmdhelp_Click"},
        {"mnuHelpfile", "Cmdhelp_Click"},
        {"mnuExit", "Command3_Click"},
    };
    for (const auto& [entry, command] : table) {
        EXPECT_EQ(chosen(entry), Log{command}) << entry;
    }
    EXPECT_EQ(chosen("mnuCancel"), Log{});
    EXPECT_EQ(chosen("mnuSpc5"), Log{});
    EXPECT_EQ(chosen("nosuchentry"), Log{});
}

TEST_F(FrmmenuTest, TheToggleKeepsTheRightClickMode) {
    studio.run.RightClickMode = 2;
    menu.click("mnutoggle");
    EXPECT_EQ(studio.run.RightClickMode, 2);
}

TEST_F(FrmmenuTest, TheSetupToolbarIsUnloadedIfOpenAndShownOtherwise) {
    studio.run.Form3Open = flagSet;
    EXPECT_EQ(chosen("mnuSetupToolBar"), Log{"unload Form3"});
    studio.run.Form3Open = flagClear;
    EXPECT_EQ(chosen("mnuSetupToolBar"), Log{"show Form3"});
}

TEST_F(FrmmenuTest, ThePercussionTableauIsHiddenAndShown) {
    EXPECT_EQ(chosen("mnuPercussion"), (Log{"Beatbox hidden", "Form_Resize"}));
    EXPECT_EQ(chosen("mnuPercussion"), (Log{"Beatbox shown", "Form_Resize"}));
}

TEST_F(FrmmenuTest, ThePolyphonicsTableauYieldsOnceBeforeItIsLaidOut) {
    host.time.plan(0, [this] { desk.log.emplace_back("yield"); });
    EXPECT_EQ(chosen("mnuPolyphonics"), (Log{"yield", "Form_Resize"}));
    EXPECT_EQ(studio.view.PolyOpen, flagClear);
    menu.click("mnuPolyphonics");
    EXPECT_EQ(studio.view.PolyOpen, flagSet);
}

TEST_F(FrmmenuTest, TheRightClickEntriesSetTheModeAndShowIt) {
    EXPECT_EQ(chosen("mnuPoli"), Log{"Check3_Click"});
    EXPECT_EQ(studio.run.RightClickMode, 2);
    EXPECT_EQ(chosen("mnuMenu"), Log{"Check3_Click"});
    EXPECT_EQ(studio.run.RightClickMode, 1);
    EXPECT_EQ(chosen("mnuerase"), Log{"Check3_Click"});
    EXPECT_EQ(studio.run.RightClickMode, 0);
}

} // namespace
} // namespace velorin
