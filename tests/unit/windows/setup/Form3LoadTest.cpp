// The Setup Toolbar's load and unload: lists, settings, and its calls on the main window in order.
#include "SetupStage.h"
#include "windows/frame/RowButton.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QPointer>

namespace velorin {
namespace {

class Form3LoadTest : public testing::Test, protected SetupStage {
protected:
    void store(const std::string& key, const std::string& value) {
        host.settings.SaveSetting("Settings", key, value);
    }
    std::string stored(const std::string& key) {
        return host.settings.find("Settings", key).value_or("none");
    }
};

TEST_F(Form3LoadTest, TheFirstReadOfAControlLoadsTheWindowHidden) {
    EXPECT_FALSE(toolbar.isLoaded());
    EXPECT_EQ(studio.run.Form3Open, 0);
    EXPECT_FALSE(setup.TrackHide(3));
    EXPECT_TRUE(toolbar.isLoaded());
    EXPECT_EQ(studio.run.Form3Open, -1);
    EXPECT_FALSE(form().isVisible());
    EXPECT_TRUE(isTopMost(form()));
}

TEST_F(Form3LoadTest, TheLoadOpensTheDeviceAndLaysTheMainWindowOutButSendsNoInstrument) {
    EXPECT_FALSE(setup.Ch(0));
    EXPECT_EQ(asked(), (Lines{"open 0", "Form_Resize"}));
}

TEST_F(Form3LoadTest, TheDeviceHandlerSeesTheWindowThatLoads) {
    store("Devices", "1");
    EXPECT_FALSE(setup.Ch(0));
    EXPECT_EQ(sounding.MidiDeviceIndex, 1);
    EXPECT_EQ(setup.Combo2(), 2);
    EXPECT_EQ(asked(), (Lines{"open 1", "Form_Resize"}));
}

TEST_F(Form3LoadTest, TheListsHoldTheInstrumentsTheSoundsAndTheChords) {
    EXPECT_EQ(form().Combo1->count(), 128);
    EXPECT_EQ(setup.Combo1(), 24);
    EXPECT_EQ(form().Combo1->itemText(24), "24 Nylon Guitar");
    EXPECT_EQ(form().Combo1->itemText(128), "");
    EXPECT_EQ(form().Combo5->count(), 47);
    EXPECT_EQ(setup.Combo5(), 0);
    EXPECT_EQ(form().Combo5->itemText(0), "128 Acoustic Bass Drum");
    EXPECT_EQ(form().Combo5->itemText(46), "174 Open Triangle");
    EXPECT_EQ(form().Combo3->count(), 7);
    EXPECT_EQ(form().Combo3->currentIndex(), 1);
    EXPECT_EQ(form().Combo3->itemText(4), "Minor 7th -5 (4 note chord: 5C 5D 5F# 5A# )");
}

TEST_F(Form3LoadTest, TheDeviceListBeginsWithTheMapper) {
    host.midi.setDevices({"Synth A", "A device with a name of more than 32 characters"});
    EXPECT_EQ(form().Combo2->itemText(0), "MIDI Mapper");
    EXPECT_EQ(form().Combo2->itemText(1), "Synth A");
    EXPECT_EQ(form().Combo2->itemText(2), "A device with a name of more tha");
    EXPECT_EQ(form().Combo2->count(), 3);
    EXPECT_EQ(form().MidiDeviceCount, 2);
}

TEST_F(Form3LoadTest, TheDefaultDeviceIsTheFirstRealOne) {
    EXPECT_EQ(setup.Combo2(), 1);
    EXPECT_EQ(form().SavedDevice, 0);
}

TEST_F(Form3LoadTest, ASavedDeviceOfMinusOneIsTheMapper) {
    store("Devices", "-1");
    EXPECT_EQ(setup.Combo2(), 0);
    EXPECT_EQ(asked(), (Lines{"open -1", "Form_Resize"}));
}

TEST_F(Form3LoadTest, ASavedDeviceThatIsNotThereLeavesTheListWithoutAChoice) {
    for (const char* saved : {"7", "-3", "32767"}) {
        SetupStage fresh;
        fresh.host.settings.SaveSetting("Settings", "Devices", saved);
        EXPECT_EQ(fresh.setup.Combo2(), -1) << saved;
        EXPECT_EQ(fresh.asked(), Lines{"Form_Resize"}) << saved;
        EXPECT_EQ(fresh.form().Combo3->currentIndex(), 1) << saved;
    }
}

TEST_F(Form3LoadTest, WithoutADeviceTheDefaultChoosesNothing) {
    host.midi.setDevices({});
    EXPECT_EQ(setup.Combo2(), -1);
    EXPECT_EQ(form().Combo2->count(), 1);
}

TEST_F(Form3LoadTest, ADeviceNumberThatIsNoneCountsAsZero) {
    store("Devices", "many");
    EXPECT_EQ(setup.Combo2(), 1);
}

TEST_F(Form3LoadTest, TheIntervalsAreThoseOfTheMinorChord) {
    sounding.ChordInterval1 = 4;
    sounding.ChordInterval2 = 0;
    sounding.ChordInterval3 = 11;
    EXPECT_FALSE(setup.Ch(0));
    EXPECT_EQ(sounding.ChordInterval1, 3);
    EXPECT_EQ(sounding.ChordInterval2, 7);
    EXPECT_EQ(sounding.ChordInterval3, 12);
}

TEST_F(Form3LoadTest, RowZeroIsSelectedAndCannotBeHidden) {
    EXPECT_TRUE(setup.TrackSel(0));
    EXPECT_FALSE(form().TrackHide[0]->isEnabled());
    EXPECT_TRUE(form().hasTrackHidePicture(0));
    for (int row = 1; row < 13; ++row) {
        EXPECT_FALSE(setup.TrackSel(row)) << row;
        EXPECT_TRUE(form().TrackHide[static_cast<std::size_t>(row)]->isEnabled()) << row;
    }
}

TEST_F(Form3LoadTest, EveryVolumeIs127AndRowNineHasNone) {
    for (int row = 0; row < 13; ++row) {
        EXPECT_EQ(setup.vol(row), row == 9 ? std::nullopt : std::optional<std::string>("127"));
    }
}

TEST_F(Form3LoadTest, TheTempoBarGoesFrom20To300InStepsOfTen) {
    EXPECT_EQ(form().HScroll1->minimum(), 20);
    EXPECT_EQ(form().HScroll1->maximum(), 300);
    EXPECT_EQ(form().HScroll1->pageStep(), 10);
    EXPECT_EQ(form().HScroll1->value(), 100);
    EXPECT_EQ(form().TempoLabel->text(), "100");
}

TEST_F(Form3LoadTest, ThePolyphonicsBoxFollowsItsSetting) {
    EXPECT_FALSE(setup.Ch(0));
    EXPECT_TRUE(form().Chkpoly->isChecked());
    EXPECT_EQ(studio.view.PolyOpen, -1);
    SetupStage closed;
    closed.host.settings.SaveSetting("Settings", "Polyphonics", "False");
    EXPECT_FALSE(closed.form().Chkpoly->isChecked());
    EXPECT_EQ(closed.asked(), Lines{"open 0"});
}

TEST_F(Form3LoadTest, TheDefaultPlaceIsLowInTheMiddle) {
    // (1024 - 532) / 2 pixels from the left; 768 - 252 pixels less 400 twips from the top.
    EXPECT_EQ(form().place.Left(), 3690.0F);
    EXPECT_EQ(form().place.Top(), 7340.0F);
}

TEST_F(Form3LoadTest, TheWindowStandsWhereItWasLeft) {
    store("form3 left", "1500");
    store("form3 top", "100");
    EXPECT_EQ(form().place.Left(), 1500.0F);
    EXPECT_EQ(form().pos(), QPoint(100, 7));
    toolbar.unload();
    EXPECT_EQ(stored("form3 left"), "1500");
    EXPECT_EQ(stored("form3 top"), "100");
}

TEST_F(Form3LoadTest, AWindowThatNoScreenShowsComesBackToTheNearest) {
    store("form3 left", "-90000");
    store("form3 top", "300");
    EXPECT_EQ(form().place.Left(), 0.0F);
    EXPECT_EQ(form().place.Top(), 300.0F);
}

TEST_F(Form3LoadTest, APlaceThatNoDesktopHasIsTheDefault) {
    store("form3 left", "900000");
    store("form3 top", "300");
    EXPECT_EQ(form().place.Left(), 3690.0F);
    EXPECT_EQ(form().place.Top(), 7340.0F);
}

TEST_F(Form3LoadTest, APlaceOnASecondScreenIsKeptAsLongAsTheScreenIsThere) {
    const platform::RectPx first{0, 0, 1024, 768};
    const platform::RectPx second{1024, 0, 1280, 1024};
    host.desktop.otherScreens = {{first, first}, {second, second}};
    store("form3 left", "20000.5"); // pixel 1333
    store("form3 top", "12000");
    EXPECT_EQ(form().place.Left(), 20000.5F);
    EXPECT_EQ(form().place.Top(), 12000.0F);
    toolbar.unload();
    EXPECT_EQ(stored("form3 left"), "20000.5");
    host.desktop.otherScreens = {{first, first}};
    EXPECT_EQ(form().place.Left(), (1024 - 532) * 15.0F);
    EXPECT_EQ(form().place.Top(), (768 - 252) * 15.0F);
}

TEST_F(Form3LoadTest, APlaceThatIsNoNumberIsTheDefault) {
    store("form3 left", "somewhere");
    store("form3 top", "300");
    EXPECT_EQ(form().place.Left(), 3690.0F);
    EXPECT_EQ(form().place.Top(), 300.0F);
}

TEST_F(Form3LoadTest, TheCloseButtonSavesThatTheWindowIsClosed) {
    setup.setCombo2(2);
    form().imgTitleClose_Click();
    EXPECT_FALSE(toolbar.isLoaded());
    EXPECT_EQ(studio.run.Form3Open, 0);
    EXPECT_EQ(stored("Form3"), "False");
    EXPECT_EQ(stored("Devices"), "1");
}

TEST_F(Form3LoadTest, AnyOtherUnloadSavesThatTheWindowIsOpen) {
    EXPECT_FALSE(setup.Ch(0));
    toolbar.unload();
    EXPECT_EQ(stored("Form3"), "True");
    EXPECT_EQ(stored("Devices"), "0");
    EXPECT_EQ(studio.run.Form3Open, 0);
}

TEST_F(Form3LoadTest, ToUnloadWhatIsNotLoadedDoesNothing) {
    toolbar.unload();
    EXPECT_FALSE(toolbar.isLoaded());
    EXPECT_EQ(stored("Form3"), "none");
}

TEST_F(Form3LoadTest, AWindowWithoutAChosenDeviceSavesMinusTwo) {
    host.midi.setDevices({});
    EXPECT_FALSE(setup.Ch(0));
    toolbar.unload();
    EXPECT_EQ(stored("Devices"), "-2");
}

TEST_F(Form3LoadTest, AfterACloseTheNextReadLoadsItAgainHiddenWithItsDefaults) {
    form().show();
    setup.setVol(2, "5");
    setup.setTrackHide(3, true);
    setup.setCh(1, true);
    setup.setChkstrum(1, true);
    setup.setTrackSel(4, true);
    form().imgTitleClose_Click();
    asked();
    EXPECT_EQ(setup.vol(2), "127");
    EXPECT_EQ(studio.run.Form3Open, -1);
    EXPECT_FALSE(form().isVisible());
    EXPECT_EQ(asked(), (Lines{"close", "open 0", "Form_Resize"}));
    EXPECT_FALSE(setup.TrackHide(3));
    EXPECT_FALSE(setup.Ch(1));
    EXPECT_FALSE(setup.Chkstrum(1));
    EXPECT_TRUE(setup.TrackSel(0));
    EXPECT_FALSE(setup.TrackSel(4));
}

TEST_F(Form3LoadTest, AWindowClosedByItsOwnButtonIsGivenAwayAndNotDestroyed) {
    const QPointer<Form3> window = &form();
    window->show();
    window->imgTitleClose->click();
    EXPECT_FALSE(toolbar.isLoaded());
    ASSERT_FALSE(window.isNull());
    EXPECT_FALSE(window->isVisible());
    QCoreApplication::processEvents();
    EXPECT_TRUE(window.isNull());
}

TEST_F(Form3LoadTest, AWindowClosedDuringItsOwnLoadIsLoadedAgain) {
    QPointer<QWidget> first;
    host.time.plan(0, [&] {
        first = toolbar.window();
        toolbar.unload();
    });
    EXPECT_EQ(setup.vol(0), "127");
    EXPECT_TRUE(toolbar.isLoaded());
    ASSERT_FALSE(first.isNull());
    EXPECT_NE(first.data(), toolbar.window());
    QCoreApplication::processEvents();
    EXPECT_TRUE(first.isNull());
    EXPECT_TRUE(toolbar.isLoaded());
}

TEST_F(Form3LoadTest, AProgramThatEndsOpensNoDeviceAgain) {
    host.time.end();
    EXPECT_EQ(setup.vol(0), "127");
    EXPECT_EQ(asked(), Lines{});
    toolbar.unload();
    EXPECT_EQ(stored("Form3"), "none");
}

} // namespace
} // namespace velorin
