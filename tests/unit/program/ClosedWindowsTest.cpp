// Closed windows are destroyed soon, also in an endless loop, and not while one of their handlers
// runs.
#include "WholeProgram.h"

#include "windows/recording/Record.h"

#include <gtest/gtest.h>

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QEvent>
#include <QPointer>

#include <algorithm>
#include <functional>

namespace velorin {
namespace {

struct ClosedWindows : testing::Test, protected WholeProgram {
    ~ClosedWindows() override { host.time.dropPlanned(); }

    void at(double seconds, std::function<void()> run) {
        host.time.plan(static_cast<scripted::Nanoseconds>(seconds * 1e9), std::move(run));
    }

    QPointer<QWidget> opened(Tool tool) {
        program.windows.show(tool);
        return program.windows.window(tool);
    }

    /// Closes the window and runs the event dispatcher once.
    void close(Tool tool) {
        program.windows.unload(tool);
        QCoreApplication::processEvents();
    }

    static int number(Tool tool) { return static_cast<int>(tool); }
};

/// Posts itself again whenever it is processed: events never run out.
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
        const Tool tool = allTools[static_cast<std::size_t>(round) % allTools.size()];
        all.push_back(opened(tool));
        program.windows.unload(tool);
        for (int i = 0; i < 2; ++i)
            QAbstractEventDispatcher::instance()->processEvents(QEventLoop::WaitForMoreEvents);
        EXPECT_EQ(std::count_if(all.begin(), all.end(), [](const auto& each) { return each; }), 0);
    }
}

TEST_F(ClosedWindows, AreDestroyedInTheLoopsThatFollowAWavForTheRestOfTheRun) {
    opened(Tool::editing);
    const QPointer<QWidget> first = opened(Tool::recording);
    program.recording.form().Text6->setText("a.wav");
    int presses = 0;
    std::function<void()> press = [&] {
        program.recording.form().Cmd2[3]->click();
        if (++presses < 10'000)
            at(0.01, press);
    };
    at(0.01, press);
    at(101.0, [&] {
        EXPECT_EQ(presses, 10'000);
        for (const Tool tool : {Tool::editing, Tool::setup, Tool::tutorial}) {
            for (int i = 0; i < 2; ++i) {
                const QPointer<QWidget> window = opened(tool);
                close(tool);
                EXPECT_EQ(window, nullptr) << number(tool);
            }
        }
        close(Tool::recording);
        EXPECT_NE(first, nullptr) << "its handler runs";
        const QPointer<QWidget> second = opened(Tool::recording);
        program.recording.form().Text6->setText("a.wav");
        program.recording.form().Cmd2[3]->click();
        close(Tool::recording);
        EXPECT_EQ(second, nullptr) << "its handler has returned";
        program.Command3_Click();
    });
    program.recording.form().Cmd2[3]->click();
    QCoreApplication::processEvents();
    EXPECT_EQ(first, nullptr);
}

TEST_F(ClosedWindows, ThatWereOpenedInASongAreDestroyedInIt) {
    const QPointer<QWidget> before = opened(Tool::editing);
    for (int column = 0; column < 50; ++column)
        program.studio().score.NoteArray.write(0, column, 60);
    at(0.5, [&] {
        close(Tool::editing);
        EXPECT_NE(before, nullptr) << "the song may have been begun by its button";
    });
    at(1.0, [&] {
        for (const Tool tool : {Tool::editing, Tool::recording, Tool::tutorial}) {
            const QPointer<QWidget> window = opened(tool);
            close(tool);
            EXPECT_EQ(window, nullptr) << number(tool);
        }
        const QPointer<QWidget> kept = opened(Tool::editing);
        at(0.5, [this, kept] {
            close(Tool::editing);
            EXPECT_EQ(kept, nullptr) << "many columns later";
        });
    });
    program.session.sequencer.PlayAndStop_Click(0);
    QCoreApplication::processEvents();
    EXPECT_EQ(before, nullptr);
}

TEST_F(ClosedWindows, ThatWaitInTheirOwnHandlerStay) {
    const QPointer<QWidget> window = opened(Tool::tutorial);
    at(0.1, [&] {
        close(Tool::tutorial);
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
