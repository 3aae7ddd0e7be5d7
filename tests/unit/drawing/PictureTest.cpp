// The drawing surface: boxes, circles, copies and blends, at every scale.
#include "drawing/Picture.h"

#include <gtest/gtest.h>

#include <climits>
#include <cmath>

using namespace velorin;

namespace {

constexpr Colour black = rgb(0, 0, 0);
constexpr Colour red = rgb(255, 0, 0);
constexpr Colour blue = rgb(0, 0, 255);
constexpr Colour pale = rgb(192, 255, 255);

Picture sheet(int width, int height, double ratio = 1.0) {
    Picture picture(white);
    picture.resize(width, height, ratio);
    return picture;
}

class PictureAtScale : public testing::TestWithParam<double> {};

INSTANTIATE_TEST_SUITE_P(Scales, PictureAtScale,
                         testing::Values(1.0, 1.1, 1.25, 1.5, 1.75, 2.0, 3.0));

} // namespace

TEST(Picture, IsAllGroundAtFirstAndAfterAClear) {
    Picture picture = sheet(10, 6);
    EXPECT_EQ(picture.ScaleWidth(), 10);
    EXPECT_EQ(picture.ScaleHeight(), 6);
    EXPECT_EQ(picture.pixel(9, 5), white);
    picture.fillBox(0, 0, 9, 5, red);
    EXPECT_EQ(picture.pixel(9, 5), red);
    picture.Cls();
    EXPECT_EQ(picture.pixel(9, 5), white);
}

// A surface that is all ground has no pixels yet. That must not be seen.
TEST(Picture, AllGroundIsAPictureLikeAnyOther) {
    const Picture blank = sheet(10, 6, 2.0);
    EXPECT_EQ(blank.pixel(9, 5), white);
    EXPECT_EQ(blank.image().size(), QSize(20, 12));
    EXPECT_EQ(blank.image().devicePixelRatio(), 2.0);
    EXPECT_EQ(blank.image().pixel(19, 11), 0xffffffffU);

    Picture target(red);
    target.resize(10, 6, 2.0);
    target.BitBlt(2, 2, 3, 3, sheet(10, 6, 2.0), 0, 0);
    EXPECT_EQ(target.pixel(1, 1), red);
    EXPECT_EQ(target.pixel(2, 2), white);
    target.AlphaBlend(0, 0, 1, 1, sheet(10, 6, 2.0), 255);
    EXPECT_EQ(target.pixel(0, 0), white);
}

TEST(Picture, ANewSizeIsAllGroundAgain) {
    Picture picture = sheet(10, 6);
    picture.fillBox(0, 0, 9, 5, red);
    picture.resize(12, 6);
    EXPECT_EQ(picture.pixel(0, 0), white);
    EXPECT_EQ(picture.pixel(11, 5), white);
}

TEST(Picture, ColoursKeepTheirChannels) {
    Picture picture = sheet(1, 1);
    picture.fillBox(0, 0, 0, 0, rgb(68, 204, 255));
    EXPECT_EQ(picture.pixel(0, 0), rgb(68, 204, 255));
    EXPECT_EQ(picture.image().pixel(0, 0), 0xff44ccffU);
}

TEST_P(PictureAtScale, BothCornersOfABoxBelongToIt) {
    Picture picture = sheet(40, 40, GetParam());
    picture.fillBox(12, 7, 20, 9, red);
    EXPECT_EQ(picture.pixel(12, 7), red);
    EXPECT_EQ(picture.pixel(20, 9), red);
    EXPECT_EQ(picture.pixel(11, 8), white);
    EXPECT_EQ(picture.pixel(21, 8), white);
    EXPECT_EQ(picture.pixel(15, 6), white);
    EXPECT_EQ(picture.pixel(15, 10), white);
}

TEST_P(PictureAtScale, StraightThingsAreNotBlurred) {
    Picture picture = sheet(40, 40, GetParam());
    for (int x = 1; x < 40; x += 3)
        picture.verticalLine(x, 0, 40, red);
    for (int y = 0; y < picture.image().height(); ++y)
        for (int x = 0; x < picture.image().width(); ++x) {
            const Colour colour = toColour(picture.image().pixel(x, y));
            EXPECT_TRUE(colour == red || colour == white);
        }
}

