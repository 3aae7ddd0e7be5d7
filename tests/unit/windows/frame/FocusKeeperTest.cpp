// Only users and code move the focus, and its handlers run in one order.
#include "windows/frame/FocusKeeper.h"

#include <gmock/gmock.h>

#include <QApplication>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QVBoxLayout>

using testing::ElementsAre;

namespace {

struct FocusKeeperTest : testing::Test {
    FocusKeeperTest() {
        for (QWidget* control : {first, second, third}) {
            control->setFocusPolicy(Qt::TabFocus);
            keeper.onGot(control, [this, control] { note("got", control); });
            keeper.onLost(control, [this, control] { note("lost", control); });
        }
        first->setObjectName("first");
        second->setObjectName("second");
        third->setObjectName("third");
        window.show();
        QApplication::processEvents();
    }

    void note(const char* what, const QWidget* control) {
        log.push_back(std::string(what) + " " + control->objectName().toStdString());
    }

    void windowSystemFocuses(QWidget* control, Qt::FocusReason reason) {
        QFocusEvent event(QEvent::FocusIn, reason);
        QApplication::sendEvent(control, &event);
    }

    velorin::FocusKeeper keeper;
    QWidget window;
    QWidget* first = new QWidget(&window);
    QWidget* second = new QWidget(&window);
    QWidget* third = new QWidget(&window);
    std::vector<std::string> log;
};

} // namespace

TEST_F(FocusKeeperTest, NothingHasTheFocusWhenAWindowIsShown) {
    EXPECT_EQ(keeper.current(), nullptr);
    EXPECT_TRUE(log.empty());
}

TEST_F(FocusKeeperTest, TheOldControlLosesTheFocusBeforeTheNewOneGetsIt) {
    keeper.give(first);
    keeper.give(second);
    EXPECT_EQ(keeper.current(), second);
    EXPECT_THAT(log, ElementsAre("got first", "lost first", "got second"));
}

TEST_F(FocusKeeperTest, TheFirstControlOfAWindowThatBecomesActiveDoesNotGetTheKeyboard) {
    first->setFocus(Qt::ActiveWindowFocusReason);
    windowSystemFocuses(first, Qt::ActiveWindowFocusReason);
    EXPECT_FALSE(first->hasFocus());
    EXPECT_EQ(keeper.current(), nullptr);
}

TEST_F(FocusKeeperTest, WhoHadItKeepsTheKeyboardWhenTheWindowBecomesActiveAgain) {
    keeper.give(first);
    keeper.give(second);
    first->setFocus(Qt::ActiveWindowFocusReason);
    windowSystemFocuses(first, Qt::ActiveWindowFocusReason);
    EXPECT_EQ(window.focusWidget(), first);
}

TEST_F(FocusKeeperTest, GivingItToWhoHasItRunsNothing) {
    keeper.give(first);
    log.clear();
    keeper.give(first);
    EXPECT_TRUE(log.empty());
}

TEST_F(FocusKeeperTest, ADisabledOrHiddenControlDoesNotTakeIt) {
    keeper.give(first);
    log.clear();
    second->setEnabled(false);
    third->hide();
    keeper.give(second);
    keeper.give(third);
    EXPECT_EQ(keeper.current(), first);
    EXPECT_TRUE(log.empty());
}

TEST_F(FocusKeeperTest, AMoveOfTheWindowSystemsOwnDoesNotCount) {
    windowSystemFocuses(first, Qt::ActiveWindowFocusReason);
    windowSystemFocuses(second, Qt::PopupFocusReason);
    windowSystemFocuses(third, Qt::TabFocusReason); // no Tab was pressed
    EXPECT_EQ(keeper.current(), nullptr);
}

TEST_F(FocusKeeperTest, ATabOfTheUserCounts) {
    QKeyEvent press(QEvent::KeyPress, Qt::Key_Tab, Qt::NoModifier);
    QApplication::sendEvent(&window, &press);
    windowSystemFocuses(second, Qt::TabFocusReason);
    EXPECT_EQ(keeper.current(), second);
}

TEST_F(FocusKeeperTest, AControlThatIsDisabledKeepsTheFocus) {
    keeper.give(first);
    first->setEnabled(false);
    EXPECT_EQ(keeper.current(), first);
    EXPECT_THAT(log, ElementsAre("got first"));
}

TEST_F(FocusKeeperTest, ALostFocusHandlerMayPassTheFocusOn) {
    keeper.give(first);
    keeper.onLost(first, [this] { keeper.give(third); });
    log.clear();
    keeper.give(second);
    EXPECT_EQ(keeper.current(), third);
    EXPECT_THAT(log, ElementsAre("lost second", "got third"));
}

TEST_F(FocusKeeperTest, TheFocusGoesWithItsControl) {
    keeper.give(first);
    delete first;
    EXPECT_EQ(keeper.current(), nullptr);
    keeper.give(second);
    EXPECT_EQ(keeper.current(), second);
}
