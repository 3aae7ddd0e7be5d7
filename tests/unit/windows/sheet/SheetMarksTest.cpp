// What the window shows beside the pictures of the tableaux.
#include "windows/sheet/SheetMarks.h"

#include "support/TableauStage.h"

#include <gtest/gtest.h>

using namespace velorin;
using scripted::TableauStage;

namespace {

View viewFrom(int topPitch) {
    View view;
    view.TopPitch = static_cast<std::int16_t>(topPitch);
    return view;
}

Colour shown(QWidget& control, int x, int y) {
    return toColour(control.grab().toImage().pixel(x, y));
}

struct Marks : testing::Test {
    TableauStage stage;
    SheetMarks marks{stage.studio, stage.area, stage.music};
    PictureBox& music = *stage.area.MusicBox;
    PictureBox& names = *stage.area.PicX;
    PictureBox& strip = *stage.area.Beatbox;

    Marks() {
        stage.studio.view.TopPitch = 55;
        stage.studio.view.PaleColor = paleColors;
        stage.studio.view.ChannelColor = channelColors;
        stage.studio.view.RowOpen[1] = flagSet;
    }
};

} // namespace

TEST(RowsOutside, AreBelowTheLastPitchAndAboveTheFirst) {
    // Line 10 is pitch 127, "0C".
    EXPECT_EQ(rowsOutside(viewFrom(117), {300, 240}).below, QRect(0, 132, 300, 108));
    EXPECT_EQ(rowsOutside(viewFrom(117), {300, 250}).below, QRect(0, 132, 300, 118));
    EXPECT_TRUE(rowsOutside(viewFrom(117), {300, 240}).above.isEmpty());
    EXPECT_TRUE(rowsOutside(viewFrom(108), {300, 240}).below.isEmpty());
    EXPECT_EQ(rowsOutside(viewFrom(-4), {300, 240}).above, QRect(0, 0, 300, 48));
}

TEST(LinesCovered, CountsALineThatIsCoveredByHalf) {
    const QRect names(3, 25, 26, 600);
    EXPECT_EQ(linesCovered({29, 23, 900, 12}, names), 1);
    EXPECT_EQ(linesCovered({29, 23, 900, 36}, names), 3);
    EXPECT_EQ(linesCovered({29, 23, 900, 19}, names), 1);
    EXPECT_EQ(linesCovered({29, 23, 900, 20}, names), 2);
    EXPECT_EQ(linesCovered({29, 23, 900, 2}, names), 0);
    EXPECT_EQ(linesCovered({29, 23, 900, 2000}, names), 50);
}

TEST_F(Marks, RowsBelowTheLastPitchAreGreyInTheWindowAndWhiteInThePicture) {
    stage.resize(1400, 1300);
    stage.area.VScroll1->setValue(stage.area.VScroll1->maximum());
    const int line = 128 - stage.studio.view.TopPitch;
    ASSERT_GT(music.height(), (line + 2) * 12);
    EXPECT_EQ(shown(music, 5, (line - 1) * 12 + 5), white);
    EXPECT_NE(shown(music, 5, line * 12 + 5), white);
    EXPECT_EQ(music.picture.pixel(5, line * 12 + 5), white);
    EXPECT_NE(shown(names, 1, line * 12 + 5), rgb(0, 0, 64));
    EXPECT_EQ(names.picture.pixel(1, line * 12 + 5), rgb(0, 0, 64));
}

TEST_F(Marks, AFootIsInTheWindowAndNotInThePicture) {
    stage.resize(640, 480);
    stage.note(1, 2, 60, 4);
    stage.music.DrawNoteArray();
    EXPECT_EQ(shown(music, 40, 68), rgb(128, 96, 128));
    EXPECT_EQ(music.picture.pixel(40, 68), white);
    EXPECT_EQ(shown(music, 40, 67), rgb(255, 192, 255)); // the tail itself
    stage.studio.score.NoteArray.fill(emptyCell);
    stage.music.DrawNoteArray();
    EXPECT_EQ(shown(music, 40, 68), white);
}

// The picture of the names keeps 6C, 5B and 5A#, which are painted over.
TEST_F(Marks, DrumsStandsBesideTheStripWhileItIsShown) {
    stage.resize(640, 480);
    strip.setVisible(true);
    strip.place(strip.x(), strip.y(), strip.width(), 36);
    const auto strips = [&] {
        const QImage image = names.grab().toImage();
        int green = 0;
        for (int y = 0; y < 48; ++y)
            for (int x = 0; x < image.width(); ++x)
                green += qGreen(image.pixel(x, y)) > qRed(image.pixel(x, y)) + 20 ? 1 : 0;
        return green;
    };
    const int withStrip = strips();
    EXPECT_GT(withStrip, 20);
    strip.setVisible(false);
    EXPECT_EQ(strips(), 0);
}

TEST_F(Marks, LinesWithoutANameOfTheTableHaveOneInTheWindow) {
    stage.resize(1400, 900);
    const View& view = stage.studio.view;
    const int line = view.VisibleRows + 1;
    ASSERT_LT(view.TopPitch + line, 128);
    ASSERT_GT(names.height(), (line + 1) * 12);
    const auto inked = [line](const QImage& image) {
        int cells = 0;
        for (int y = line * 12; y < line * 12 + 12; ++y)
            for (int x = 0; x < image.width(); ++x)
                cells += qRed(image.pixel(x, y)) > 128 ? 1 : 0;
        return cells;
    };
    EXPECT_EQ(inked(names.picture.image()), 0);
    EXPECT_GT(inked(names.grab().toImage()), 5);
}