TEST_P(PictureAtScale, NeighbouringBoxesLeaveNoGap) {
    Picture picture = sheet(60, 4, GetParam());
    for (int x = 0; x < 60; x += 12)
        picture.fillBox(x, 0, x + 11, 3, red);
    for (int x = 0; x < picture.image().width(); ++x)
        EXPECT_EQ(toColour(picture.image().pixel(x, 0)), red);
}

TEST(Picture, CornersOfABoxComeInAnyOrder) {
    Picture picture = sheet(20, 20);
    picture.fillBox(9, 8, 3, 2, red);
    EXPECT_EQ(picture.pixel(3, 2), red);
    EXPECT_EQ(picture.pixel(9, 8), red);
    EXPECT_EQ(picture.pixel(2, 2), white);
}

TEST(Picture, OutlinedBoxIsFilledByTheFillState) {
    Picture picture = sheet(20, 20);
    picture.fillStyle = FillStyle::transparent;
    picture.fillColor = pale;
    picture.outlineBox(2, 2, 12, 18, blue);
    EXPECT_EQ(picture.pixel(2, 2), blue);
    EXPECT_EQ(picture.pixel(12, 18), blue);
    EXPECT_EQ(picture.pixel(3, 3), white);

    picture.fillStyle = FillStyle::solid;
    picture.outlineBox(2, 2, 12, 18, blue);
    EXPECT_EQ(picture.pixel(3, 3), pale);
    EXPECT_EQ(picture.pixel(11, 17), pale);
    EXPECT_EQ(picture.pixel(12, 9), blue);
}

TEST(Picture, HorizontalLinesComeEveryEighthPixelAndLeaveTheGroundBetween) {
    Picture picture = sheet(20, 30);
    picture.fillStyle = FillStyle::horizontalLines;
    picture.fillColor = pale;
    picture.outlineBox(0, 0, 19, 29, blue);
    int lines = 0;
    for (int y = 1; y < 29; ++y) {
        EXPECT_EQ(picture.pixel(1, y), picture.pixel(18, y));
        lines += picture.pixel(5, y) == pale ? 1 : 0;
    }
    EXPECT_EQ(lines, 4); // 4, 12, 20, 28
}

TEST(Picture, BoxOfOnePixelIsItsEdge) {
    Picture picture = sheet(5, 5);
    picture.fillStyle = FillStyle::solid;
    picture.fillColor = red;
    picture.outlineBox(2, 2, 2, 2, blue);
    EXPECT_EQ(picture.pixel(2, 2), blue);
    EXPECT_EQ(picture.pixel(3, 2), white);
}

TEST_P(PictureAtScale, CircleHasItsOutlineAtItsRadiusAndItsFillWithin) {
    Picture picture = sheet(40, 40, GetParam());
    picture.fillStyle = FillStyle::solid;
    picture.fillColor = red;
    picture.circle(20, 20, 5, black);
    EXPECT_EQ(picture.pixel(20, 20), red);
    EXPECT_EQ(picture.pixel(17, 20), red);
    EXPECT_EQ(picture.pixel(23, 20), red);
    EXPECT_EQ(picture.pixel(20, 13), white);
    EXPECT_EQ(picture.pixel(27, 20), white);
    for (const auto& [x, y] : {std::pair{15, 20}, {25, 20}, {20, 15}, {20, 25}})
        EXPECT_LT(picture.pixel(x, y) & 0xffU, 90U) << "the outline is nearly black";
}

TEST(Picture, TransparentCircleLeavesWhatLiesInIt) {
    Picture picture = sheet(40, 40);
    picture.fillStyle = FillStyle::transparent;
    picture.fillBox(20, 20, 20, 20, blue);
    picture.circle(20, 20, 7, red);
    EXPECT_EQ(picture.pixel(20, 20), blue);
    EXPECT_EQ(picture.pixel(22, 20), white);
    EXPECT_LT(picture.pixel(27, 20) >> 8 & 0xffU, 90U) << "the ring is red";
}

TEST(Picture, PatternOfACircleCountsFromTheCornerOfTheSurface) {
    Picture picture = sheet(40, 40);
    picture.fillStyle = FillStyle::horizontalLines;
    picture.fillColor = blue;
    picture.circle(20, 20, 7, red);
    EXPECT_EQ(picture.pixel(20, 20), blue) << "20 is 2 * 8 + 4";
    EXPECT_EQ(picture.pixel(20, 19), white);
    EXPECT_EQ(picture.pixel(20, 21), white);
}

