// The places of the frame's pieces and handles, and the drag of a handle.
#include "windows/frame/SkinnedFrame.h"
#include "windows/frame/WindowPlace.h"

#include <gtest/gtest.h>

#include <QWidget>

namespace velorin {
namespace {

constexpr QSize window{1280, 800};

void expectRect(const TwipsRect& rect, float left, float top, float width, float height) {
    EXPECT_FLOAT_EQ(rect.left, left);
    EXPECT_FLOAT_EQ(rect.top, top);
    EXPECT_FLOAT_EQ(rect.width, width);
    EXPECT_FLOAT_EQ(rect.height, height);
}

TEST(SkinnedFrame, ThePiecesOfTheMainWindowArePlacedByTheirTable) {
    EXPECT_EQ(frameRect(FrameKind::main, 0, window), QRect(-1, 0, 30, 30));
    EXPECT_EQ(frameRect(FrameKind::main, 1, window), QRect(1250, -2, 30, 30));
    EXPECT_EQ(frameRect(FrameKind::main, 2, window), QRect(20, -2, 1261, 27));
    EXPECT_EQ(frameRect(FrameKind::main, 3, window), QRect(0, 22, 26, 762));
    EXPECT_EQ(frameRect(FrameKind::main, 4, window), QRect(-1, 770, 30, 30));
    EXPECT_EQ(frameRect(FrameKind::main, 5, window), QRect(20, 774, 1240, 26));
    EXPECT_EQ(frameRect(FrameKind::main, 6, window), QRect(1250, 770, 30, 30));
    EXPECT_EQ(frameRect(FrameKind::main, 7, window), QRect(1256, 22, 24, 748));
}

TEST(SkinnedFrame, TheHandlesArePlacedByTheirTable) {
    EXPECT_EQ(handleRect(0, window), QRect(0, 20, 10, 760));
    EXPECT_EQ(handleRect(1, window), QRect(1270, 30, 10, 750));
    EXPECT_EQ(handleRect(2, window), QRect(19, 0, 1241, 10));
    EXPECT_EQ(handleRect(3, window), QRect(19, 790, 1241, 10));
    EXPECT_EQ(handleRect(4, window), QRect(1260, 780, 20, 20));
    EXPECT_EQ(handleRect(5, window), QRect(0, 780, 20, 20));
    EXPECT_EQ(handleRect(6, window), QRect(1260, 0, 20, 20));
    EXPECT_EQ(handleRect(7, window), QRect(0, 0, 20, 20));
}

// The pointer moves by (10, 20) pixels, which are 150 and 300 twips.
TEST(SkinnedFrame, EachHandleMovesItsOwnEdges) {
    const TwipsRect start{1500, 3000, 9600, 7200};
    const QPoint moved(10, 20);
    expectRect(resizedByHandle(start, 0, moved), 1650, 3000, 9450, 7200);
    expectRect(resizedByHandle(start, 1, moved), 1500, 3000, 9750, 7200);
    expectRect(resizedByHandle(start, 2, moved), 1500, 3300, 9600, 6900);
    expectRect(resizedByHandle(start, 3, moved), 1500, 3000, 9600, 7500);
    expectRect(resizedByHandle(start, 4, moved), 1500, 3000, 9750, 7500);
    expectRect(resizedByHandle(start, 5, moved), 1650, 3000, 9450, 7500);
    expectRect(resizedByHandle(start, 6, moved), 1500, 3300, 9750, 6900);
    expectRect(resizedByHandle(start, 7, moved), 1650, 3300, 9450, 6900);
}

// 57 by 90 pixels are 855 by 1350 twips. The place moves all the same.
TEST(SkinnedFrame, ADragLeavesNoLessThanTheSmallestWindow) {
    const TwipsRect start{0, 0, 9600, 7200};
    expectRect(resizedByHandle(start, 4, {-1000, -1000}), 0, 0, 855, 1350);
    expectRect(resizedByHandle(start, 7, {1000, 1000}), 15000, 15000, 855, 1350);
}

TEST(SkinnedFrame, AHandleThatDoesNotExistMovesNothing) {
    expectRect(resizedByHandle({1, 2, 9600, 7200}, 8, {5, 5}), 1, 2, 9600, 7200);
}

TEST(SkinnedFrame, TheHandlesShowOnlyWithTheFlagAndStayThenAsTheyAre) {
    QWidget owner;
    owner.resize(640, 480);
    FrameState state;
    SkinnedFrame frame(owner, FrameKind::main, 25, state);
    frame.SkinMainWindow(flagClear);
    EXPECT_TRUE(frame.Resizer[0]->isHidden());
    EXPECT_EQ(state.WindowResizable, 0);

    frame.SkinMainWindow(flagSet);
    EXPECT_FALSE(frame.Resizer[0]->isHidden());
    EXPECT_EQ(frame.Resizer[1]->geometry(), QRect(630, 30, 10, 430));
    EXPECT_EQ(state.WindowResizable, 1);

    owner.resize(800, 600);
    frame.SkinMainWindow(flagClear);
    EXPECT_EQ(frame.Resizer[1]->geometry(), QRect(630, 30, 10, 430));
    EXPECT_EQ(frame.Winedge[7]->geometry(), QRect(776, 22, 24, 548));
    EXPECT_EQ(state.RegionCount, 3);
}

TEST(WindowPlace, APlaceBetweenPixelsIsKeptUntilTheWindowMoves) {
    QWidget owner;
    WindowPlace place(owner);
    place.moveTo(100.0F, 200.0F); // 6.67 and 13.33 pixels
    EXPECT_EQ(owner.pos(), QPoint(7, 13));
    EXPECT_FLOAT_EQ(place.Left(), 100.0F);
    EXPECT_FLOAT_EQ(place.Top(), 200.0F);
    owner.move(8, 13);
    EXPECT_FLOAT_EQ(place.Left(), 120.0F);
    EXPECT_FLOAT_EQ(place.Top(), 200.0F);
}

TEST(WindowPlace, ASizeBetweenPixelsIsKeptUntilTheWindowIsResized) {
    QWidget owner;
    WindowPlace place(owner);
    place.resizeTo(15160.0F, 11120.0F); // 1010.67 and 741.33 pixels
    EXPECT_EQ(owner.size(), QSize(1011, 741));
    EXPECT_FLOAT_EQ(place.Width(), 15160.0F);
    owner.resize(640, 480);
    EXPECT_FLOAT_EQ(place.Width(), 9600.0F);
    EXPECT_FLOAT_EQ(place.Height(), 7200.0F);
}

} // namespace
} // namespace velorin
