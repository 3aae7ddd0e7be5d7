// Showing and unloading tool windows: a tool without a window is ignored.
#include "windows/frame/ToolWindows.h"

#include "studio/Run.h"
#include "support/ScriptedPlatform.h"
#include "windows/frame/HoldingLoop.h"
#include "windows/frame/ToolFrame.h"
#include "windows/frame/ToolWindow.h"

#include <gmock/gmock.h>

#include <QWidget>

#include <memory>

using testing::ElementsAre;

namespace velorin {
namespace {

struct PlainToolWindow final : ToolWindow {
    QWidget* window() override { return widget.get(); }
    QWidget& load() override {
        if (!widget)
            widget = std::make_unique<QWidget>();
        return *widget;
    }
    void unload() override { widget.reset(); }

    std::unique_ptr<QWidget> widget;
};

struct ToolWindowsTest : testing::Test {
    ToolWindowsTest() {
        windows.add(Tool::setup, setup);
        windows.add(Tool::history, history);
    }

    scripted::ScriptedPlatform host;
    velorin::Run run;
    HoldingLoop loop{host.time};
    PlainToolWindow setup;
    PlainToolWindow history;
    ToolWindows windows{host.platform, run, loop};
};

TEST_F(ToolWindowsTest, AToolWithoutAWindowIsNeitherLoadedNorShownNorUnloaded) {
    const auto before = windows.order();
    for (const Tool tool : {Tool::editing, Tool::recording, Tool::tutorial}) {
        EXPECT_EQ(windows.window(tool), nullptr);
        EXPECT_EQ(windows.load(tool), nullptr);
        windows.show(tool);
        EXPECT_EQ(windows.window(tool), nullptr);
        windows.unload(tool);
    }
    EXPECT_EQ(windows.order(), before);
    EXPECT_EQ(windows.active(), std::nullopt);
}

TEST_F(ToolWindowsTest, ToolsWithoutAWindowDoNotHinderTheOthers) {
    run.Form2Open = run.Form3Open = run.RecordToolbarOpen = run.WizOpen = flagSet;
    windows.show(Tool::setup);
    ASSERT_TRUE(setup.widget->isVisible());
    windows.HideToolbars();
    EXPECT_FALSE(setup.widget->isVisible());
    windows.ShowToolbars();
    EXPECT_TRUE(setup.widget->isVisible());
    windows.setTopMost(false);
    windows.hideWithMain();
    EXPECT_FALSE(setup.widget->isVisible());
    windows.showWithMain();
    EXPECT_TRUE(setup.widget->isVisible());
    windows.unload(Tool::setup);
    EXPECT_EQ(windows.window(Tool::setup), nullptr);
}

TEST_F(ToolWindowsTest, AWindowIsLoadedByItsFirstUseAndLiesAboveTheOthersOnceItIsShown) {
    EXPECT_EQ(windows.window(Tool::setup), nullptr);
    ASSERT_NE(windows.load(Tool::setup), nullptr);
    EXPECT_EQ(windows.window(Tool::setup), setup.widget.get());
    EXPECT_FALSE(setup.widget->isVisible());
    windows.show(Tool::setup);
    EXPECT_TRUE(setup.widget->isVisible());
    EXPECT_THAT(windows.order(),
                ElementsAre(Tool::editing, Tool::recording, Tool::tutorial, Tool::setup));
}

TEST_F(ToolWindowsTest, TheHistoryIsAmongTheWindowsWhileItIsLoaded) {
    windows.HideToolbars();
    windows.ShowToolbars();
    EXPECT_EQ(history.widget, nullptr);
    EXPECT_THAT(windows.order(),
                ElementsAre(Tool::editing, Tool::setup, Tool::recording, Tool::tutorial));
    windows.show(Tool::history);
    EXPECT_EQ(windows.order().back(), Tool::history);
    windows.HideToolbars();
    EXPECT_FALSE(history.widget->isVisible());
    windows.ShowToolbars();
    EXPECT_TRUE(history.widget->isVisible());
    windows.hideWithMain();
    EXPECT_FALSE(history.widget->isVisible());
    windows.showWithMain();
    EXPECT_TRUE(history.widget->isVisible());
    windows.unload(Tool::history);
    EXPECT_EQ(windows.window(Tool::history), nullptr);
}

TEST_F(ToolWindowsTest, AProgramThatEndsShowsNoWindowAndThenLoadsNone) {
    windows.stopShowing();
    windows.show(Tool::setup);
    EXPECT_EQ(windows.window(Tool::setup), nullptr);
    ASSERT_NE(windows.load(Tool::setup), nullptr);
    EXPECT_EQ(windows.window(Tool::setup), setup.widget.get());
    windows.unload(Tool::setup);
    windows.stopLoading();
    EXPECT_EQ(windows.load(Tool::setup), nullptr);
}

/// A tool that has a framed window of 300 by 200.
struct FramedToolWindow final : ToolWindow {
    explicit FramedToolWindow(FrameState& state)
        : frame({"Form3", "Setup", "", {300, 200}}, state) {}
    QWidget* window() override { return &frame; }
    QWidget& load() override { return frame; }
    void unload() override {}

    ToolFrame frame;
};

struct ArrangeTest : testing::Test {
    ArrangeTest() {
        host.desktop.screen = {1000, 700};
        windows.add(Tool::editing, low);
        windows.add(Tool::setup, middle);
        windows.add(Tool::recording, high);
    }

    void showAt(FramedToolWindow& tool, QPoint place) {
        tool.frame.place.moveTo(static_cast<float>(place.x() * 15),
                                static_cast<float>(place.y() * 15));
        tool.frame.show();
    }

    scripted::ScriptedPlatform host;
    velorin::Run run;
    HoldingLoop loop{host.time};
    ToolWindows windows{host.platform, run, loop};
    FramedToolWindow low{windows.frames};
    FramedToolWindow middle{windows.frames};
    FramedToolWindow high{windows.frames};
};

TEST_F(ArrangeTest, WindowsThatCoverEachOtherMoveApartAndTheLowestStays) {
    showAt(low, {100, 100});
    showAt(middle, {120, 110});
    showAt(high, {100, 100});
    windows.arrange();
    EXPECT_EQ(low.frame.pos(), QPoint(100, 100));
    const QRect screen(0, 0, 1000, 700);
    for (const FramedToolWindow* one : {&low, &middle, &high}) {
        EXPECT_TRUE(screen.contains(one->frame.geometry()));
        for (const FramedToolWindow* other : {&low, &middle, &high}) {
            EXPECT_TRUE(one == other || !one->frame.geometry().intersects(other->frame.geometry()));
        }
    }
}

TEST_F(ArrangeTest, AWindowThatCoversNoneStays) {
    showAt(low, {0, 0});
    showAt(middle, {500, 300});
    windows.arrange();
    EXPECT_EQ(low.frame.pos(), QPoint(0, 0));
    EXPECT_EQ(middle.frame.pos(), QPoint(500, 300));
    EXPECT_FALSE(high.frame.isVisible());
}

TEST_F(ArrangeTest, TheTitlesMenuArranges) {
    showAt(low, {100, 100});
    showAt(middle, {120, 110});
    windows.noteMade(middle.frame);
    host.menus.choices = {"arrange"};
    middle.frame.lblTitle->customContextMenuRequested({});
    EXPECT_FALSE(low.frame.geometry().intersects(middle.frame.geometry()));
}

} // namespace
} // namespace velorin
