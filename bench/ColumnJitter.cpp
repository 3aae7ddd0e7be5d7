// How late columns are: a thousand of them at tempo 300 on the real clock and the real loop.
#include "convert/OfflinePlatform.h"
#include "host/QtMessageLoop.h"
#include "host/SystemClock.h"
#include "playback/NoDesk.h"
#include "playback/NoteSounding.h"
#include "playback/Sequencer.h"
#include "playback/StopWatch.h"
#include "score/PlainSetup.h"
#include "score/Studio.h"

#include <QApplication>

#include <sys/resource.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <thread>
#include <vector>

namespace {

using namespace velorin;

constexpr int columns = 1000;

/// Passes everything on and keeps the deadline of the last wait.
class WatchedLoop final : public platform::MessageLoop {
public:
    explicit WatchedLoop(platform::MessageLoop& loop) : loop_(loop) {}
    void Yield() override { loop_.Yield(); }
    void waitUntil(std::int64_t counter) override {
        deadline = counter;
        loop_.waitUntil(counter);
    }
    void end() override { loop_.end(); }
    bool isEnding() const override { return loop_.isEnding(); }

    std::int64_t deadline = 0;

private:
    platform::MessageLoop& loop_;
};

/// Notes how late behind the deadline each note on comes.
class LatenessMeter final : public platform::MidiOut {
public:
    LatenessMeter(platform::Clock& clock, const WatchedLoop& loop) : clock_(clock), loop_(loop) {}

    int midiOutGetNumDevs() override { return 1; }
    std::string midiOutGetDevCapsA(int) override { return "Meter"; }
    std::uint32_t midiOutOpen(platform::MidiOutHandle& handle, int) override {
        handle = 1;
        return 0;
    }
    std::uint32_t midiOutClose(platform::MidiOutHandle) override { return 0; }
    std::uint32_t midiOutShortMsg(platform::MidiOutHandle, std::uint32_t message) override {
        if ((message & 0xF0) == 0x90)
            latenessUs.push_back(
                static_cast<double>(clock_.QueryPerformanceCounter() - loop_.deadline) / 1000.0);
        return 0;
    }

    std::vector<double> latenessUs;

private:
    platform::Clock& clock_;
    const WatchedLoop& loop_;
};

double processorSeconds() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    const auto seconds = [](const timeval& time) {
        return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
    };
    return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

void print(const char* what, std::vector<double> late) {
    std::sort(late.begin(), late.end());
    std::printf("%s late by us: p50 %.1f  p99 %.1f  max %.1f\n", what, late[late.size() / 2],
                late[late.size() * 99 / 100], late.back());
}

/// The yardstick: a bare sleep of the system, as long as a column.
void measureSleeps() {
    std::vector<double> late;
    for (int sleep = 0; sleep < columns / 4; ++sleep) {
        const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(40);
        std::this_thread::sleep_until(end);
        const std::chrono::duration<double, std::micro> by = std::chrono::steady_clock::now() - end;
        late.push_back(by.count());
    }
    print("sleeps", late);
}

} // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    host::SystemClock clock;
    host::QtMessageLoop realLoop(clock);
    WatchedLoop loop(realLoop);
    LatenessMeter meter(clock, loop);
    convert::OfflinePlatform offline(meter);
    platform::Platform platform = offline.on(clock, loop, meter);
    PlainSetup setup;
    Studio studio(platform, setup);
    for (int column = 0; column < columns; ++column) {
        studio.score.NoteArray.write(0, column, 60);
    }
    studio.score.Tempo = 300;
    NoDesk desk;
    NoteSounding sounding(studio, desk);
    StopWatch watch(clock, loop);
    Sequencer sequencer(studio, sounding, watch, desk);
    sequencer.PlayTimer = watch.StopWatchNew();

    const double busyBefore = processorSeconds();
    const std::int64_t start = clock.QueryPerformanceCounter();
    sequencer.PlayAndStop_Click(0);
    const double seconds = static_cast<double>(clock.QueryPerformanceCounter() - start) / 1e9;
    const double busy = processorSeconds() - busyBefore;

    if (meter.latenessUs.size() != columns)
        return 1;
    print("columns", meter.latenessUs);
    std::printf("%d columns in %.2f s; processor %.2f %%\n", columns, seconds,
                100.0 * busy / seconds);
    measureSleeps();
    return 0;
}
