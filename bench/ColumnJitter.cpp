// Measures how late columns are: a thousand at tempo 300, with the real clock and the real event
// loop.
//
//   bench_columns          nothing else is done
//   bench_columns FOLDER   meanwhile the song is exported into the folder, one kind after the other
//
// "program" is the lateness without the time that the thread was ready to run and another one had
// the processor: what the program itself could do better.
#include "convert/OfflinePlatform.h"
#include "host/loop/QtMessageLoop.h"
#include "host/process/SystemClock.h"
#include "session/Session.h"
#include "windows/export/ExportWork.h"
#include "windows/making/ConversionJobs.h"

#include <QApplication>

#include <fcntl.h>
#include <sys/resource.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <thread>
#include <utility>
#include <vector>

namespace {

using namespace velorin;

constexpr int columns = 1000;

/// How long the calling thread was ready to run without a processor, since its beginning.
class ProcessorWait {
public:
    /// Nanoseconds; 0 if the system does not count them.
    [[nodiscard]] std::int64_t total() const {
        std::array<char, 100> text{};
        if (pread(file_, text.data(), text.size() - 1, 0) <= 0)
            return 0;
        long long ran = 0;
        long long waited = 0;
        return std::sscanf(text.data(), "%lld %lld", &ran, &waited) == 2 ? waited : 0;
    }

private:
    int file_ = open("/proc/thread-self/schedstat", O_RDONLY | O_CLOEXEC);
};

/// Forwards all calls and stores the deadline of the last wait.
class WatchedLoop final : public platform::MessageLoop {
public:
    explicit WatchedLoop(platform::MessageLoop& loop) : loop_(loop) {}
    void Yield() override { loop_.Yield(); }
    void waitUntil(std::int64_t counter) override {
        deadline = counter;
        waitedBefore = processor.total();
        loop_.waitUntil(counter);
    }
    void end() override { loop_.end(); }
    bool isEnding() const override { return loop_.isEnding(); }

    std::int64_t deadline = 0;
    ProcessorWait processor;
    std::int64_t waitedBefore = 0; ///< for a processor, when the last wait began

private:
    platform::MessageLoop& loop_;
};

/// Measures how long after the deadline each note on arrives.
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
        if ((message & 0xF0) != 0x90)
            return 0;
        const std::int64_t late = clock_.QueryPerformanceCounter() - loop_.deadline;
        const std::int64_t waited = loop_.processor.total() - loop_.waitedBefore;
        latenessUs.push_back(static_cast<double>(late) / 1000.0);
        ownUs.push_back(static_cast<double>(std::max<std::int64_t>(late - waited, 0)) / 1000.0);
        return 0;
    }

    std::vector<double> latenessUs;
    std::vector<double> ownUs; ///< without the wait for a processor

private:
    platform::Clock& clock_;
    const WatchedLoop& loop_;
};

/// Exports the song again and again, each time as another kind. Files are replaced.
class Exporter {
public:
    Exporter(Session& session, std::filesystem::path folder)
        : song_(songOf(session)), folder_(std::move(folder)) {}

    void start() {
        ExportOrder order;
        order.kind = static_cast<std::size_t>(started_++) % exportKinds().size();
        order.target = folder_ / ("song" + std::string(exportKinds()[order.kind].ending));
        jobs_.start(exportWork(song_, order, {}),
                    {{}, [this](const ConversionJobs::Result& result) {
                         if (!result) {
                             std::fprintf(stderr, "%s\n", result.reason().c_str());
                             return;
                         }
                         ++made_;
                         start();
                     }});
    }

    [[nodiscard]] int made() const { return made_; }

private:
    std::shared_ptr<const ExportedSong> song_;
    std::filesystem::path folder_;
    ConversionJobs jobs_;
    int started_ = 0;
    int made_ = 0;
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

/// The yardstick: a plain sleep of a column's length.
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
    Session session(platform);
    Studio& studio = session.studio;
    for (int column = 0; column < columns; ++column) {
        studio.score.NoteArray.write(0, column, 60);
    }
    studio.score.Tempo = 300;
    Sequencer& sequencer = session.sequencer;
    sequencer.PlayTimer = session.watch.StopWatchNew();
    std::optional<Exporter> exporter;
    if (argc > 1) {
        exporter.emplace(session, argv[1]);
        exporter->start();
    }

    const double busyBefore = processorSeconds();
    const std::int64_t start = clock.QueryPerformanceCounter();
    sequencer.PlayAndStop_Click(0);
    const double seconds = static_cast<double>(clock.QueryPerformanceCounter() - start) / 1e9;
    const double busy = processorSeconds() - busyBefore;

    if (meter.latenessUs.size() != columns)
        return 1;
    print("columns", meter.latenessUs);
    print("program", meter.ownUs);
    std::printf("%d columns in %.2f s; processor %.2f %%\n", columns, seconds,
                100.0 * busy / seconds);
    if (exporter)
        std::printf("exported %d files\n", exporter->made());
    measureSleeps();
    return 0;
}
