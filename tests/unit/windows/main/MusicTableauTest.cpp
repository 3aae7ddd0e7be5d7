// Names, bar numbers, saved strips and the playing bar.
#include "TableauColours.h"
#include "support/TableauStage.h"

#include <gtest/gtest.h>

#include <array>

using namespace velorin;

namespace {

constexpr Colour marker = rgb(255, 192, 192);

/// A window of 640 by 480: 47 columns, the picture 530 by 283; the top line is pitch index 55.
class Tableau : public testing::Test {
protected:
    Tableau() { stage.resize(640, 480); }

    Picture& picture() { return stage.area.MusicBox->picture; }
    InkLabel& label(int k) { return *stage.area.TopBar[k]; }

    scripted::TableauStage stage;
};

} // namespace

TEST_F(Tableau, LineIsSharpIfItsNameEndsInASharp) {
    // 6C 5B 5A# 5A 5G# 5G 5F# 5F 5E 5D# 5D 5C# 5C
    const std::array<Flag, 13> flags{0, 0, -1, 0, -1, 0, -1, 0, 0, -1, 0, -1, 0};
    for (std::size_t i = 0; i < flags.size(); ++i)
        EXPECT_EQ(stage.studio.view.SharpRow[i], flags[i]) << "line " << i;
}

TEST_F(Tableau, LinesWithoutANameKeepTheirBand) {
    stage.studio.view.SharpRow.fill(flagSet);
    stage.studio.view.TopPitch = 120;
    stage.studio.view.VisibleRows = 12;
    stage.music.DrawNoteNames();
    EXPECT_EQ(stage.studio.view.SharpRow[7], flagClear) << "pitch 127 is 0C";
    EXPECT_EQ(stage.studio.view.SharpRow[8], flagSet) << "no pitch 128";
}

TEST_F(Tableau, NamesAreBesideTheTableauOnItsLines) {
    const PictureBox& names = *stage.area.PicX;
    EXPECT_EQ(names.geometry(), QRect(3, 25, 26, 282));
    EXPECT_EQ(names.picture.ScaleHeight(), 282);
    EXPECT_FALSE(names.isHidden());
    for (int line = 0; line < 22; ++line) {
        int inked = 0;
        for (int y = line * 12; y < line * 12 + 12; ++y)
            for (int x = 0; x < 26; ++x)
                inked += names.picture.pixel(x, y) != rgb(0, 0, 64) ? 1 : 0;
        EXPECT_GT(inked, 5) << "line " << line;
    }
    for (int y = 0; y < 282; ++y)
        EXPECT_EQ(names.picture.pixel(24, y), rgb(0, 0, 64)) << "right of the names";
}

TEST_F(Tableau, EveryFourthColumnHasANumberCountedFromOne) {
    EXPECT_EQ(label(0).text(), "1");
    EXPECT_EQ(label(0).geometry().topLeft(), QPoint(32, 2));
    EXPECT_EQ(label(1).text(), "5");
    EXPECT_EQ(label(1).x(), 80);
    EXPECT_EQ(label(11).text(), "45");
    EXPECT_FALSE(label(11).isHidden());
    EXPECT_TRUE(label(12).isHidden()) << "47 columns have 12 numbers";
    EXPECT_TRUE(label(13).isHidden());
}

TEST_F(Tableau, NumbersFollowTheFirstColumn) {
    stage.area.HScroll1->setValue(stage.area.HScroll1->minimum() + 2);
    EXPECT_EQ(label(0).text(), "5");
    EXPECT_EQ(label(0).x(), 56);
}

TEST_F(Tableau, FifteenthNumberIsMissingAndNoneComesAfterTheNineteenth) {
    stage.resize(1280, 800); // columns 0..99, 25 numbers
    EXPECT_EQ(stage.area.TopBar[14], nullptr);
    EXPECT_EQ(label(13).text(), "53");
    EXPECT_EQ(label(15).text(), "61");
    EXPECT_EQ(label(18).text(), "73");
    EXPECT_EQ(label(18).y(), 2);
}

TEST_F(Tableau, TheRulerPaintsTheNumbersThatHaveNoLabel) {
    stage.resize(1280, 800); // columns 0..99
    const std::vector<Ruler::Number> expected{{704, 57},  {944, 77},  {992, 81}, {1040, 85},
                                              {1088, 89}, {1136, 93}, {1184, 97}};
    EXPECT_EQ(stage.area.Shape2->numbers(), expected);
    stage.resize(640, 480);
    EXPECT_TRUE(stage.area.Shape2->numbers().empty());
}

