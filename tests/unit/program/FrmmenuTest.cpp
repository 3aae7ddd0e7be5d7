// The popup menus: entries, check marks, and what each entry does.
#include "windows/main/Frmmenu.h"

#include "model/ScoreWriter.h"
#include "program/Program.h"
#include "support/ScriptedPlatform.h"
#include "windows/frame/Look.h"
#include "windows/main/Form1.h"

#include <gmock/gmock.h>

#include <QApplication>

#include <functional>

using testing::ElementsAre;
using testing::IsEmpty;

namespace velorin {
namespace {

using Log = std::vector<std::string>;

/// A program that has started; notes 60, 61 ... in the first columns of row 0, of 0.12 s each.
class FrmmenuTest : public testing::Test {
protected:
    FrmmenuTest() {
        form.resize(640, 480);
        studio.view.TopPitch = 55;
        writeNotes();
        forget();
    }
    ~FrmmenuTest() override {
        host.time.dropPlanned();
        program.Command3_Click();
    }

    Form1& started() {
        applyLook(*qApp);
        EXPECT_TRUE(program.start());
        return program.form1();
    }

    void writeNotes() {
        studio.score.ClearNoteArrays();
        for (std::int16_t column = 0; column < columns; ++column)
            studio.score.NoteArray.write(0, column, static_cast<std::int16_t>(60 + column));
    }
    /// The first columns of row 0.
    std::vector<int> notes() {
        std::vector<int> read;
        for (int column = 0; column < columns + 2; ++column)
            read.push_back(studio.score.NoteArray.at(0, column));
        return read;
    }
    void select(int first, int last) {
        studio.score.SelectStart = static_cast<std::int16_t>(first);
        studio.score.SelectEnd = static_cast<std::int16_t>(last);
    }

    void forget() {
        host.midi.log.clear();
        host.mci.log.clear();
        host.menus.log.clear();
        host.dialogs.log.clear();
        host.desktop.programs.clear();
    }
    void chosen(const std::string& entry) {
        forget();
        menu.click(entry);
    }
    bool isShown(Tool tool) {
        const QWidget* const window = program.windows.window(tool);
        return window != nullptr && window->isVisible();
    }
    std::string rightClickTip() { return form.toolbMenu->Cmd2[4]->toolTip().toStdString(); }
    int notesBegun() {
        int begun = 0;
        for (const std::string& line : host.midi.log)
            begun += line.find(" 90 ") != std::string::npos ? 1 : 0;
        return begun;
    }

    static constexpr std::int16_t columns = 5;

