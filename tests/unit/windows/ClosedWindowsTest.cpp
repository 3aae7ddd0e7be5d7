// Closed windows are destroyed: soon, also in a loop without an end, and not below a handler of
// their own.
#include "WholeProgram.h"

#include "recording/Record.h"
#include "recording/RecordingToolbar.h"
#include "score/Studio.h"

#include <gtest/gtest.h>

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QEvent>
#include <QPointer>

#include <algorithm>
#include <array>
#include <functional>

namespace velorin {
namespace {

struct ClosedWindows : testing::Test, protected WholeProgram {
    ~ClosedWindows() override { host.time.dropPlanned(); }

    void at(double seconds, std::function<void()> run) {
        host.time.plan(static_cast<scripted::Nanoseconds>(seconds * 1e9), std::move(run));
    }

    QPointer<QWidget> opened(const char* name) {
        program.showWindow(name);
        return program.window(name, false);
    }

    /// Closes the window, and lets the event dispatcher go round.
    void close(const char* name) {
        program.unloadWindow(name);
        QCoreApplication::processEvents();
    }

    RecordingToolbar& recording() {
        return dynamic_cast<RecordingToolbar&>(*program.toolWindow("Record"));
    }

    static constexpr std::array names{"Form2", "Form3", "Record", "Wiz"};
};

/// Posts itself again whenever it is served: events without an end.
struct EndlessEvents final : QObject {
    EndlessEvents() { post(); }
    void post() { QCoreApplication::postEvent(this, new QEvent(QEvent::User)); }
    bool event(QEvent* event) override {
        if (event->type() == QEvent::User)
            post();
        return QObject::event(event);
    }
};

TEST_F(ClosedWindows, AreGoneWithinTwoRoundsOfADispatcherThatNeverIdles) {
    EndlessEvents events;
    std::vector<QPointer<QWidget>> all;
    for (int round = 0; round < 20; ++round) {
        const char* const name = names[static_cast<std::size_t>(round) % names.size()];
        all.push_back(opened(name));
        program.unloadWindow(name);
        for (int i = 0; i < 2; ++i)
            QAbstractEventDispatcher::instance()->processEvents(QEventLoop::WaitForMoreEvents);
        EXPECT_EQ(std::count_if(all.begin(), all.end(), [](const auto& each) { return each; }), 0);
    }
}

TEST_F(ClosedWindows, AreDestroyedInTheLoopsThatFollowAWavForTheRestOfTheRun) {
    opened("Form2");
    const QPointer<QWidget> first = opened("Record");
    recording().form().Text6->setText("a.wav");
    int presses = 0;
    std::function<void()> press = [&] {
        recording().form().Cmd2[3]->click();
        if (++presses < 10'000)
            at(0.01, press);
    };
    at(0.01, press);
    at(101.0, [&] {
        EXPECT_EQ(presses, 10'000);
        for (const char* const name : {"Form2", "Form3", "Wiz"}) {
            for (int i = 0; i < 2; ++i) {
                const QPointer<QWidget> window = opened(name);
                close(name);
                EXPECT_EQ(window, nullptr) << name;
            }
        }
        close("Record");
        EXPECT_NE(first, nullptr) << "its handler runs";
        const QPointer<QWidget> second = opened("Record");
        recording().form().Text6->setText("a.wav");
        recording().form().Cmd2[3]->click();
        close("Record");
        EXPECT_EQ(second, nullptr) << "its handler has returned";
        program.Command3_Click();
    });
    recording().form().Cmd2[3]->click();
    QCoreApplication::processEvents();
    EXPECT_EQ(first, nullptr);
}

TEST_F(ClosedWindows, ThatWereOpenedInASongAreDestroyedInIt) {
    const QPointer<QWidget> before = opened("Form2");
    for (int column = 0; column < 50; ++column)
        program.studio().score.NoteArray.write(0, column, 60);
    at(0.5, [&] {
        close("Form2");
        EXPECT_NE(before, nullptr) << "the song may have been begun by its button";
    });
    at(1.0, [&] {
        for (const char* const name : {"Form2", "Record", "Wiz"}) {
            const QPointer<QWidget> window = opened(name);
            close(name);
            EXPECT_EQ(window, nullptr) << name;
        }
        const QPointer<QWidget> kept = opened("Form2");
        at(0.5, [this, kept] {
            close("Form2");
            EXPECT_EQ(kept, nullptr) << "many columns later";
        });
    });
    program.form1().PlayAndStop_Click(0);
    QCoreApplication::processEvents();
    EXPECT_EQ(before, nullptr);
}

TEST_F(ClosedWindows, ThatWaitInTheirOwnHandlerStay) {
    const QPointer<QWidget> window = opened("Wiz");
    at(0.1, [&] {
        close("Wiz");
        EXPECT_NE(window, nullptr);
    });
    // As a handler of the window would.
    while (host.time.now() < scripted::nanosecondsPerSecond)
        program.studio().platform.loop.waitUntil(scripted::nanosecondsPerSecond);
    QCoreApplication::processEvents();
    EXPECT_EQ(window, nullptr);
}

} // namespace
} // namespace velorin
