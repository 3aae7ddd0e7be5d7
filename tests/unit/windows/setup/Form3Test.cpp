// The Setup Toolbar's controls: the handler that each runs, and how often.
#include "windows/setup/Form3.h"
#include "SetupStage.h"
#include "windows/frame/RowButton.h"
#include "windows/lists/InstrumentList.h"
#include "windows/lists/InstrumentPopup.h"

#include <gtest/gtest.h>

#include <QTest>

namespace velorin {
namespace {

class Form3Test : public testing::Test, protected SetupStage {
protected:
    Form3Test() {
        toolbar.load();
        asked();
    }
    /// The messages of a selected row: first the instrument of the row before, then that of its
    /// list.
    static Lines music(char channel) {
        const std::string program = std::string("C") + channel;
        return {"DrawNoteArray", program + " 05", "Instxt 24", program + " 18"};
    }
    static Lines percussion(char channel) {
        return {"DrawBeatArray", std::string("C") + channel + " 05", "Instxt 128"};
    }
    RowButton& option(int row) { return *form().TrackSel[static_cast<std::size_t>(row)]; }
    QCheckBox& hideBox(int row) { return *form().TrackHide[static_cast<std::size_t>(row)]; }
};

TEST_F(Form3Test, SelectingARowGivesItWhatItsListShows) {
    setup.setTrackSel(3, true);
    EXPECT_EQ(asked(), music('3'));
    EXPECT_EQ(studio.score.CurrentRow, 3);
    EXPECT_EQ(studio.score.RowInstrument[3], 24);
    desk.instrument = "5";
    setup.setTrackSel(10, true);
    EXPECT_EQ(asked(), percussion('A'));
    EXPECT_EQ(studio.score.CurrentRow, 10);
    EXPECT_EQ(studio.score.RowInstrument[10], 128);
    EXPECT_EQ(sounding.PercussionRow[10], flagSet);
    EXPECT_EQ(sounding.PercussionChoice, 128);
}

TEST_F(Form3Test, TheSelectedNotesGetAnInstrumentThatTheListShowsAlready) {
    auto& list = static_cast<InstrumentList&>(*form().Combo1);
    studio.score.NoteArray.write(0, 3, 60);
    studio.score.InstrumentArray.write(0, 3, 5);
    studio.score.SelectStart = 0;
    studio.score.SelectEnd = 7;
    Q_EMIT list.takenAgain();
    EXPECT_EQ(studio.score.InstrumentArray.at(0, 3), 5) << "in draw mode nothing happens";
    studio.run.EditMode = editMode::select;
    Q_EMIT list.takenAgain();
    EXPECT_EQ(studio.score.InstrumentArray.at(0, 3), 24);
}

TEST_F(Form3Test, OneHintSaysHowNotesThatAreDrawnGetAnotherInstrument) {
    Lines hints;
    toolbar.onHint = [&hints](const std::string& lines) { hints.push_back(lines); };
    const auto take = [this](int index) {
        form().Combo1->setCurrentIndex(index);
        Q_EMIT form().Combo1->activated(index);
    };
    take(30);
    EXPECT_TRUE(hints.empty()) << "no note is drawn";
    studio.score.NoteArray.write(0, 3, 60);
    studio.score.InstrumentArray.write(0, 3, 30);
    take(30);
    EXPECT_TRUE(hints.empty()) << "the note has this instrument";
    take(73);
    EXPECT_EQ(hints,
              Lines{"The next notes of Channel 1 have this instrument. Those drawn before keep "
                    "theirs. To change them: press F2, drag over them and choose the "
                    "instrument again."});
    take(12);
    EXPECT_EQ(hints.size(), 1U) << "once is enough";
}

TEST_F(Form3Test, OneRowOfEachGroupIsSelectedAtMost) {
    setup.setTrackSel(3, true);
    EXPECT_FALSE(setup.TrackSel(0));
    setup.setTrackSel(10, true);
    EXPECT_TRUE(setup.TrackSel(3));
    setup.setTrackSel(8, true);
    EXPECT_FALSE(setup.TrackSel(10));
    EXPECT_TRUE(setup.TrackSel(3));
}

TEST_F(Form3Test, SettingWhatIsSetRunsNothingAndNeitherDoesClearing) {
    setup.setTrackSel(0, true);
    setup.setTrackSel(0, false);
    EXPECT_FALSE(setup.TrackSel(0));
    EXPECT_EQ(asked(), Lines{});
    setup.setTrackSel(0, true);
    EXPECT_EQ(asked(), music('0'));
}

TEST_F(Form3Test, TheSelectedRowCannotBeHidden) {
    setup.setTrackSel(5, true);
    EXPECT_TRUE(hideBox(0).isEnabled());
    EXPECT_FALSE(hideBox(5).isEnabled());
    hideBox(5).click();
    EXPECT_FALSE(setup.TrackHide(5));
}

TEST_F(Form3Test, ASelectedRowIsOpenForDrawingUpToRowEight) {
    studio.view.RowOpen.fill(flagClear);
    setup.setTrackSel(6, true);
    EXPECT_EQ(studio.view.RowOpen[6], -1);
    setup.setTrackSel(8, true);
    EXPECT_EQ(studio.view.RowOpen[8], -1);
    setup.setTrackSel(12, true);
    setup.setTrackSel(6, false);
    setup.TrackSel_Click(6);
    EXPECT_EQ(studio.view.RowOpen[6], 0);
}

TEST_F(Form3Test, APressSetsTheOptionThenMakesTheOthersFollowThenRunsItsClick) {
    setup.setTrackSel(8, true);
    asked();
    desk.instrument = "5";
    QTest::mousePress(&option(2), Qt::LeftButton);
    EXPECT_TRUE(setup.TrackSel(2));
    EXPECT_FALSE(setup.TrackSel(0));
    EXPECT_FALSE(setup.TrackSel(8));
    EXPECT_TRUE(form().hasTrackHidePicture(2));
    EXPECT_FALSE(form().hasTrackHidePicture(0));
    EXPECT_EQ(asked(), music('2'));
    EXPECT_EQ(studio.score.CurrentRow, 2);
}

TEST_F(Form3Test, APressOnTheSelectedOptionRunsNoClick) {
    QTest::mousePress(&option(0), Qt::LeftButton);
    EXPECT_EQ(asked(), Lines{});
    EXPECT_TRUE(form().hasTrackHidePicture(0));
}

TEST_F(Form3Test, TheSpaceBarSelectsARowAsAPressDoes) {
    QTest::keyClick(&option(11), Qt::Key_Space);
    EXPECT_TRUE(setup.TrackSel(11));
    EXPECT_FALSE(setup.TrackSel(0));
    EXPECT_EQ(asked(), percussion('B'));
    EXPECT_EQ(studio.score.CurrentRow, 11);
    EXPECT_EQ(studio.score.RowInstrument[11], 128);
}

TEST_F(Form3Test, AHiddenRowCannotBeSelectedByThePointer) {
    setup.setTrackHide(4, true);
    asked();
    QTest::mousePress(&option(4), Qt::LeftButton);
    EXPECT_FALSE(setup.TrackSel(4));
    EXPECT_EQ(asked(), Lines{});
}

TEST_F(Form3Test, TheMouseHandlerOfAClearOptionLeavesNoPicture) {
    setup.TrackSel_MouseDown(7);
    for (int row = 0; row < 13; ++row) {
        EXPECT_FALSE(setup.TrackSel(row)) << row;
        EXPECT_FALSE(form().hasTrackHidePicture(row)) << row;
    }
    EXPECT_EQ(asked(), Lines{});
}

TEST_F(Form3Test, TheToolTipTellsTheChannelAndWhetherItIsActive) {
    form().TrackSel_MouseMove(0);
    EXPECT_EQ(option(0).toolTip(), "Channel 1 (Active)");
    form().TrackSel_MouseMove(7);
    EXPECT_EQ(option(7).toolTip(), "Channel 8");
    form().TrackSel_MouseMove(8);
    EXPECT_EQ(option(8).toolTip(), "Percussion Channel 1");
    form().TrackSel_MouseMove(9);
    EXPECT_EQ(option(9).toolTip(), "Percussion Channel 2");
    setup.setTrackSel(12, true);
    form().TrackSel_MouseMove(12);
    EXPECT_EQ(option(12).toolTip(), "Percussion Channel 5 (Active)");
}

TEST_F(Form3Test, HidingARowLocksItsOptionAndTakesItsPicture) {
    setup.setTrackHidePicture(1, true);
    setup.setTrackHide(1, true);
    EXPECT_FALSE(option(1).isEnabled());
    EXPECT_FALSE(form().hasTrackHidePicture(1));
    EXPECT_EQ(asked(), Lines{"DrawNoteArray"});
    setup.setTrackHide(1, true);
    EXPECT_EQ(asked(), Lines{});
    hideBox(1).click();
    EXPECT_TRUE(option(1).isEnabled());
    EXPECT_EQ(asked(), Lines{"DrawNoteArray"});
}

TEST_F(Form3Test, AChosenInstrumentIsPassedOnOnce) {
    setup.setCombo1(3);
    setup.setCombo1(3);
    EXPECT_EQ(asked(), (Lines{"Instxt 3", "C0 03"}));
    setup.setCombo1(128);
    setup.setCombo1(-2);
    EXPECT_EQ(setup.Combo1(), 3);
    EXPECT_EQ(asked(), Lines{});
}

TEST_F(Form3Test, AChosenPercussionSoundIsKeptAndPassedOn) {
    form().Combo5->setCurrentIndex(25);
    EXPECT_EQ(sounding.PercussionChoice, 153);
    EXPECT_EQ(asked(), Lines{"Instxt 153"});
    EXPECT_EQ(studio.score.RowInstrument[0], 153);
}

TEST_F(Form3Test, AnEntryTakenFromTheOpenListIsPassedOnOnce) {
    form().show();
    form().Combo1->showPopup();
    auto& instruments = *form().findChild<InstrumentList*>("Combo1");
    QTest::keyClicks(instruments.popup().search, "jazz");
    EXPECT_EQ(asked(), Lines{});
    QTest::keyClick(instruments.popup().search, Qt::Key_Return);
    EXPECT_EQ(asked(), (Lines{"Instxt 26", "C0 1A"}));
    EXPECT_EQ(studio.score.RowInstrument[0], 26);
    form().Combo5->showPopup();
    auto& sounds = *form().findChild<InstrumentList*>("Combo5");
    QTest::keyClicks(sounds.popup().search, "triangle");
    QTest::keyClick(sounds.popup().search, Qt::Key_Return);
    EXPECT_EQ(asked(), Lines{"Instxt 173"});
    EXPECT_EQ(studio.score.RowInstrument[0], 173);
}

TEST_F(Form3Test, TheInstrumentListsAreStillWhileTheWindowLoads) {
    form().Form3Loading = flagSet;
    form().Combo1_Click();
    form().Combo5_Click();
    EXPECT_EQ(asked(), Lines{});
    EXPECT_EQ(sounding.PercussionChoice, 0);
}

TEST_F(Form3Test, AnotherDeviceIsOpenedAtOnce) {
    setup.setCombo2(2);
    setup.setCombo2(2);
    setup.setCombo2(3);
    EXPECT_EQ(asked(), (Lines{"close", "open 1"}));
    EXPECT_EQ(setup.Combo2(), 2);
}

TEST_F(Form3Test, EachChordHasItsIntervals) {
    const int intervals[7][3] = {{4, 7, 12}, {3, 7, 12},  {4, 7, 11},  {3, 7, 10},
                                 {3, 6, 10}, {-12, 0, 0}, {-12, 12, 0}};
    for (int chord = 6; chord >= 0; --chord) {
        form().Combo3->setCurrentIndex(chord);
        EXPECT_EQ(sounding.ChordInterval1, intervals[chord][0]) << chord;
        EXPECT_EQ(sounding.ChordInterval2, intervals[chord][1]) << chord;
        EXPECT_EQ(sounding.ChordInterval3, intervals[chord][2]) << chord;
    }
    form().Combo3->setCurrentIndex(-1);
    EXPECT_EQ(sounding.ChordInterval1, 4);
}

TEST_F(Form3Test, ThePolyphonicsBoxYieldsOnceBeforeTheLayout) {
    host.time.plan(0, [this] { desk.log.emplace_back("yield"); });
    form().Chkpoly->click();
    EXPECT_EQ(studio.view.PolyOpen, 0);
    EXPECT_EQ(asked(), (Lines{"yield", "Form_Resize"}));
}

TEST_F(Form3Test, AWindowClosedWithinThePolyphonicsBoxsYieldStillLaysOut) {
    host.time.plan(0, [this] { form().imgTitleClose_Click(); });
    form().Chkpoly->click();
    EXPECT_EQ(asked(), Lines{"Form_Resize"});
    EXPECT_FALSE(toolbar.isLoaded());
}

TEST_F(Form3Test, TheTempoBarSetsTheTempoThroughItsLabel) {
    setup.setTempoBar(250);
    EXPECT_EQ(form().TempoLabel->text(), "250");
    EXPECT_EQ(studio.score.Tempo, 250);
    setup.setTempoBar(19);
    setup.setTempoBar(301);
    EXPECT_EQ(studio.score.Tempo, 250);
}

TEST_F(Form3Test, TheTempoStopsAtBothEnds) {
    form().HScroll1->setValue(5000);
    EXPECT_EQ(studio.score.Tempo, 300);
    form().HScroll1->setValue(-5000);
    EXPECT_EQ(studio.score.Tempo, 20);
}

TEST_F(Form3Test, TheTempoIsTheNumberThatTheLabelBeginsWith) {
    setup.setTempoLabel("80.5 bpm");
    EXPECT_EQ(studio.score.Tempo, 80);
    setup.setTempoLabel("99999");
    EXPECT_EQ(studio.score.Tempo, 80);
    setup.setTempoLabel("fast");
    EXPECT_EQ(studio.score.Tempo, 0);
    studio.score.Tempo = 7;
    setup.setTempoLabel("fast");
    EXPECT_EQ(studio.score.Tempo, 7);
}

TEST_F(Form3Test, TheVolumeBarMovesTheSelectedRowOnly) {
    setup.setTrackSel(4, true);
    form().HScroll2->setValue(60);
    EXPECT_EQ(setup.vol(4), "60");
    EXPECT_EQ(setup.vol(0), "127");
    setup.setTrackSel(5, true);
    EXPECT_EQ(form().HScroll2->value(), 60);
    EXPECT_EQ(setup.vol(5), "127");
}

TEST_F(Form3Test, AVolumeIsReadWithoutACopy) {
    EXPECT_EQ(setup.vol(2)->data(), setup.vol(2)->data());
    form().vol[2]->setText("a text that is longer than any volume");
    EXPECT_EQ(setup.vol(2), "a text that is longer than any volume");
    EXPECT_EQ(setup.vol(2)->data(), setup.vol(2)->data());
}

TEST_F(Form3Test, TheVolumeBarMovesTheFirstOfSeveralSelectedRows) {
    setup.setTrackSel(10, true);
    form().HScroll2->setValue(10);
    EXPECT_EQ(setup.vol(0), "10");
    EXPECT_EQ(setup.vol(10), "127");
}

TEST_F(Form3Test, TheVolumeBarMovesNothingIfNoRowIsSelected) {
    setup.setTrackSel(0, false);
    form().HScroll2->setValue(10);
    EXPECT_EQ(setup.vol(0), "127");
    EXPECT_EQ(asked(), Lines{});
}

TEST_F(Form3Test, TheVolumeOfRowNineEndsTheRun) {
    form().pressTrackSel(9);
    asked();
    form().HScroll2->setValue(10);
    EXPECT_EQ(asked(), Lines{"end: The volume cannot be set: Rythm Channel 4 has no volume box."
                             "\r\nVelorin will now close."});
}

TEST_F(Form3Test, RowsAndListEntriesThatDoNotExistAreLeftAlone) {
    setup.setTrackSel(13, true);
    setup.setTrackHide(-1, true);
    setup.setVol(9, "1");
    setup.setCh(8, true);
    setup.setChkstrum(12, true);
    EXPECT_FALSE(setup.TrackHide(13));
    EXPECT_FALSE(setup.Ch(8));
    EXPECT_EQ(setup.vol(9), std::nullopt);
    EXPECT_EQ(setup.vol(-1), std::nullopt);
    EXPECT_EQ(asked(), Lines{});
}

TEST_F(Form3Test, TheTabsAreInTheirOrder) {
    QTabWidget& tabs = *form().SSTab1;
    ASSERT_EQ(tabs.count(), 3);
    EXPECT_EQ(tabs.tabText(0), "Channels, Instruments");
    EXPECT_EQ(tabs.tabText(1), "Polyphonics");
    EXPECT_EQ(tabs.tabText(2), "Setup");
    tabs.setCurrentIndex(2);
    setup.showFirstTab();
    EXPECT_EQ(tabs.currentIndex(), 0);
}

TEST_F(Form3Test, TheToolTipsOfTheOtherControls) {
    EXPECT_EQ(hideBox(3).toolTip(), "Hide this channel");
    EXPECT_EQ(form().Combo1->toolTip(), "Instrument");
    EXPECT_EQ(form().Combo5->toolTip(), "Percussion Instrument");
    EXPECT_EQ(form().Chkpoly->toolTip(), "Open/Close Polyphonics tableau");
    EXPECT_EQ(form().HScroll1->toolTip(), "Tempo (playing speed)");
}

TEST_F(Form3Test, EveryControlIsFoundByItsName) {
    for (const char* name :
         {"TrackSel(3)", "TrackSel(13)", "TrackHide(12)", "vol(10)", "Ch(7)", "Chkstrum(0)",
          "SSTab1", "Combo1", "Combo2", "Combo3", "Combo5", "Chkpoly", "HScroll1", "HScroll2",
          "TempoLabel", "imgTitleClose", "lblTitle"}) {
        EXPECT_NE(form().findChild<QWidget*>(name), nullptr) << name;
    }
    EXPECT_EQ(form().findChild<QWidget*>("vol(9)"), nullptr);
}

TEST_F(Form3Test, TheWindowSystemsOwnCloseIsTheTitlesButton) {
    form().show();
    form().close();
    EXPECT_FALSE(toolbar.isLoaded());
    EXPECT_EQ(host.settings.find("Settings", "Form3"), "False");
}

} // namespace
} // namespace velorin