    scripted::ScriptedPlatform host;
    Program program{host.platform};
    Form1& form = started();
    Frmmenu& menu = form.menus;
    Studio& studio = program.studio();
};

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
    form.area->Beatbox->setVisible(true);
    menu.Command4_Click();
    studio.run.Form3Open = flagClear;
    studio.view.PolyOpen = flagSet;
    form.area->Beatbox->setVisible(false);
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
    select(1, 2);
    host.menus.choices.emplace_back("mnuCut");
    menu.Command2_Click();
    EXPECT_THAT(notes(), ElementsAre(60, 63, 64, -1, -1, -1, -1));
    EXPECT_FALSE(menu.isLoaded());
}

TEST_F(FrmmenuTest, NothingChosenDoesNothing) {
    const std::string before = keptText(studio.score);
    menu.Command1_Click();
    EXPECT_EQ(keptText(studio.score), before);
    EXPECT_THAT(host.midi.log, IsEmpty());
    EXPECT_THAT(host.mci.log, IsEmpty());
    EXPECT_THAT(host.dialogs.log, IsEmpty());
    EXPECT_THAT(host.desktop.programs, IsEmpty());
    EXPECT_FALSE(program.hasEnded());
}

TEST_F(FrmmenuTest, ClearAllOfBothMenusEmptiesTheScoreAndPutsTheStripBackToOneLine) {
    for (const char* const entry : {"mnuNew", "mnuClearall"}) {
        writeNotes();
        studio.score.PolyArray.write(1, 4, 1);
        form.desk.setBeatboxHeight(60);
        chosen(entry);
        EXPECT_THAT(notes(), testing::Each(-1)) << entry;
        EXPECT_EQ(studio.score.PolyArray.at(1, 4), 0) << entry;
        EXPECT_EQ(form.area->Beatbox->height(), 12) << entry;
    }
}

TEST_F(FrmmenuTest, CutTakesTheSelectionAndClosesTheGap) {
    select(1, 2);
    chosen("mnuCut");
    EXPECT_THAT(notes(), ElementsAre(60, 63, 64, -1, -1, -1, -1));
    EXPECT_EQ(program.session.edits.clip.ClipNotes.at(0, 0), 61);
    EXPECT_EQ(program.session.edits.clip.ClipLength, 1);
}

TEST_F(FrmmenuTest, CopyTakesTheSelectionAndDropsIt) {
    select(1, 2);
    chosen("mnuCopy");
    EXPECT_THAT(notes(), ElementsAre(60, 61, 62, 63, 64, -1, -1));
    EXPECT_EQ(program.session.edits.clip.ClipNotes.at(0, 0), 61);
    EXPECT_EQ(program.session.edits.clip.ClipLength, 1);
    EXPECT_EQ(studio.score.SelectStart, -1);
}

TEST_F(FrmmenuTest, PasteOpensAGapOrOverwrites) {
    select(3, 4);
    menu.click("mnuCopy");
    studio.score.StartColumn = 1;
    chosen("mnuPasteInsert");
    EXPECT_THAT(notes(), ElementsAre(60, 63, 64, 61, 62, 63, 64));
    writeNotes();
    chosen("mnuPasteoverwrite");
    EXPECT_THAT(notes(), ElementsAre(60, 63, 64, 63, 64, -1, -1));
}

TEST_F(FrmmenuTest, OpenAsksForAScore) {
    for (const char* const entry : {"mnuOpen", "mnuFile"}) {
        chosen(entry);
        EXPECT_EQ(host.dialogs.log, (Log{"open;Open Score File;Score Files (*.sng) |*.sng|;1004"}))
            << entry;
    }
}

TEST_F(FrmmenuTest, SaveAsksForAName) {
    for (const char* const entry : {"mnuSaveAs2", "mnuSave2", "mnuSave"}) {
        chosen(entry);
        EXPECT_EQ(host.dialogs.log,
                  (Log{"save;Save music file;Midi(*.mid)|*.mid|score(*.sng)|*.sng;2006"}))
            << entry;
    }
}

TEST_F(FrmmenuTest, TheToggleShowsTheRightClickModeAndKeepsIt) {
    studio.run.RightClickMode = 2;
    chosen("mnutoggle");
    EXPECT_EQ(studio.run.RightClickMode, 2);
    EXPECT_EQ(rightClickTip(), "Set Polynotes on right-click");
}

TEST_F(FrmmenuTest, RewindBringsTheViewBackToTheFirstColumn) {
    form.area->HScroll1->setValue(form.area->HScroll1->minimum() + 30);
    studio.score.StartColumn = 32;
    ASSERT_EQ(studio.view.FirstColumn, 30);
    chosen("mnuRewind");
    EXPECT_EQ(studio.view.FirstColumn, 0);
    EXPECT_EQ(studio.score.StartColumn, 0);
}

TEST_F(FrmmenuTest, PlayPlaysTheSongToItsEnd) {
    chosen("mnuPlay");
    EXPECT_EQ(notesBegun(), columns);
    EXPECT_EQ(studio.run.IsPlaying, flagClear);
}

// The device stays open: the other entry opens it again.
TEST_F(FrmmenuTest, StopPlayingEndsTheSong) {
    host.time.plan(scripted::nanosecondsPerSecond * 3 / 10, [this] {
        EXPECT_EQ(studio.run.IsPlaying, flagSet);
        menu.click("mnuStopPlaying");
    });
    chosen("mnuPlay");
    EXPECT_LT(notesBegun(), columns);
    EXPECT_GT(notesBegun(), 0);
    for (const std::string& line : host.midi.log)
        EXPECT_EQ(line.find("close"), std::string::npos) << line;
}

TEST_F(FrmmenuTest, StopAllSoundOpensTheDeviceAgainAndClosesTheFiles) {
    chosen("mnuStopall");
    ASSERT_GE(host.midi.log.size(), 2U);
    EXPECT_TRUE(host.midi.log[0].ends_with(" close"));
    EXPECT_TRUE(host.midi.log[1].ends_with(" open 0"));
    EXPECT_EQ(host.mci.log.size(), 4U);
}

TEST_F(FrmmenuTest, EachToolWindowIsShownByItsEntry) {
    program.windows.unload(Tool::setup);
    const std::pair<const char*, Tool> entries[] = {{"mnuSetup", Tool::setup},
                                                    {"mnuEdittool", Tool::editing},
                                                    {"mnuRecordtool", Tool::recording},
                                                    {"mnuTutorial", Tool::tutorial}};
    for (const auto& [entry, tool] : entries) {
        ASSERT_FALSE(isShown(tool)) << entry;
        chosen(entry);
        EXPECT_TRUE(isShown(tool)) << entry;
        EXPECT_EQ(program.windows.order().back(), tool) << entry;
        chosen(entry); // shows it again, and closes nothing
        EXPECT_TRUE(isShown(tool)) << entry;
    }
}

TEST_F(FrmmenuTest, HelpOfBothMenusOpensTheHelp) {
    for (const char* const entry : {"mnuHelp", "mnuHelpfile"}) {
        chosen(entry);
        EXPECT_EQ(host.desktop.programs,
                  (Log{"help " + host.platform.programFolder + "\\velorin.chm"}))
            << entry;
    }
}

TEST_F(FrmmenuTest, ExitEndsTheProgram) {
    chosen("mnuExit");
    EXPECT_TRUE(program.hasEnded());
}

TEST_F(FrmmenuTest, CancelAndSeparatorsAndUnknownNamesDoNothing) {
    const std::string before = keptText(studio.score);
    for (const char* const entry : {"mnuCancel", "mnuSpc5", "nosuchentry"}) {
        chosen(entry);
        EXPECT_EQ(keptText(studio.score), before) << entry;
        EXPECT_THAT(host.midi.log, IsEmpty()) << entry;
        EXPECT_THAT(host.mci.log, IsEmpty()) << entry;
        EXPECT_THAT(host.menus.log, IsEmpty()) << entry;
        EXPECT_THAT(host.dialogs.log, IsEmpty()) << entry;
        EXPECT_THAT(host.desktop.programs, IsEmpty()) << entry;
        EXPECT_FALSE(program.hasEnded()) << entry;
    }
}

TEST_F(FrmmenuTest, TheSetupToolbarIsUnloadedIfOpenAndShownOtherwise) {
    ASSERT_EQ(studio.run.Form3Open, flagSet);
    chosen("mnuSetupToolBar");
    EXPECT_EQ(program.windows.window(Tool::setup), nullptr);
    ASSERT_EQ(studio.run.Form3Open, flagClear);
    chosen("mnuSetupToolBar");
    EXPECT_TRUE(isShown(Tool::setup));
}

TEST_F(FrmmenuTest, ThePercussionTableauIsHiddenAndShownAndTheWindowLaidOut) {
    for (const bool hidden : {true, false}) {
        studio.view.VisibleColumns = 0;
        chosen("mnuPercussion");
        EXPECT_EQ(form.area->Beatbox->isHidden(), hidden);
        EXPECT_EQ(studio.view.VisibleColumns, 46) << "counted by the layout";
    }
}

TEST_F(FrmmenuTest, ThePolyphonicsTableauYieldsOnceBeforeItIsLaidOut) {
    bool yielded = false;
    host.time.plan(0, [&] {
        yielded = true;
        EXPECT_EQ(studio.view.PolyOpen, flagClear);
        EXPECT_FALSE(form.area->Pic1->isHidden());
    });
    chosen("mnuPolyphonics");
    EXPECT_TRUE(yielded);
    EXPECT_EQ(studio.view.PolyOpen, flagClear);
    EXPECT_TRUE(form.area->Pic1->isHidden());
    chosen("mnuPolyphonics");
    EXPECT_EQ(studio.view.PolyOpen, flagSet);
    EXPECT_FALSE(form.area->Pic1->isHidden());
}

TEST_F(FrmmenuTest, TheRightClickEntriesSetTheModeAndShowIt) {
    chosen("mnuPoli");
    EXPECT_EQ(studio.run.RightClickMode, 2);
    EXPECT_EQ(rightClickTip(), "Set Polynotes on right-click");
    chosen("mnuMenu");
    EXPECT_EQ(studio.run.RightClickMode, 1);
    EXPECT_EQ(rightClickTip(), "Menu on right-click");
    chosen("mnuerase");
    EXPECT_EQ(studio.run.RightClickMode, 0);
    EXPECT_EQ(rightClickTip(), "Erase note on right-click");
}

} // namespace
} // namespace velorin
