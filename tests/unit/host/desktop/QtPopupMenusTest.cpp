// Where the popup menus appear.
#include "host/desktop/QtPopupMenus.h"

#include "host/loop/QtMessageLoop.h"
#include "host/process/SystemClock.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QCursor>
#include <QTest>
#include <QTimer>
#include <QToolButton>

namespace velorin::host {
namespace {

struct QtPopupMenusTest : testing::Test {
    QtPopupMenusTest() {
        window.setGeometry(100, 100, 400, 300);
        button.setGeometry(20, 30, 36, 36);
        window.show();
    }

    /// Opens a menu, notes its place and closes it.
    QPoint placeOfMenu() {
        QPoint place;
        QTimer::singleShot(0, [&place] {
            QWidget* const menu = QApplication::activePopupWidget();
            ASSERT_NE(menu, nullptr);
            place = menu->pos();
            menu->close();
        });
        EXPECT_EQ(menus.PopupMenu("menu", {{"one", "One", false}}), "");
        return place;
    }
    void press(QPoint inWindow) {
        QCursor::setPos(window.mapToGlobal(inWindow));
        QTest::mousePress(&window, Qt::LeftButton, {}, inWindow);
    }

    SystemClock clock;
    QtMessageLoop loop{clock};
    QtPopupMenus menus{loop};
    QWidget window;
    QToolButton button{&window};
};

TEST_F(QtPopupMenusTest, MenuOfAButtonIsBelowIt) {
    press({40, 50});
    EXPECT_EQ(placeOfMenu(), button.mapToGlobal(QPoint(0, 36)));
}

TEST_F(QtPopupMenusTest, MenuOfATableauIsAtThePointer) {
    press({200, 200});
    EXPECT_EQ(placeOfMenu(), window.mapToGlobal(QPoint(200, 200)));
}

TEST_F(QtPopupMenusTest, MenuOpenedByAKeyIsBelowTheButtonWithTheFocus) {
    press({200, 200});
    window.activateWindow();
    QCoreApplication::processEvents();
    button.setFocus();
    QTest::keyClick(&button, Qt::Key_F20);
    EXPECT_EQ(placeOfMenu(), button.mapToGlobal(QPoint(0, 36)));
}

} // namespace
} // namespace velorin::host