TEST_F(Tableau, APaintedNumberThatDoesNotFitIsLeftOut) {
    stage.resize(1280, 800);
    const QImage ruler = stage.area.Shape2->grab().toImage();
    const auto isInked = [&ruler](int left) { // in pixels of the work area; the ruler is at 9
        for (int x = left - 9; x < left - 9 + 8; ++x)
            for (int y = 0; y < ruler.height(); ++y)
                if (qRed(ruler.pixel(x, y)) > 100)
                    return true;
        return false;
    };
    EXPECT_TRUE(isInked(704));
    EXPECT_FALSE(isInked(656)); // 53 has a label
    EXPECT_TRUE(isInked(1136));
    EXPECT_FALSE(isInked(1184));
}

TEST_F(Tableau, LabelsAfterTheTwelfthStayWhenTheWindowNarrows) {
    stage.resize(1280, 800);
    stage.resize(640, 480);
    EXPECT_TRUE(label(12).isHidden());
    for (const std::size_t k : {13U, 15U, 16U, 17U, 18U})
        EXPECT_FALSE(label(k).isHidden()) << k;
}

TEST_F(Tableau, SavedRowIsFifteenHigh) {
    picture().fillBox(0, 0, 529, 282, green);
    stage.music.GetRow(2);
    picture().fillBox(0, 0, 529, 282, white);
    stage.music.PutRow(2);
    EXPECT_EQ(picture().pixel(0, 23), white);
    EXPECT_EQ(picture().pixel(0, 24), green);
    EXPECT_EQ(picture().pixel(529, 38), green);
    EXPECT_EQ(picture().pixel(0, 39), white);
}

TEST_F(Tableau, SavedColumnIsThirteenWide) {
    picture().fillBox(0, 0, 529, 282, green);
    stage.music.GetColumn(2);
    picture().fillBox(0, 0, 529, 282, white);
    stage.music.PutColumn(2);
    EXPECT_EQ(picture().pixel(23, 0), white);
    EXPECT_EQ(picture().pixel(24, 0), green);
    EXPECT_EQ(picture().pixel(36, 282), green);
    EXPECT_EQ(picture().pixel(37, 0), white);
}

TEST_F(Tableau, SavedBoxIsTheWholePicture) {
    stage.note(0, 3, 60, 4);
    stage.music.DrawNoteArray();
    const QImage before = picture().image().copy();
    stage.music.GetBox();
    picture().fillBox(0, 0, 529, 282, green);
    stage.music.PutBox();
    EXPECT_EQ(picture().image(), before);
}

TEST_F(Tableau, StripsOutsideThePictureDoNoHarm) {
    const QImage before = picture().image().copy();
    for (const int place : {-3000, -2, 44, 46, 2000}) {
        stage.music.GetRow(place);
        stage.music.PutRow(place);
        stage.music.GetColumn(place);
        stage.music.PutColumn(place);
    }
    EXPECT_EQ(picture().image(), before);
}

TEST_F(Tableau, PlayingBarIsFourWideAndTheWholeHeight) {
    stage.music.drawPlayMarker(3);
    EXPECT_EQ(picture().pixel(35, 0), white);
    EXPECT_EQ(picture().pixel(36, 0), marker);
    EXPECT_EQ(picture().pixel(39, 282), marker);
    EXPECT_EQ(picture().pixel(40, 0), white);
    EXPECT_EQ(picture().fillStyle, FillStyle::transparent);
    EXPECT_EQ(picture().fillColor, marker);
}

TEST_F(Tableau, PlayingBarThatWasSavedBeforeLeavesNoTrace) {
    stage.note(0, 2, 60, 4);
    stage.music.DrawNoteArray();
    const QImage before = picture().image().copy();
    for (int offset = 0; offset <= 46; ++offset) {
        stage.music.GetColumn(offset);
        stage.music.drawPlayMarker(offset);
        stage.music.PutColumn(offset);
        ASSERT_EQ(picture().image(), before) << "offset " << offset;
    }
}

TEST_F(Tableau, ClickOnTheNumbersTakesPixelsForTwips) {
    // 480 / 15 = 32, 32 \ 16 = 2
    stage.studio.view.FirstColumn = 10;
    stage.music.TopBarOverlay_MouseDown(1, 0, 480, 5);
    EXPECT_EQ(stage.studio.score.StartColumn, 12);
    // 472.5 / 15 = 31.5, rounded to 32; 470 / 15 = 31.3, rounded to 31
    stage.music.TopBarOverlay_MouseDown(1, 0, 472.5, 5);
    EXPECT_EQ(stage.studio.score.StartColumn, 12);
    stage.music.TopBarOverlay_MouseDown(1, 0, 470, 5);
    EXPECT_EQ(stage.studio.score.StartColumn, 11);
    stage.music.TopBarOverlay_MouseDown(1, 0, -100, 5);
    EXPECT_EQ(stage.studio.score.StartColumn, 10) << "-7 \\ 16 is 0";
}

TEST_F(Tableau, ClickOnTheNumbersDoesNothingWhileTheSongPlays) {
    stage.studio.run.IsPlaying = flagSet;
    stage.music.TopBarOverlay_MouseDown(1, 0, 480, 5);
    EXPECT_EQ(stage.studio.score.StartColumn, 0);
}
