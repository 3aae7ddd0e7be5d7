// The message loop, the settings, the timers and the dialog filters on Qt.
#include "host/NoticeBoard.h"
#include "host/QtDialogs.h"
#include "host/QtMessageLoop.h"
#include "host/QtSettings.h"
#include "host/QtTimers.h"
#include "host/SystemClock.h"

#include <gmock/gmock.h>

#include <QCoreApplication>
#include <QEvent>
#include <QEventLoop>
#include <QFile>
#include <QTemporaryDir>
#include <QTimer>

#include <filesystem>
#include <memory>

using testing::ElementsAre;

namespace velorin::host {
namespace {

constexpr std::int64_t oneMs = 1'000'000;

/// Stands for a window that asks to be painted.
struct Painted : QObject {
    int times = 0;
    void ask() { QCoreApplication::postEvent(this, new QEvent(QEvent::UpdateRequest)); }
    bool event(QEvent* event) override {
        times += event->type() == QEvent::UpdateRequest ? 1 : 0;
        return QObject::event(event);
    }
};

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

TEST_F(QtHostTest, ANoticeThatNobodyHasReadWaitsForTheNextRun) {
    const QTemporaryDir folder;
    const std::filesystem::path unread = folder.filePath("state/velorin/n").toStdString();
    testing::internal::CaptureStderr();
    {
        NoticeBoard board(unread);
        board.post({"read", {}});
        board.post({"kept as \"a\"\r\nhere", "/songs/a.sng"});
        EXPECT_EQ(board.take()->text, "read");
    }
    {
        NoticeBoard board(unread);
        board.onPosted([] {}); // a window shows them
        const auto notice = board.take();
        ASSERT_TRUE(notice);
        EXPECT_EQ(notice->text, "kept as \"a\"\r\nhere");
        EXPECT_EQ(notice->scoreToOpen, "/songs/a.sng");
        EXPECT_FALSE(board.take());
    }
    EXPECT_FALSE(std::filesystem::exists(unread));
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "velorin: read\nvelorin: kept as \"a\" here\n")
        << "each is logged once";
}

TEST_F(QtHostTest, ANoticeThatWaitsAlreadyIsNotAddedAgain) {
    NoticeBoard board;
    board.post({"There is no sound card.", {}});
    board.post({"There is no sound card.", {}});
    EXPECT_TRUE(board.take());
    EXPECT_FALSE(board.take());
    board.post({"There is no sound card.", {}});
    EXPECT_TRUE(board.take());
}

TEST_F(QtHostTest, SettingsThatCannotBeWrittenAreReportedInTheWindowOnce) {
    const QTemporaryDir folder;
    QFile inTheWay(folder.filePath("velorin"));
    ASSERT_TRUE(inTheWay.open(QIODevice::WriteOnly));
    NoticeBoard board;
    {
        QtSettings settings(folder.filePath("velorin/settings.ini"), &board);
        settings.SaveSetting("Settings", "Form3", "True");
    }
    const auto notice = board.take();
    ASSERT_TRUE(notice);
    EXPECT_THAT(notice->text, testing::StartsWith("The settings cannot be written to \""));
    EXPECT_FALSE(board.take());
}

TEST_F(QtHostTest, AWaitReturnsWhenAnEventHasBeenServed) {
    bool served = false;
    QTimer::singleShot(5, [&served] { served = true; });
    const std::int64_t end = clock.QueryPerformanceCounter() + 10'000 * oneMs;
    while (!served)
        loop.waitUntil(end);
    EXPECT_LT(clock.QueryPerformanceCounter(), end);
}

TEST_F(QtHostTest, AYieldLeavesPaintingToTheWaitBehindIt) {
    Painted window;
    bool served = false;
    QTimer::singleShot(0, [&served] { served = true; });
    window.ask();
    loop.Yield();
    EXPECT_TRUE(served) << "all else passes";
    EXPECT_EQ(window.times, 0);
    loop.waitUntil(clock.QueryPerformanceCounter() + 1000 * oneMs);
    EXPECT_EQ(window.times, 1);
}

TEST_F(QtHostTest, WhoNeverWaitsIsPaintedAllTheSame) {
    Painted window;
    window.ask();
    while (window.times == 0)
        loop.Yield();
    EXPECT_EQ(window.times, 1);
}

TEST_F(QtHostTest, ADialogOpenedInAYieldIsPainted) {
    Painted window;
    int seenInDialog = 0;
    QTimer::singleShot(0, [&] {
        QEventLoop dialog;
        window.ask();
        QTimer::singleShot(0, &dialog, &QEventLoop::quit);
        dialog.exec();
        seenInDialog = window.times;
    });
    loop.Yield();
    EXPECT_EQ(seenInDialog, 1);
}

TEST_F(QtHostTest, AWaitInAHandlerThatAYieldHasLetThroughPaints) {
    Painted window;
    int seenInWait = 0;
    window.ask();
    QTimer::singleShot(0, [&] {
        window.ask();
        loop.waitUntil(clock.QueryPerformanceCounter() + 1000 * oneMs);
        seenInWait = window.times;
    });
    loop.Yield();
    EXPECT_GT(seenInWait, 0);
}

TEST_F(QtHostTest, AWindowThatIsGoneBeforeItsPaintingIsForgotten) {
    auto window = std::make_unique<Painted>();
    window->ask();
    QTimer::singleShot(0, [&window] { window.reset(); });
    loop.Yield();
    EXPECT_EQ(window, nullptr);
    loop.waitUntil(clock.QueryPerformanceCounter() + oneMs);
}

TEST_F(QtHostTest, ARestSleepsAMillisecondAndServesEvents) {
    int served = 0;
    for (int i = 0; i < 3; ++i)
        QTimer::singleShot(0, [&served] { ++served; });
    const std::int64_t start = clock.QueryPerformanceCounter();
    loop.rest();
    EXPECT_GE(clock.QueryPerformanceCounter(), start + oneMs);
    EXPECT_EQ(served, 3);
}

TEST_F(QtHostTest, NoWaitLastsAfterTheEnd) {
    loop.end();
    EXPECT_TRUE(loop.isEnding());
    const std::int64_t end = clock.QueryPerformanceCounter() + 10'000 * oneMs;
    loop.waitUntil(end);
    loop.rest();
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
              QStringList({"Midi(*.mid)", "score(*.sng)"}));
    EXPECT_EQ(nameFilters("Score Files (*.sng) |*.sng|"), QStringList({"Score Files (*.sng)"}));
    EXPECT_EQ(nameFilters("Midi, wav(*.mid;*.wav)|*.mid;*.wav"),
              QStringList({"Midi, wav (*.mid *.wav)"}));
    EXPECT_EQ(nameFilters("Sound|*.wav;*.mp3|odd"), QStringList({"Sound (*.wav *.mp3)"}));
}

} // namespace
} // namespace velorin::host
