// What the helpers of the layouts do: placeholders and tabs.
#include "windows/frame/PlacedControls.h"

#include "support/contrast/Contrast.h"
#include "windows/frame/Look.h"
#include "windows/frame/LookColors.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QTabBar>
#include <QTest>

#include <algorithm>
#include <vector>

using namespace velorin;

namespace {

TEST(PlacedControls, PlaceholderCanBeRead) {
    applyLook(*qApp);
    QWidget window;
    QLineEdit field(&window);
    field.resize(200, 26);
    setPlaceholder(field, "MMMMMMMMMM");
    window.show();
    const QColor shown = field.palette().color(QPalette::PlaceholderText);
    EXPECT_EQ(shown.alpha(), 255);
    EXPECT_GE(contrast(shown, look::paper), 4.5);
    // The darkest pixels of what is painted: the style sheet has not made it paler.
    const QImage painted = field.grab().toImage();
    double most = 1;
    for (int y = 4; y < 22; ++y)
        for (int x = 10; x < 100; ++x)
            most = std::max(most, contrast(painted.pixelColor(x, y), look::paper));
    EXPECT_GE(most, 4.5);
}

struct TabsTest : testing::Test {
    TabsTest() {
        for (int page = 0; page < 2; ++page) {
            auto* const content = new QWidget(&tabs);
            fields.push_back(new QLineEdit(content));
            tabs.addTab(content, QString("Page %1").arg(page));
        }
        keepFocusOnTabs(tabs);
        tabs.resize(300, 200);
        tabs.show();
        tabs.activateWindow();
        QCoreApplication::processEvents();
    }
    void clickTab(int index) {
        QTest::mouseClick(tabs.tabBar(), Qt::LeftButton, {},
                          tabs.tabBar()->tabRect(index).center());
    }
    QTabWidget tabs;
    std::vector<QLineEdit*> fields;
};

TEST_F(TabsTest, AClickDoesNotGiveTheFocusToTheFirstControlOfThePage) {
    fields[0]->setFocus();
    clickTab(1);
    EXPECT_EQ(tabs.currentIndex(), 1);
    EXPECT_EQ(tabs.focusWidget(), tabs.tabBar());
}

TEST_F(TabsTest, AClickLeavesTheFocusOfAnotherControlAlone) {
    QWidget window;
    auto* const field = new QLineEdit(&window);
    tabs.setParent(&window);
    tabs.show();
    window.show();
    field->setFocus();
    clickTab(1);
    EXPECT_EQ(window.focusWidget(), field);
    tabs.setParent(nullptr);
}

} // namespace
