// Notices: one after the other, each until the user closes it, out of the way of everything else.
#include "windows/help/NoticeWindow.h"

#include "support/ScriptedNotices.h"
#include "support/ScriptedPlatform.h"

#include <gmock/gmock.h>

#include <QAccessible>
#include <QApplication>
#include <QDialog>
#include <QLabel>
#include <QTest>
#include <QToolButton>

using testing::ElementsAre;
using testing::IsEmpty;

namespace velorin {
namespace {

class NoticeWindowTest : public testing::Test {
protected:
    NoticeWindowTest() {
        main.setGeometry(20, 30, 700, 500);
        tableau.setGeometry(50, 100, 600, 350);
        main.show();
        window.openScore = [this](const std::string& path) { opened.push_back(path); };
        window.start(notices, tableau);
    }

    void post(const std::string& text, const std::string& score = {}) {
        notices.post({text, score});
        notices.callback();
    }
    [[nodiscard]] bool shown() const { return window.window() && window.window()->isVisible(); }
    [[nodiscard]] std::string text() const {
        return window.window()->findChild<QLabel*>("Label1")->text().toStdString();
    }
    void clickText() { QTest::mouseClick(window.window(), Qt::LeftButton, {}, {30, 20}); }
    void clickButton() { window.window()->findChild<QToolButton*>("imgTitleClose")->click(); }

    scripted::ScriptedNotices notices;
    QWidget main;
    QWidget tableau{&main};
    scripted::ScriptedDesktop desktop; ///< of 1024 by 768 pixels
    NoticeWindow window{desktop};
    std::vector<std::string> opened;
};

TEST_F(NoticeWindowTest, ANoticeStandsInTheLowerRightCornerOfTheTableau) {
    post("The disk is full.");
    ASSERT_TRUE(shown());
    EXPECT_EQ(text(), "The disk is full.");
    const QRect notice = window.window()->geometry();
    EXPECT_EQ(notice.width(), 360);
    EXPECT_EQ(notice.x() + notice.width() + 12, 20 + 50 + 600);
    EXPECT_EQ(notice.y() + notice.height() + 12, 30 + 100 + 350);
}

TEST_F(NoticeWindowTest, ANoticeLiesWhollyOnTheScreen) {
    main.move(600, 500);
    post("The disk is full.");
    const QRect notice = window.window()->geometry();
    EXPECT_EQ(notice.x() + notice.width(), 1024);
    EXPECT_EQ(notice.y() + notice.height(), 768);
}

TEST_F(NoticeWindowTest, ANoticeCoversNoToolWindow) {
    QWidget toolbar(nullptr, Qt::Tool | Qt::FramelessWindowHint);
    toolbar.setGeometry(300, 380, 200, 120);
    toolbar.show();
    post("The disk is full.");
    EXPECT_EQ(window.window()->y(), 30 + 100 + 12);
    EXPECT_FALSE(window.window()->geometry().intersects(toolbar.geometry()));
}

TEST_F(NoticeWindowTest, NoticesComeOneAfterTheOther) {
    post("first");
    post("second");
    post("third");
    EXPECT_EQ(text(), "first");
    clickText();
    EXPECT_EQ(text(), "second");
    clickButton();
    EXPECT_EQ(text(), "third");
    QTest::keyClick(window.window(), Qt::Key_Escape);
    EXPECT_FALSE(shown());
}

TEST_F(NoticeWindowTest, EscapeAndTheButtonCloseANoticeAndOpenNoScore) {
    post("recovered", "a.sng");
    QTest::keyClick(window.window(), Qt::Key_Escape);
    EXPECT_FALSE(shown());
    post("recovered", "a.sng");
    clickButton();
    EXPECT_FALSE(shown());
    post("recovered", "a.sng");
    window.window()->close();
    EXPECT_FALSE(shown());
    EXPECT_THAT(opened, IsEmpty());
}

TEST_F(NoticeWindowTest, EnterOnTheFocusedButtonClosesAndOpensNoScore) {
    post("recovered", "a.sng");
    auto* const button = window.window()->findChild<QToolButton*>("imgTitleClose");
    window.window()->activateWindow();
    button->setFocus(Qt::TabFocusReason);
    QTest::keyClick(button, Qt::Key_Return);
    EXPECT_FALSE(shown());
    EXPECT_THAT(opened, IsEmpty());
}

TEST_F(NoticeWindowTest, AClickOnTheTextOpensTheScoreOfTheNoticeOnce) {
    post("recovered", "a.sng");
    clickText();
    EXPECT_FALSE(shown());
    EXPECT_THAT(opened, ElementsAre("a.sng"));
    post("no score");
    clickText();
    EXPECT_THAT(opened, ElementsAre("a.sng"));
}

TEST_F(NoticeWindowTest, OpeningMayPostTheNextNotice) {
    window.openScore = [this](const std::string&) { post("it is gone"); };
    post("recovered", "a.sng");
    clickText();
    EXPECT_TRUE(shown());
    EXPECT_EQ(text(), "it is gone");
}

TEST_F(NoticeWindowTest, ANoticeAsksForNoKeyboard) {
    post("news");
    EXPECT_TRUE(window.window()->testAttribute(Qt::WA_ShowWithoutActivating));
    EXPECT_FALSE(window.window()->isModal());
}

TEST_F(NoticeWindowTest, ANoticeGoesWhileTheMainWindowIsMinimised) {
    post("news");
    main.setWindowState(Qt::WindowMinimized);
    QApplication::processEvents();
    EXPECT_FALSE(shown());
    post("more news");
    EXPECT_FALSE(shown());
    main.setWindowState(Qt::WindowNoState);
    QApplication::processEvents();
    EXPECT_TRUE(shown());
    EXPECT_EQ(text(), "news");
}

TEST_F(NoticeWindowTest, ANoticeGoesWhileADialogIsOpen) {
    post("news");
    QDialog dialog(&main);
    dialog.setModal(true);
    dialog.show();
    EXPECT_FALSE(shown());
    dialog.hide();
    EXPECT_TRUE(shown());
}

TEST_F(NoticeWindowTest, ANoticeDoesNotFollowTheMainWindow) {
    post("news");
    const QPoint place = window.window()->pos();
    main.move(100, 100);
    EXPECT_EQ(window.window()->pos(), place);
}

TEST_F(NoticeWindowTest, TheEndHidesTheNoticeAndLeavesTheOthersUnread) {
    post("first");
    post("second");
    window.stop();
    EXPECT_FALSE(shown());
    EXPECT_FALSE(notices.callback);
    EXPECT_EQ(notices.posted.size(), 1U);
}

TEST_F(NoticeWindowTest, AnAlertIsAnnouncedWithTheText) {
    post("The disk is full.\r\nMake room.");
    const QAccessibleInterface* const node = QAccessible::queryAccessibleInterface(window.window());
    ASSERT_NE(node, nullptr);
    EXPECT_EQ(node->role(), QAccessible::AlertMessage);
    EXPECT_EQ(node->text(QAccessible::Name), "Notice: The disk is full. Make room.");
}

} // namespace
} // namespace velorin
