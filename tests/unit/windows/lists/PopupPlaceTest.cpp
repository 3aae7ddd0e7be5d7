// Where an open list goes on the screen.
#include "windows/lists/PopupPlace.h"

#include <gtest/gtest.h>

namespace velorin {
namespace {

// As the list of instruments: 296 wide, 64 pixels besides the rows of 24.
PopupPlace placed(QRect field, QSize screen) {
    return placeOfPopup(field, QRect(QPoint(0, 0), screen), 296, 64, 24);
}

TEST(PopupPlaceTest, IsOnePixelBelowTheFieldAtItsLeftEdge) {
    const PopupPlace place = placed(QRect(300, 100, 194, 26), QSize(1280, 800));
    EXPECT_EQ(place.rows, 18);
    EXPECT_EQ(place.rect, QRect(300, 127, 296, 64 + 18 * 24));
}

TEST(PopupPlaceTest, HasSixteenRowsOnALowScreenAndTwentyOnAHighOne) {
    EXPECT_EQ(placed(QRect(300, 100, 194, 26), QSize(1024, 700)).rows, 16);
    EXPECT_EQ(placed(QRect(300, 100, 194, 26), QSize(2560, 1440)).rows, 20);
}

TEST(PopupPlaceTest, IsAboveAFieldAtTheFootOfTheScreen) {
    const PopupPlace place = placed(QRect(300, 700, 194, 26), QSize(1280, 800));
    EXPECT_EQ(place.rows, 18);
    EXPECT_EQ(place.rect, QRect(300, 699 - 496, 296, 496)); // 64 + 18 * 24 is 496
}

TEST(PopupPlaceTest, MovesLeftWhereTheScreenEnds) {
    const PopupPlace place = placed(QRect(1080, 100, 194, 26), QSize(1280, 800));
    EXPECT_EQ(place.rect.left(), 1280 - 296);
    EXPECT_EQ(placed(QRect(20, 100, 194, 26), QSize(200, 800)).rect.left(), 0);
}

TEST(PopupPlaceTest, NeverCoversTheField) {
    for (int y = 0; y <= 674; y += 7) {
        const QRect field(300, y, 194, 26);
        const PopupPlace place = placed(field, QSize(1024, 700));
        EXPECT_FALSE(place.rect.intersects(field)) << y;
        EXPECT_TRUE(QRect(0, 0, 1024, 700).contains(place.rect)) << y;
        EXPECT_EQ(place.rect.height(), 64 + 24 * place.rows) << y;
    }
    // 336 pixels are above the field and 338 below it: 272 are room for 11 rows.
    EXPECT_EQ(placed(QRect(300, 336, 194, 26), QSize(1024, 700)).rows, 11);
}

} // namespace
} // namespace velorin
