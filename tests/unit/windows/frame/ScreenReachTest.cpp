// Windows that no screen shows come back to the nearest one.
#include "windows/frame/ScreenReach.h"

#include "windows/frame/WindowPlace.h"

#include <gtest/gtest.h>

#include <QWidget>

namespace velorin {
namespace {

platform::Screen plain(int left, int top, int width, int height) {
    return {{left, top, width, height}, {left, top, width, height}};
}

/// A large screen, and a smaller one to the right of it, 200 pixels lower.
const Screens two{plain(0, 0, 1600, 900), plain(1600, 200, 1024, 768)};

TEST(ScreenReach, ATitleOnTheSecondScreenIsInReach) {
    EXPECT_TRUE(isTitleInReach({1700, 300, 400, 28}, two));
    EXPECT_FALSE(isTitleInReach({1700, 100, 400, 28}, two)); // above the second, beside the first
}

TEST(ScreenReach, OneScreenShowsSoMuchOfATitleAsAHandNeeds) {
    EXPECT_TRUE(isTitleInReach({1552, 850, 400, 28}, {two[0]}));
    EXPECT_FALSE(isTitleInReach({1553, 850, 400, 28}, {two[0]}));
    EXPECT_TRUE(isTitleInReach({-352, 850, 400, 28}, {two[0]}));
    EXPECT_FALSE(isTitleInReach({-353, 850, 400, 28}, {two[0]}));
    EXPECT_TRUE(isTitleInReach({10, -14, 400, 28}, {two[0]}));
    EXPECT_FALSE(isTitleInReach({10, -15, 400, 28}, {two[0]}));
    EXPECT_TRUE(isTitleInReach({10, 886, 400, 28}, {two[0]}));
    EXPECT_FALSE(isTitleInReach({10, 887, 400, 28}, {two[0]}));
}

TEST(ScreenReach, AButtonIsInReachWhole) {
    EXPECT_TRUE(isInReach({1576, 10, 24, 20}, {24, 20}, {two[0]}));
    EXPECT_FALSE(isInReach({1577, 10, 24, 20}, {24, 20}, {two[0]}));
}

TEST(ScreenReach, AWindowMovesAsLittleAsItTakes) {
    EXPECT_EQ(placeInNearest({-1333, -580, 1000, 600}, two), QPoint(0, 0));
    EXPECT_EQ(placeInNearest({200, 880, 400, 300}, two), QPoint(200, 600));
    EXPECT_EQ(placeInNearest({200, 300, 400, 300}, two), QPoint(200, 300));
}

TEST(ScreenReach, TheNearestOfSeveralScreensIsTaken) {
    EXPECT_EQ(placeInNearest({3000, 400, 400, 300}, two), QPoint(2224, 400));
    EXPECT_EQ(placeInNearest({1700, 1000, 400, 300}, two), QPoint(1700, 668));
    EXPECT_EQ(placeInNearest({-900, 400, 400, 300}, two), QPoint(0, 400));
}

TEST(ScreenReach, AWindowLargerThanTheScreenBeginsWhereTheScreenBegins) {
    EXPECT_EQ(placeInNearest({2400, 900, 2000, 1200}, two), QPoint(1600, 200));
}

TEST(ScreenReach, AWindowThatComesBackLeavesThePanelsFree) {
    const Screens panel{{{0, 0, 1600, 900}, {64, 30, 1536, 870}}};
    EXPECT_EQ(placeInNearest({-500, -500, 300, 200}, panel), QPoint(64, 30));
}

TEST(PlaceBeside, AWindowThatLiesOverNoneStays) {
    EXPECT_EQ(placeBeside({100, 100, 300, 200}, {{400, 100, 300, 200}}, {two[0]}),
              QPoint(100, 100));
}

TEST(PlaceBeside, AWindowMovesTheShortestWayToAFreePlace) {
    const QRect taken(500, 600, 500, 250);
    EXPECT_EQ(placeBeside({460, 740, 680, 120}, {taken}, {two[0]}), QPoint(460, 470));
    EXPECT_EQ(placeBeside({510, 600, 100, 200}, {taken}, {two[0]}), QPoint(390, 600));
    EXPECT_EQ(placeBeside({920, 610, 200, 200}, {taken}, {two[0]}), QPoint(1010, 610));
}

TEST(PlaceBeside, OverNoneOfSeveralWindowsAndWithinAScreen) {
    const std::vector<QRect> taken{{500, 600, 500, 250}, {440, 470, 680, 120}};
    EXPECT_EQ(placeBeside({900, 595, 200, 280}, taken, {two[0]}), QPoint(1010, 595));
    EXPECT_EQ(placeBeside({500, 590, 700, 280}, taken, {two[0]}), QPoint(500, 180));
}

TEST(PlaceBeside, WithoutRoomAWindowStays) {
    EXPECT_EQ(placeBeside({500, 500, 700, 500}, {{300, 300, 1000, 400}}, {two[0]}),
              QPoint(500, 500));
}

TEST(ScreenReach, AWindowInReachKeepsItsPlaceToTheTwip) {
    QWidget window;
    window.resize(400, 300);
    WindowPlace place(window);
    place.moveTo(25505.5F, 4501.0F); // pixels 1700, 300
    place.comeIntoReach({0, 0, 350, 28}, two);
    EXPECT_EQ(place.Left(), 25505.5F);
    EXPECT_EQ(place.Top(), 4501.0F);
    place.comeIntoReach({0, 0, 350, 28}, {two[0]});
    EXPECT_EQ(place.Left(), 1200.0F * 15);
    EXPECT_EQ(place.Top(), 4501.0F);
}

} // namespace
} // namespace velorin