TEST_P(PictureAtScale, NoteHeadIsTheTwoCirclesAndLeavesTheFillStateSolid) {
    Picture stamped = sheet(30, 30, GetParam());
    stamped.noteHead(6, 7, pale);
    Picture drawn = sheet(30, 30, GetParam());
    drawn.fillStyle = FillStyle::solid;
    drawn.fillColor = pale;
    drawn.circle(11, 12, 5, black);
    drawn.circle(9, 10, 1, white);
    EXPECT_EQ(stamped.image(), drawn.image());
    EXPECT_EQ(stamped.fillStyle, FillStyle::solid);
    EXPECT_EQ(stamped.fillColor, pale);
}

TEST(Picture, NoteHeadsLookTheSameInEveryCell) {
    for (const double ratio : {1.0, 1.25, 1.5, 1.75, 2.0}) {
        Picture picture = sheet(100, 100, ratio);
        picture.noteHead(0, 0, red);
        picture.noteHead(36, 24, red);
        const int size = static_cast<int>(12 * ratio);
        const int right = static_cast<int>(36 * ratio);
        const int down = static_cast<int>(24 * ratio);
        EXPECT_EQ(picture.image().copy(0, 0, size, size),
                  picture.image().copy(right, down, size, size));
    }
}

TEST_P(PictureAtScale, NoteHeadStaysWithinTheStripThatIsSavedForIt) {
    for (int line = 0; line < 20; ++line) {
        Picture music = sheet(40, 300, GetParam());
        const QImage before = music.image().copy();
        Picture swap = sheet(40, 300, GetParam());
        swap.BitBlt(0, 0, 40, 15, music, 0, line * 12);
        music.noteHead(12, line * 12, red);
        ASSERT_NE(music.image(), before);
        music.BitBlt(0, line * 12, 40, 15, swap, 0, 0);
        ASSERT_EQ(music.image(), before) << "line " << line;
    }
}

TEST_P(PictureAtScale, StripComesBackToTheLastDevicePixel) {
    for (int place = 0; place < 40; ++place) {
        Picture music = sheet(97, 601, GetParam());
        for (int i = 0; i < 97; ++i)
            music.fillBox(i, i * 6, i, 600, rgb(static_cast<unsigned>(i), 5, 250));
        const QImage before = music.image().copy();
        Picture swap = sheet(97, 601, GetParam());
        swap.BitBlt(0, 0, 97, 15, music, 0, place * 12);
        music.fillBox(0, place * 12, 96, place * 12 + 14, red);
        music.BitBlt(0, place * 12, 97, 15, swap, 0, 0);
        ASSERT_EQ(music.image(), before) << "line " << place;

        swap.BitBlt(0, 0, 13, 601, music, place * 12, 0);
        music.fillBox(place * 12, 0, place * 12 + 12, 600, red);
        music.BitBlt(place * 12, 0, 13, 601, swap, 0, 0);
        ASSERT_EQ(music.image(), before) << "column " << place;
    }
}

TEST(Picture, CopyWithinOneSurfaceKeepsWhatItReads) {
    for (const int to : {7, 13}) {
        Picture picture = sheet(1, 40);
        for (int y = 0; y < 40; ++y)
            picture.fillBox(0, y, 0, y, static_cast<Colour>(y));
        picture.BitBlt(0, to, 1, 20, picture, 0, 10);
        for (int y = 0; y < 20; ++y)
            EXPECT_EQ(picture.pixel(0, to + y), static_cast<Colour>(10 + y));
    }
}

TEST(Picture, CopyLeavesThePixelsForWhichTheSourceHasNone) {
    Picture source = sheet(10, 10);
    source.fillBox(0, 0, 9, 9, red);
    Picture target = sheet(20, 20);
    target.BitBlt(0, 0, 20, 20, source, -5, -5);
    EXPECT_EQ(target.pixel(4, 4), white);
    EXPECT_EQ(target.pixel(5, 5), red);
    EXPECT_EQ(target.pixel(14, 14), red);
    EXPECT_EQ(target.pixel(15, 15), white);
}

TEST(Picture, SurfacesOfDifferentScaleCopyTheNearestPixel) {
    Picture source = sheet(10, 10, 2.0);
    source.fillBox(3, 4, 5, 6, red);
    Picture target = sheet(20, 20, 1.25);
    target.BitBlt(10, 10, 10, 10, source, 0, 0);
    EXPECT_EQ(target.pixel(12, 14), white);
    EXPECT_EQ(target.pixel(13, 14), red);
    EXPECT_EQ(target.pixel(15, 16), red);
    EXPECT_EQ(target.pixel(16, 16), white);
}

