// The message loop, the settings, the timers and the dialog filters on Qt.
#include "host/QtDialogs.h"
#include "host/QtMessageLoop.h"
#include "host/QtSettings.h"
#include "host/QtTimers.h"
#include "host/SystemClock.h"

#include <gmock/gmock.h>

#include <QCoreApplication>
#include <QFile>
#include <QTemporaryDir>
#include <QTimer>

using testing::ElementsAre;

namespace velorin::host {
namespace {

constexpr std::int64_t oneMs = 1'000'000;

struct QtHostTest : testing::Test {
    int argc = 1;
    char name[8] = "velorin";
    char* argv[2] = {name, nullptr};
    QCoreApplication application{argc, argv};
    SystemClock clock;
    QtMessageLoop loop{clock};
};

TEST_F(QtHostTest, AWaitEndsAtItsDeadlineAndNotBefore) {
    const std::int64_t end = clock.QueryPerformanceCounter() + 20 * oneMs;
    while (clock.QueryPerformanceCounter() < end)
        loop.waitUntil(end);
    EXPECT_GE(clock.QueryPerformanceCounter(), end);
}

TEST_F(QtHostTest, AWaitReturnsWhenAnEventHasBeenServed) {
    bool served = false;
    QTimer::singleShot(5, [&served] { served = true; });
    const std::int64_t end = clock.QueryPerformanceCounter() + 10'000 * oneMs;
    while (!served)
        loop.waitUntil(end);
    EXPECT_LT(clock.QueryPerformanceCounter(), end);
}

TEST_F(QtHostTest, NoWaitLastsAfterTheEnd) {
    loop.end();
    EXPECT_TRUE(loop.isEnding());
    const std::int64_t end = clock.QueryPerformanceCounter() + 10'000 * oneMs;
    loop.waitUntil(end);
    EXPECT_LT(clock.QueryPerformanceCounter(), end);
}

TEST_F(QtHostTest, TimersFireInTheirOrderUnlessTheyAreCancelled) {
    QtTimers timers;
    std::vector<int> fired;
    const int late = timers.after(10'000, [&fired] { fired.push_back(10'000); });
    const int cancelled = timers.after(2, [&fired] { fired.push_back(2); });
    timers.after(4, [&fired] { fired.push_back(4); });
    timers.cancel(cancelled);
    timers.cancel(12345);
    const auto waitFor = [this, &fired](std::size_t count) {
        while (fired.size() < count)
            loop.waitUntil(clock.QueryPerformanceCounter() + 50 * oneMs);
    };
    waitFor(1);
    EXPECT_THAT(fired, ElementsAre(4)) << "though it was set after the late one";
    timers.cancel(late);
    timers.after(8, [&fired] { fired.push_back(8); });
    waitFor(2);
    EXPECT_THAT(fired, ElementsAre(4, 8));
}

TEST_F(QtHostTest, SettingsComeBackInTheNextRunWhateverTheCaseOfTheirKeys) {
    const QTemporaryDir folder;
    const QString file = folder.filePath("sub folder/Velorin 2.1.ini");
    {
        QtSettings settings(file);
        settings.SaveSetting("Settings", "form1 Width", "9600");
        settings.SaveSetting("Settings", "Odd", "a, \"b\" = \xC3\xBC; %20");
        EXPECT_EQ(settings.GetSetting("Settings", "FORM1 WIDTH", "1"), "9600");
    }
    QtSettings settings(file);
    EXPECT_EQ(settings.GetSetting("settings", "form1 width", "1"), "9600");
    EXPECT_EQ(settings.GetSetting("Settings", "odd", ""), "a, \"b\" = \xC3\xBC; %20");
    EXPECT_EQ(settings.GetSetting("Settings", "absent", "fallback"), "fallback");
}

TEST_F(QtHostTest, ADamagedSettingsFileCountsAsAnEmptyOne) {
    const QTemporaryDir folder;
    const QString file = folder.filePath("settings.ini");
    QFile damaged(file);
    ASSERT_TRUE(damaged.open(QIODevice::WriteOnly));
    damaged.write(QByteArray("\0\xFF[[[\n=\n%zz", 12));
    damaged.close();
    QtSettings settings(file);
    EXPECT_EQ(settings.GetSetting("Settings", "Form3", "True"), "True");
}

TEST_F(QtHostTest, FilterPairsAreWrittenAsTheDialogReadsThem) {
    EXPECT_EQ(nameFilters("Midi(*.mid)|*.mid|score(*.sng)|*.sng"),
              QStringList({"Midi (*.mid)", "score (*.sng)"}));
    EXPECT_EQ(nameFilters("Sound|*.wav;*.mp3|odd"), QStringList({"Sound (*.wav *.mp3)"}));
}

} // namespace
} // namespace velorin::host
