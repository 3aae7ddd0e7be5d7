// The values of the Setup Toolbar, with a window and without one.
#include "studio/Setup.h"

#include "Recorders.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <vector>

using namespace velorin;
using namespace velorin::test;

namespace {

/// A window that counts how often it is asked to load.
class CountedSetup final : public scripted::PlainSetupView {
public:
    using PlainSetupView::PlainSetupView;

    void loadControls() override { ++loads; }
    void TrackSel_MouseDown(int row) override { pressed = row; }
    void setTempoBar(int value) override { tempos.push_back(value); }
    void setTrackHidePicture(int row, bool active) override { picture = active ? row : -1; }

    std::vector<int> tempos;
    int loads = 0;
    int pressed = -1;
    int picture = -1;
};

void setEverything(velorin::Setup& setup, int row) {
    setup.setTrackSel(row, true);
    setup.TrackSel_MouseDown(row);
    setup.TrackSel_Click(row);
    setup.setTrackHide(row, true);
    setup.enableTrackHide(row, true);
    setup.setTrackHidePicture(row, true);
    setup.setVol(row, "90");
    setup.setCh(row, true);
    setup.setChkstrum(row, true);
}

} // namespace

TEST(TheSetup, HasNothingOfARowThatDoesNotExist) {
    velorin::Setup setup;
    setup.values.options.rows[0].hidden = true;
    for (const int row : {-1, 13}) {
        EXPECT_FALSE(setup.TrackHide(row)) << row;
        EXPECT_FALSE(setup.TrackSel(row)) << row;
        EXPECT_FALSE(setup.vol(row)) << row;
        EXPECT_FALSE(setup.Ch(row)) << row;
        EXPECT_FALSE(setup.Chkstrum(row)) << row;
    }
}

TEST(TheSetup, LoadsNoWindowAndChangesNothingForARowThatDoesNotExist) {
    velorin::Setup setup;
    CountedSetup view(setup);
    for (const int row : {-1, 13})
        setEverything(setup, row);
    EXPECT_EQ(view.loads, 0);
    EXPECT_EQ(view.pressed, -1);
    EXPECT_EQ(view.picture, -1);
    EXPECT_EQ(setup.values.options.rows, RowOptions{}.rows);
    EXPECT_EQ(setup.values.selected, SetupValues{}.selected);
}

TEST(TheSetup, MovesTheBarForTheTemposOfItsRange) {
    velorin::Setup setup;
    CountedSetup view(setup);
    for (const int tempo : {19, 20, 300, 301})
        setup.setTempoBar(tempo);
    EXPECT_THAT(view.tempos, testing::ElementsAre(20, 300));
}

TEST(TheSetup, LoadsItsWindowForEveryValue) {
    velorin::Setup setup;
    CountedSetup view(setup);
    setEverything(setup, 2);
    EXPECT_EQ(view.loads, 9);
    EXPECT_EQ(view.pressed, 2);
    EXPECT_EQ(view.picture, 2);
    EXPECT_TRUE(setup.TrackHide(2));
    EXPECT_TRUE(setup.Ch(2));
    EXPECT_TRUE(setup.Chkstrum(2));
    EXPECT_EQ(setup.vol(2), "90");
    EXPECT_EQ(view.loads, 13);
}

TEST(TheSetup, WithoutAWindowKeepsWhatIsSet) {
    velorin::Setup setup;
    setEverything(setup, 2);
    EXPECT_TRUE(setup.TrackHide(2));
    EXPECT_TRUE(setup.Ch(2));
    EXPECT_TRUE(setup.Chkstrum(2));
    EXPECT_EQ(setup.vol(2), "90");
    setup.setCombo2(3);
    EXPECT_EQ(setup.Combo2(), 3);
    setup.showFirstTab();
    setup.setTempoBar(200);
    setup.setTempoLabel("200");
    EXPECT_EQ(setup.Combo2(), 3) << "what only a window shows changes no value";
}

TEST(TheSetup, SelectsOneRowOfEachGroup) {
    velorin::Setup setup;
    setup.setTrackSel(2, true);
    EXPECT_TRUE(setup.TrackSel(2));
    EXPECT_FALSE(setup.TrackSel(0));
    setup.setTrackSel(9, true);
    EXPECT_TRUE(setup.TrackSel(9));
    EXPECT_FALSE(setup.TrackSel(8));
    EXPECT_TRUE(setup.TrackSel(2)) << "the other group";
    setup.setTrackSel(9, false);
    EXPECT_FALSE(setup.TrackSel(9));
}

// Percussion rows have no chords, and row 9 has no volume.
TEST(TheSetup, KeepsNoChordOfAPercussionRow) {
    velorin::Setup setup;
    setEverything(setup, 9);
    EXPECT_FALSE(setup.Ch(9));
    EXPECT_FALSE(setup.Chkstrum(9));
    EXPECT_TRUE(setup.TrackHide(9));
}

TEST(TheSetup, KeepsItsInstrumentIfTheListHasNoSuchEntry) {
    velorin::Setup setup;
    setup.setCombo1(40);
    for (const int index : {-2, 100'000})
        setup.setCombo1(index);
    EXPECT_EQ(setup.Combo1(), 40);
}
