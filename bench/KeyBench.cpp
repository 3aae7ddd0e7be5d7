// Measures how long after a key of a MIDI keyboard its note begins in the stream, and whether step
// entry writes every key. The keys come from a port of the machine; the program, the device and the
// engine are the real ones.
//
//     bench_keys KEYS     prints "ready", waits for that many keys, and prints the figures
#include "host/engine/SoundTap.h"
#include "host/loop/QtMessageLoop.h"
#include "host/midiin/HostMidiIn.h"
#include "host/sound/HostSound.h"
#include "model/Cell.h"
#include "program/Program.h"
#include "support/ScriptedPlatform.h"
#include "windows/frame/Look.h"
#include "windows/main/Form1.h"

#include <QApplication>
#include <QShortcut>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <memory>
#include <thread>
#include <vector>

namespace {

using namespace velorin;
using Clock = std::chrono::steady_clock;

constexpr int woodBlock = 115; ///< starts at once and is short
constexpr double nsOfFrame = 1e9 / host::streamRateHz;
constexpr float floorLevel = 0.002F;                          ///< full scale is 1
constexpr std::int64_t apartFrames = host::streamRateHz / 20; ///< the keys are farther apart
constexpr auto patience = std::chrono::minutes(3);

/// Forwards all calls and stores the stamp of each key.
class WatchedMidiIn final : public platform::MidiIn {
public:
    std::vector<std::string> ports() override { return input_.ports(); }
    bool open(const std::string& port) override {
        input_.onMessage = [this](const platform::MidiInMessage& message) {
            if ((message.status & 0xF0) == 0x90)
                stamps.push_back(message.counter);
            else
                ++released;
            onMessage(message);
        };
        return input_.open(port);
    }
    void close() override { input_.close(); }
    bool isConnected() override { return input_.isConnected(); }

    std::vector<std::int64_t> stamps; ///< steady clock, ns
    int released = 0;

private:
    host::HostMidiIn input_;
};

/// Reads the stream on a thread of its own: the loudest sample of each frame, and the clock at the
/// earliest blocks.
class StreamReader {
public:
    explicit StreamReader(host::SoundTap& tap)
        : thread_([this, &tap] {
              while (!ends_.load()) {
                  read(tap);
                  std::this_thread::sleep_for(std::chrono::microseconds(200));
              }
          }) {}
    ~StreamReader() { end(); }
    StreamReader(const StreamReader&) = delete;
    StreamReader& operator=(const StreamReader&) = delete;

    void end() {
        ends_.store(true);
        if (thread_.joinable())
            thread_.join();
    }

    /// The clock at frame 0, by the earliest pull. No block is read before it is made, and the last
    /// block of a buffer is made together with its first. After `end`.
    [[nodiscard]] double startNs() const {
        return startNs_ + (host::SoundEngine::bufferFrames - host::blockFrames) * nsOfFrame;
    }

    /// The frames at which something begins after a silence. After `end`.
    [[nodiscard]] std::vector<std::int64_t> onsets() const {
        const float level =
            std::max(floorLevel, 0.3F * *std::max_element(sound_.begin(), sound_.end()));
        std::vector<std::int64_t> found;
        std::int64_t quietUntil = -1;
        for (std::size_t i = 0; i < sound_.size(); ++i) {
            const auto frame = static_cast<std::int64_t>(i);
            if (sound_[i] <= level || frame <= quietUntil)
                continue;
            found.push_back(firstFrame_ + frame);
            quietUntil = frame + apartFrames;
        }
        return found;
    }

private:
    void read(host::SoundTap& tap) {
        host::TappedBlock block;
        while (tap.read(block)) {
            const auto now = static_cast<double>(Clock::now().time_since_epoch().count());
            startNs_ = std::min(startNs_, now - static_cast<double>(block.firstFrame) * nsOfFrame);
            if (sound_.empty())
                firstFrame_ = block.firstFrame;
            for (std::size_t i = 0; i < block.sound.size(); i += 2)
                sound_.push_back(std::abs(block.sound[i]));
        }
    }

