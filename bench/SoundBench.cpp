// Measures the time from a press on the tableau to its message, how constant the delay from the
// message to its sound in the stream is, and the distances of onsets in the stream. Uses the real
// handlers, device and engine.
#include "convert/OfflinePlatform.h"
#include "host/engine/SoundTap.h"
#include "host/loop/QtMessageLoop.h"
#include "host/sound/HostSound.h"
#include "session/Session.h"
#include "support/TableauStage.h"
#include "windows/main/MusicMouse.h"

#include <QApplication>
#include <QMouseEvent>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <memory>
#include <numeric>
#include <thread>
#include <vector>

namespace {

using namespace velorin;
using Clock = std::chrono::steady_clock;

constexpr int presses = 60;
constexpr int columns = 240;
constexpr int columnsApart = 2;
constexpr std::int16_t woodBlock = 115; ///< starts at once and is short
constexpr float heard = 0.002F;         ///< full scale is 1

double ms(Clock::duration time) {
    return std::chrono::duration<double, std::milli>(time).count();
}

/// Forwards all calls and stores when a note begins.
class WatchedMidi final : public platform::MidiOut {
public:
    explicit WatchedMidi(platform::MidiOut& midi) : midi_(midi) {}
    int midiOutGetNumDevs() override { return midi_.midiOutGetNumDevs(); }
    std::string midiOutGetDevCapsA(int index) override { return midi_.midiOutGetDevCapsA(index); }
    std::uint32_t midiOutOpen(platform::MidiOutHandle& handle, int index) override {
        return midi_.midiOutOpen(handle, index);
    }
    std::uint32_t midiOutClose(platform::MidiOutHandle handle) override {
        return midi_.midiOutClose(handle);
    }
    std::uint32_t midiOutShortMsg(platform::MidiOutHandle handle, std::uint32_t message) override {
        if ((message & 0xF0) == 0x90)
            noteOn = Clock::now();
        return midi_.midiOutShortMsg(handle, message);
    }

    Clock::time_point noteOn;

private:
    platform::MidiOut& midi_;
};

/// The tableau with its mouse on the host's sound.
struct Bench {
    host::HostSound sound{{}, {std::filesystem::temp_directory_path()}};
    host::QtMessageLoop loop{sound.clock()};
    WatchedMidi midi{sound.midi()};
    convert::OfflinePlatform offline{midi};
    platform::Platform platform = offline.on(sound.clock(), loop, midi);
    Session session{platform};
    Studio& studio = session.studio;
    scripted::PlainTableauDesk window;
    NoteSounding& sounding = session.sounding;
    Picmain area{nullptr};
    MusicTableau music{studio, area};
    PercussionTableau percussion{studio, area, music, sounding, window};
    PolyTableau poly{studio, area, music};
    MainLayout layout{studio, area, music, percussion, poly, window};
    MusicMouse mouse{studio, area, music, poly, sounding, window};
    std::shared_ptr<host::SoundTap> tap = std::make_shared<host::SoundTap>(30.0);

    Bench() {
        window.width = 1600;
        window.height = 900;
        layout.Form_Resize();
        area.show();
        area.MusicBox->onMouseDown = [this](int b, int s, double x, double y) {
            mouse.MusicBox_MouseDown(b, s, x, y);
        };
        area.MusicBox->onMouseUp = [this](int b, int s, double x, double y) {
            mouse.MusicBox_MouseUp(b, s, x, y);
        };
        sound.begin();
        studio.setup.values.instrument = woodBlock;
        sounding.Device_Click();
        sounding.Combo1_Click();
        sound.engine().add(tap);
        rest(1500); // the SoundFont is loaded meanwhile
    }

    void rest(int milliseconds) {
        const auto end = Clock::now() + std::chrono::milliseconds(milliseconds);
        while (Clock::now() < end) {
            QApplication::processEvents();
            std::this_thread::sleep_for(std::chrono::milliseconds(2));
        }
    }

