// How notes, bands, tint and marker are drawn from the grids.
#include "drawing/NoteDrawing.h"

#include "support/TableauStage.h"

#include <gtest/gtest.h>

using namespace velorin;

namespace {

constexpr Colour band = rgb(224, 224, 224);
constexpr Colour bar = rgb(68, 204, 255);
constexpr Colour red = rgb(255, 0, 0);

/// A window of 640 by 480: 47 columns, the picture 530 by 283; the top line is pitch index 55.
class NoteDrawing : public testing::Test {
protected:
    NoteDrawing() { stage.resize(640, 480); }

    void draw() { stage.music.DrawNoteArray(); }
    Colour pixel(int x, int y) const { return stage.pixel(x, y); }
    Score& score() { return stage.studio.score; }
    View& view() { return stage.studio.view; }

    /// The middle of the length bar, at the right end of its column's cell.
    Colour barAt(int column, int pitch) {
        return pixel((column - view().FirstColumn) * 12 + 11, (pitch - view().TopPitch) * 12 + 5);
    }
    /// A pixel inside the disc of a note head, away from outline and highlight.
    Colour headAt(int column, int pitch) {
        return pixel((column - view().FirstColumn) * 12 + 6, (pitch - view().TopPitch) * 12 + 7);
    }

    scripted::TableauStage stage;
};

} // namespace

TEST_F(NoteDrawing, LinesOfSharpNamesAreGreyBandsTwelvePixelsHigh) {
    draw();
    // 55 is 6C, 56 is 5B, 57 is 5A#
    EXPECT_EQ(pixel(5, 23), white);
    EXPECT_EQ(pixel(5, 24), band);
    EXPECT_EQ(pixel(5, 35), band);
    EXPECT_EQ(pixel(5, 36), white);
    EXPECT_EQ(pixel(529, 30), band);
}

TEST_F(NoteDrawing, BandsFollowTheNamesAndTheNumberOfNamedLines) {
    view().SharpRow.fill(flagSet);
    view().VisibleRows = 3;
    draw();
    EXPECT_EQ(pixel(5, 0), band);
    EXPECT_EQ(pixel(5, 47), band);
    EXPECT_EQ(pixel(5, 48), white) << "lines without a name have no band";
}

TEST_F(NoteDrawing, MoreLinesThanTheTableOfBandsDoNoHarm) {
    view().SharpRow.fill(flagClear);
    view().VisibleRows = 128;
    draw();
    EXPECT_EQ(pixel(5, 280), white);
}

TEST_F(NoteDrawing, BarLinesAreAtColumnsDivisibleByFour) {
    draw();
    EXPECT_EQ(pixel(0, 0), bar);
    EXPECT_EQ(pixel(0, 282), bar);
    EXPECT_EQ(pixel(48, 30), bar) << "also over the bands";
    EXPECT_EQ(pixel(12, 0), white);
    EXPECT_EQ(pixel(47, 0), white);
    EXPECT_EQ(pixel(49, 0), white);

    view().FirstColumn = 3;
    draw();
    EXPECT_EQ(pixel(0, 0), white);
    EXPECT_EQ(pixel(12, 0), bar);
}

TEST_F(NoteDrawing, NoteOfOneColumnHasABarFromTwoToElevenFourHigh) {
    stage.note(0, 5, 58, 1); // x 60, y 36
    draw();
    EXPECT_EQ(pixel(71, 40), red);
    EXPECT_EQ(pixel(71, 43), red);
    EXPECT_EQ(pixel(71, 39), white);
    EXPECT_EQ(pixel(71, 44), white);
    EXPECT_EQ(pixel(72, 41), white);
    EXPECT_EQ(headAt(5, 58), red);
}

TEST_F(NoteDrawing, BarOfALongerNoteEndsInItsLastColumn) {
    stage.note(0, 5, 58, 3);
    draw();
    EXPECT_EQ(pixel(60 + 2 * 12 + 11, 41), red);
    EXPECT_EQ(pixel(60 + 3 * 12 + 1, 41), white) << "right of the bar line";
}

TEST_F(NoteDrawing, HeadHasABlackOutlineAndAWhiteHighlight) {
    stage.note(0, 5, 58, 1);
    draw();
    EXPECT_LT(pixel(60, 41) & 0xffU, 120U);
    EXPECT_LT(pixel(65, 36) & 0xffU, 120U);
    EXPECT_GT(pixel(63, 38) >> 8 & 0xffU, 100U) << "the highlight's upper edge";
}