    std::vector<float> sound_;
    std::int64_t firstFrame_ = 0;
    double startNs_ = std::numeric_limits<double>::max();
    std::atomic<bool> ends_{false};
    std::thread thread_; ///< last: it uses the others
};

void press(const QWidget& window, const char* keys) {
    for (QShortcut* shortcut : window.findChildren<QShortcut*>()) {
        if (shortcut->key() == QKeySequence(QLatin1String(keys)))
            Q_EMIT shortcut->activated();
    }
}

template <class Condition>
bool waitFor(const Condition& isTrue, std::chrono::milliseconds atMost) {
    const auto end = Clock::now() + atMost;
    while (!isTrue() && Clock::now() < end)
        QApplication::processEvents(QEventLoop::WaitForMoreEvents, 10);
    return isTrue();
}

int headsIn(const Score& score) {
    int heads = 0;
    for (int column = 0; column < scoreColumns; ++column)
        heads += isStart(score.NoteArray.read(0, column).value_or(emptyCell)) ? 1 : 0;
    return heads;
}

int report(const std::vector<std::int64_t>& stamps, const StreamReader& stream, int written) {
    const std::vector<std::int64_t> frames = stream.onsets();
    if (frames.size() != stamps.size()) {
        std::fprintf(stderr, "%zu keys, but %zu onsets in the stream\n", stamps.size(),
                     frames.size());
        return 1;
    }
    std::vector<double> ms;
    for (std::size_t i = 0; i < frames.size(); ++i)
        ms.push_back((stream.startNs() + static_cast<double>(frames[i]) * nsOfFrame -
                      static_cast<double>(stamps[i])) /
                     1e6);
    std::sort(ms.begin(), ms.end());
    std::printf("key_to_sound_ms %.3f %.3f %.3f\n", ms[ms.size() / 2], ms.front(), ms.back());
    std::printf("written %d\n", written);
    return 0;
}

} // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    const int keys = argc > 1 ? std::atoi(argv[1]) : 200;
    applyLook(application);
    host::HostSound sound({}, {std::filesystem::temp_directory_path()});
    host::QtMessageLoop loop(sound.clock());
    scripted::ScriptedPlatform host;
    WatchedMidiIn input;
    const platform::Platform& is = host.platform;
    platform::Platform platform{
        sound.clock(), loop,           sound.midi(), is.mci,           is.dialogs,
        is.boxes,      is.files,       is.settings,  is.desktop,       is.menus,
        is.timers,     is.systemFiles, is.encoder,   is.programFolder, nullptr,
        is.notices,    &input};
    Program program(platform);
    if (!program.start())
        return 1;
    Form1& form = program.form1();
    form.resize(1280, 800);
    program.begin();
    sound.begin();
    auto tap = std::make_shared<host::SoundTap>(30.0);
    sound.engine().add(tap);
    StreamReader stream(*tap);
    program.studio().setup.setCombo1(woodBlock);
    press(form, "Ctrl+K");
    press(form, "Ctrl+Shift+K");
    press(form, "Ctrl+4");
    waitFor([] { return false; }, std::chrono::milliseconds(1500)); // the SoundFont is loaded
    std::puts("ready");
    std::fflush(stdout);
    const auto isPlayed = [&] { return input.released >= keys; };
    const bool arePlayed = waitFor(isPlayed, patience);
    waitFor([] { return false; }, std::chrono::milliseconds(300)); // the last sound
    stream.end();
    const int written = headsIn(program.studio().score);
    program.Command3_Click();
    if (!arePlayed) {
        std::fprintf(stderr, "%zu of %d keys came\n", input.stamps.size(), keys);
        return 1;
    }
    return report(input.stamps, stream, written);
}