TEST(Picture, BlendRoundsEveryChannelToNearest) {
    Picture source(rgb(0, 128, 255));
    source.resize(4, 4);
    for (int value = 0; value < 256; ++value) {
        Picture target(rgb(static_cast<unsigned>(value), static_cast<unsigned>(value),
                           static_cast<unsigned>(value)));
        target.resize(7, 1); // one group of four pixels, and a rest
        target.AlphaBlend(0, 0, 7, 1, source, 100);
        const auto expected = [value](int from) {
            return static_cast<unsigned>(std::lround((from * 100 + value * 155) / 255.0));
        };
        for (const int x : {0, 3, 4, 6})
            EXPECT_EQ(target.pixel(x, 0), rgb(expected(0), expected(128), expected(255)));
    }
}

TEST(Picture, TintOfWhiteIsPaleBlueAndTheMarkerPaleRed) {
    Picture target = sheet(4, 1);
    Picture tint(blue);
    tint.resize(1, 1);
    target.AlphaBlend(0, 0, 4, 1, tint, 100);
    EXPECT_EQ(target.pixel(0, 0), rgb(155, 155, 255));
}

TEST(Picture, NothingLiesTooFarOutside) {
    Picture picture = sheet(30, 30);
    Picture source = sheet(30, 30);
    source.fillBox(0, 0, 29, 29, red);
    const QImage before = picture.image().copy();
    picture.fillStyle = FillStyle::diagonalCross;
    for (const int far : {-2000000000, -100000, -40, 40, 100000, 2000000000}) {
        picture.fillBox(far, far, far + 5, far + 5, red);
        picture.outlineBox(far, far, far + 5, far + 5, red);
        picture.circle(far, far, 7, red);
        picture.noteHead(far, 0, red);
        picture.BitBlt(far, 0, 5, 5, source, 0, 0);
        picture.BitBlt(0, 0, 5, 5, source, 0, far);
        picture.AlphaBlend(far, far, 5, 5, source, 100);
        EXPECT_EQ(picture.pixel(far, far), white);
    }
    EXPECT_EQ(picture.image(), before);
    picture.fillBox(INT_MIN, INT_MIN, INT_MAX, INT_MAX, red);
    EXPECT_EQ(picture.pixel(29, 29), red);
    picture.BitBlt(0, 0, INT_MAX, INT_MAX, before.isNull() ? picture : source, 0, 0);
    picture.AlphaBlend(-5, -5, INT_MAX, INT_MAX, source, 100);
}

TEST(Picture, SurfaceOfNoSizeTakesEverything) {
    Picture picture(white, FillStyle::solid, red);
    for (const auto& [width, height] : {std::pair{0, 0}, {0, 9}, {9, 0}, {-4, 9}}) {
        picture.resize(width, height);
        picture.Cls();
        picture.fillBox(0, 0, 5, 5, red);
        picture.outlineBox(0, 0, 5, 5, red);
        picture.circle(0, 0, 5, red);
        picture.BitBlt(0, 0, 5, 5, picture, 0, 0);
        picture.AlphaBlend(0, 0, 5, 5, picture, 100);
        EXPECT_EQ(picture.pixel(0, 0), white);
    }
}

TEST(Picture, SizeThatItHasAlreadyKeepsThePixels) {
    Picture picture = sheet(10, 10);
    picture.fillBox(0, 0, 9, 9, red);
    picture.resize(10, 10);
    EXPECT_EQ(picture.pixel(5, 5), red);
    picture.resize(11, 10);
    EXPECT_EQ(picture.pixel(5, 5), white);
}

TEST(Picture, TellsWhatItTouchedOnceForAWholeRedraw) {
    Picture picture = sheet(100, 100);
    picture.clearTouched();
    std::vector<QRect> told;
    picture.onTouched = [&](const QRect& rect) { told.push_back(rect); };
    picture.fillBox(10, 10, 19, 14, red);
    picture.fillBox(12, 11, 13, 12, blue);
    EXPECT_EQ(told, (std::vector{QRect(10, 10, 10, 5)}));
    picture.Cls();
    picture.noteHead(3, 3, red);
    EXPECT_EQ(told.size(), 2U);
    EXPECT_EQ(told.back(), QRect(0, 0, 100, 100));
    picture.clearTouched();
    picture.fillBox(200, 200, 300, 300, red);
    EXPECT_EQ(told.size(), 2U) << "what lies outside shows nowhere";
}
