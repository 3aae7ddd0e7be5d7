// The line that tells what a key did.
#include "windows/help/ShortHint.h"

#include <gtest/gtest.h>

#include <QTest>
#include <QWidget>

using namespace velorin;

TEST(ShortHintTest, ShowsOverTheWindowInPlaceOfTheOneBefore) {
    QWidget window;
    window.setGeometry(100, 50, 640, 480);
    window.show();
    ShortHint hint;
    EXPECT_EQ(hint.text(), "");
    hint.show(window, "There is nothing to take back.");
    EXPECT_EQ(hint.text(), "There is nothing to take back.");
    hint.show(window, "There is nothing to make again.");
    EXPECT_EQ(hint.text(), "There is nothing to make again.");
    hint.hide();
    EXPECT_EQ(hint.text(), "");
}

TEST(ShortHintTest, GoesOnItsOwn) {
    QWidget window;
    window.show();
    ShortHint hint;
    hint.show(window, "Gone soon.");
    EXPECT_TRUE(QTest::qWaitFor([&hint] { return hint.text().empty(); }, 60'000));
}

TEST(ShortHintTest, DoesNotShowOverAHiddenWindow) {
    QWidget window;
    ShortHint hint;
    hint.show(window, "Nobody would see it.");
    EXPECT_EQ(hint.text(), "");
}