TEST_F(NoteDrawing, NoteThatBeganLeftOfTheViewShowsAHeadAtTheEdge) {
    stage.note(0, 2, 58, 8); // to column 9
    view().FirstColumn = 6;
    view().LastVisibleColumn = 52;
    draw();
    EXPECT_EQ(headAt(6, 58), red);
    EXPECT_EQ(barAt(9, 58), red);
    EXPECT_EQ(barAt(10, 58), white);
}

TEST_F(NoteDrawing, OrphanHeldCellIsDrawnAsANote) {
    score().NoteArray.write(0, 4, heldCell(58));
    draw();
    EXPECT_EQ(headAt(4, 58), red);
}

TEST_F(NoteDrawing, BarRunningPastTheLastVisibleColumnEndsThere) {
    stage.note(0, 3, 58, 30);
    view().LastVisibleColumn = 7;
    draw();
    EXPECT_EQ(barAt(7, 58), red);
    EXPECT_EQ(barAt(8, 58), white);
}

TEST_F(NoteDrawing, HeldCellsOfAnotherPitchProlongTheNote) {
    score().NoteArray.write(0, 4, 58);
    score().NoteArray.write(0, 5, heldCell(60));
    draw();
    EXPECT_EQ(barAt(5, 58), red);
    EXPECT_EQ(barAt(5, 60), white);
}

TEST_F(NoteDrawing, ActiveRowLiesOnTopInItsBrightColour) {
    view().RowOpen.fill(flagSet);
    stage.note(0, 4, 58, 1);
    stage.note(3, 4, 58, 1);
    draw();
    EXPECT_EQ(headAt(4, 58), rgb(255, 0, 0));
    score().CurrentRow = 3;
    draw();
    EXPECT_EQ(headAt(4, 58), rgb(255, 0, 255));
    score().CurrentRow = 5;
    draw();
    EXPECT_EQ(headAt(4, 58), rgb(192, 255, 192)) << "of two pale rows the later one";
}

TEST_F(NoteDrawing, WithAPercussionRowCurrentRowSevenIsAbsentAndTheOthersArePale) {
    view().RowOpen.fill(flagSet);
    for (int row = 0; row < 9; ++row)
        stage.note(row, 4 + row, 58, 1);
    score().CurrentRow = 8;
    draw();
    for (int row = 0; row < 7; ++row)
        EXPECT_EQ(headAt(4 + row, 58), paleColors[row]);
    EXPECT_EQ(headAt(11, 58), white);
    EXPECT_EQ(headAt(12, 58), white);
}

TEST_F(NoteDrawing, RowThatWasNeverOpenedStaysInvisible) {
    stage.note(2, 4, 58, 1);
    draw();
    EXPECT_EQ(headAt(4, 58), white);
    view().RowOpen[2] = flagSet;
    draw();
    EXPECT_EQ(headAt(4, 58), paleColors[2]);
}

TEST_F(NoteDrawing, HiddenRowIsNotDrawnEvenIfItIsTheActiveOne) {
    stage.note(0, 4, 58, 1);
    stage.note(1, 6, 58, 1);
    stage.setup.values.options.rows[0].hidden = true;
    draw();
    EXPECT_EQ(headAt(4, 58), white);
    EXPECT_EQ(headAt(6, 58), paleColors[1]);
}

TEST_F(NoteDrawing, NoteOutsideTheWindowStopsNothing) {
    stage.note(0, 4, 3, 1);
    stage.note(0, 6, 127, 1);
    score().NoteArray.write(0, 8, 999);
    score().NoteArray.write(0, 9, 32767);
    stage.note(0, 10, 58, 1);
    draw();
    EXPECT_EQ(headAt(10, 58), red);
}

TEST_F(NoteDrawing, ChordMarkDrawsARedRingOfRadiusSeven) {
    stage.note(0, 4, 60, 1); // centre 53, 65
    score().PolyArray.write(1, 5, 1);
    draw();
    EXPECT_LT(pixel(53, 58) >> 8 & 0xffU, 60U) << "red above the head";
    EXPECT_GT(pixel(53, 58) & 0xffU, 240U);
    score().PolyArray.write(1, 5, 2);
    draw();
    EXPECT_EQ(pixel(53, 58), band) << "only 1 is a mark";
}