    void send(QEvent::Type type, Qt::MouseButtons held) {
        const QPointF place(30, 140);
        QMouseEvent event(type, place, place, place, Qt::LeftButton, held, Qt::NoModifier);
        QApplication::sendEvent(area.MusicBox, &event);
    }
};

void printRow(const char* name, std::vector<double> values) {
    std::sort(values.begin(), values.end());
    std::printf("%s %.3f %.3f %.3f\n", name, values[values.size() / 2], values.front(),
                values.back());
}

bool isHeard(float sample) {
    return std::abs(sample) > heard;
}

/// The frame of the stream at which a sound begins, or -1 after a second without one.
std::int64_t waitForOnset(host::SoundTap& tap) {
    host::TappedBlock block;
    const auto end = Clock::now() + std::chrono::seconds(1);
    while (Clock::now() < end) {
        while (tap.read(block)) {
            const auto first = std::find_if(block.sound.begin(), block.sound.end(), isHeard);
            if (first != block.sound.end())
                return block.firstFrame + (first - block.sound.begin()) / 2;
        }
        std::this_thread::sleep_for(std::chrono::microseconds(50));
    }
    return -1;
}

/// Takes the straight line out of the delays, which come at even distances: the clock of a sound
/// card runs at a rate of its own.
void removeDrift(std::vector<double>& delays) {
    const auto count = static_cast<double>(delays.size());
    const double middle = (count - 1.0) / 2.0;
    const double mean = std::accumulate(delays.begin(), delays.end(), 0.0) / count;
    double together = 0.0;
    double squares = 0.0;
    for (std::size_t i = 0; i < delays.size(); ++i) {
        const double place = static_cast<double>(i) - middle;
        together += place * (delays[i] - mean);
        squares += place * place;
    }
    for (std::size_t i = 0; i < delays.size(); ++i)
        delays[i] -= (static_cast<double>(i) - middle) * together / squares;
}

/// Prints how much longer the delays are than the shortest.
void printSpread(const char* name, std::vector<double> delays) {
    removeDrift(delays);
    const double shortest = *std::min_element(delays.begin(), delays.end());
    for (double& delay : delays)
        delay -= shortest;
    printRow(name, delays);
}

/// The delay of a sound is the frame at which it begins minus the moment of its message. The stream
/// has its own zero, so only the differences between the delays count.
void measurePresses(Bench& bench) {
    std::vector<double> toMessage;
    std::vector<double> toSound;
    host::TappedBlock block;
    for (int press = 0; press < presses; ++press) {
        bench.rest(200 + press % 7);
        while (bench.tap->read(block)) {
        }
        const auto start = Clock::now();
        bench.send(QEvent::MouseButtonPress, Qt::LeftButton);
        toMessage.push_back(ms(bench.midi.noteOn - start));
        const std::int64_t onset = waitForOnset(*bench.tap);
        if (onset >= 0)
            toSound.push_back(static_cast<double>(onset) * 1000.0 / host::streamRateHz -
                              ms(bench.midi.noteOn.time_since_epoch()));
        bench.send(QEvent::MouseButtonRelease, Qt::NoButton);
        bench.sounding.Device_Click(); // silence
        bench.sounding.Combo1_Click();
    }
    if (toSound.size() != presses)
        std::fprintf(stderr, "%zu of %d presses were heard\n", toSound.size(), presses);
    printRow("press_to_message_ms", toMessage);
    if (toSound.size() > 1)
        printSpread("press_to_sound_spread_ms", toSound);
}

std::vector<std::int64_t> onsets(host::SoundTap& tap) {
    std::vector<float> sound;
    host::TappedBlock block;
    while (tap.read(block)) {
        for (std::size_t i = 0; i < block.sound.size(); i += 2)
            sound.push_back(std::abs(block.sound[i]));
    }
    const float level = 0.3F * *std::max_element(sound.begin(), sound.end());
    std::vector<std::int64_t> found;
    std::int64_t quietUntil = -1;
    for (std::size_t i = 0; i < sound.size(); ++i) {
        const auto frame = static_cast<std::int64_t>(i);
        if (sound[i] > level && frame > quietUntil) {
            found.push_back(frame);
            quietUntil = frame + host::streamRateHz / 20;
        }
    }
    return found;
}

void measureOnsets(Bench& bench) {
    Score& score = bench.studio.score;
    score.ClearNoteArrays();
    for (int column = 0; column < columns; column += columnsApart) {
        score.NoteArray.write(0, column, 60);
        score.InstrumentArray.write(0, column, woodBlock);
    }
    score.Tempo = 300;
    Sequencer& sequencer = bench.session.sequencer;
    sequencer.PlayTimer = bench.session.watch.StopWatchNew();
    // The sound of the presses must decay first, or its end would count as an onset.
    bench.rest(2000);
    host::TappedBlock block;
    while (bench.tap->read(block)) {
    }
    sequencer.PlayAndStop_Click(0);
    bench.rest(100);
    const std::vector<std::int64_t> frames = onsets(*bench.tap);
    const double expected = columnsApart * 0.04 * host::streamRateHz;
    std::vector<double> off;
    for (std::size_t i = 1; i < frames.size(); ++i) {
        const auto distance = static_cast<double>(frames[i] - frames[i - 1]);
        off.push_back(std::abs(distance - expected) * 1000.0 / host::streamRateHz);
    }
    if (frames.size() != columns / columnsApart)
        std::fprintf(stderr, "%zu onsets in the stream\n", frames.size());
    if (!off.empty())
        printRow("onset_off_ms", off);
}

} // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    Bench bench;
    measurePresses(bench);
    measureOnsets(bench);
    return 0;
}
