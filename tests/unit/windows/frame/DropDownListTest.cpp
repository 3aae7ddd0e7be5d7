// Drop-down lists, opened.
#include "windows/frame/DropDownList.h"

#include "windows/frame/Look.h"

#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QApplication>

using namespace velorin;

namespace {

struct DropDownListTest : testing::Test {
    static void SetUpTestSuite() { applyLook(*qApp); }

    /// The row of an entry in the open list.
    QRect rowOf(int entry) { return list.view()->visualRect(list.model()->index(entry, 0)); }
    void fill(int entries) {
        for (int entry = 0; entry < entries; ++entry)
            list.addItem(QString("Entry %1").arg(entry));
        list.setGeometry(20, 20, 194, 26);
        window.setGeometry(50, 50, 300, 100);
        window.show();
    }

    QWidget window;
    DropDownList list{&window};
};

TEST_F(DropDownListTest, RowsAre24High) {
    fill(7);
    list.setCurrentIndex(1);
    list.showPopup();
    for (int entry = 0; entry < 7; ++entry)
        EXPECT_EQ(rowOf(entry), QRect(0, 24 * entry, rowOf(0).width(), 24)) << entry;
    EXPECT_EQ(list.view()->viewport()->height(), 7 * 24);
    list.hidePopup();
}

TEST_F(DropDownListTest, OfALongListEighteenRowsAreShownWithTheCurrentOneInTheMiddle) {
    fill(60);
    list.setCurrentIndex(30);
    list.showPopup();
    EXPECT_EQ(list.view()->viewport()->height(), 18 * 24);
    EXPECT_NEAR(rowOf(30).center().y(), 9 * 24, 24);
    list.hidePopup();
}

TEST_F(DropDownListTest, TheOpenListIsMadeWhenItIsOpened) {
    fill(60);
    EXPECT_EQ(list.findChild<QAbstractItemView*>(), nullptr);
    list.showPopup();
    EXPECT_NE(list.findChild<QAbstractItemView*>(), nullptr);
    list.hidePopup();
}

TEST_F(DropDownListTest, TheOpenListHasTheFontOfTheField) {
    list.setStyleSheet("font-size: 17px;");
    fill(7);
    list.showPopup();
    EXPECT_EQ(list.view()->font().pixelSize(), 17);
    EXPECT_EQ(list.view()->font(), list.font());
    list.hidePopup();
}

} // namespace