TEST_F(NoteDrawing, RingIsFilledAsTheNoteBeforeItLeftIt) {
    stage.note(0, 4, 60, 1);
    score().PolyArray.write(1, 5, 1);
    draw();
    EXPECT_EQ(pixel(53, 71), white) << "lines only, for the first note of a draw";
    stage.note(0, 1, 59, 1);
    draw();
    EXPECT_EQ(pixel(53, 71), red) << "solid, after another note";
}

TEST_F(NoteDrawing, DrawingLeavesTheFillStateAtHorizontalLines) {
    stage.note(0, 4, 60, 1);
    stage.area.MusicBox->picture.fillStyle = FillStyle::transparent;
    draw();
    EXPECT_EQ(stage.area.MusicBox->picture.fillStyle, FillStyle::horizontalLines);
}

TEST_F(NoteDrawing, SelectionIsTintedFromItsStartToThePixelAfterItsEnd) {
    score().SelectStart = 5;
    score().SelectEnd = 9;
    draw();
    EXPECT_EQ(pixel(59, 0), white);
    EXPECT_EQ(pixel(60, 0), rgb(155, 155, 255));
    EXPECT_EQ(pixel(119, 0), rgb(155, 155, 255));
    EXPECT_EQ(pixel(120, 0), rgb(155, 155, 255)) << "one pixel more than the column";
    EXPECT_EQ(pixel(121, 0), white);
    EXPECT_EQ(pixel(70, 270), rgb(155, 155, 255));
    EXPECT_EQ(pixel(70, 30), rgb(136, 136, 236)) << "224 * 155 / 255, and 100 more for blue";
}

TEST_F(NoteDrawing, SelectionBeyondBothEdgesTintsTheWholePicture) {
    view().FirstColumn = 10;
    view().LastVisibleColumn = 56;
    score().SelectStart = 3;
    score().SelectEnd = 300;
    draw();
    EXPECT_EQ(pixel(5, 0), rgb(155, 155, 255));
    EXPECT_EQ(pixel(529, 0), rgb(155, 155, 255));
}

TEST_F(NoteDrawing, SelectionOutsideTheViewTintsNothing) {
    view().FirstColumn = 10;
    view().LastVisibleColumn = 56;
    for (const auto& [start, end] : {std::pair{2, 9}, {57, 60}, {-1, 20}}) {
        score().SelectStart = static_cast<std::int16_t>(start);
        score().SelectEnd = static_cast<std::int16_t>(end);
        draw();
        EXPECT_EQ(pixel(5, 0), white);
        EXPECT_EQ(pixel(527, 0), white);
    }
}

TEST_F(NoteDrawing, StartMarkerIsThreePixelsWideLeftOfItsColumn) {
    score().StartColumn = 5;
    draw();
    const Colour marker = rgb(255, 155, 155);
    EXPECT_EQ(pixel(56, 0), white);
    EXPECT_EQ(pixel(57, 0), marker);
    EXPECT_EQ(pixel(59, 270), marker);
    EXPECT_EQ(pixel(60, 0), white);
}

TEST_F(NoteDrawing, StartMarkerAtTheFirstColumnLiesOutsideThePicture) {
    score().StartColumn = 0;
    draw();
    const QImage without = stage.area.MusicBox->picture.image().copy();
    score().StartColumn = 500;
    draw();
    EXPECT_EQ(stage.area.MusicBox->picture.image(), without);
}

TEST_F(NoteDrawing, AnyPictureCanBeDrawnOn) {
    Picture page(white);
    page.resize(300, 100, 2.0);
    Picture blue(rgb(0, 0, 255));
    Picture marker(rgb(255, 0, 0));
    stage.note(0, 5, 58, 3);
    score().SelectStart = 2;
    score().SelectEnd = 3;
    drawNoteArray(page, blue, marker, stage.studio);
    EXPECT_EQ(page.pixel(95, 41), red);
    EXPECT_EQ(page.pixel(26, 0), white) << "a tint without a source is left out";
    blue.resize(1, 1);
    drawNoteArray(page, blue, marker, stage.studio);
    EXPECT_EQ(page.pixel(26, 0), rgb(155, 155, 255));
}

TEST_F(NoteDrawing, ViewOutsideTheGridDrawsNothingThere) {
    view().FirstColumn = -5;
    view().LastVisibleColumn = 1200;
    stage.note(0, 0, 58, 1);
    draw();
    EXPECT_EQ(headAt(0, 58), red);
}
