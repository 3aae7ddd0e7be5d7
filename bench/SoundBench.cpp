// From a press on the tableau to its message and to its sound in the stream, and how far apart the
// onsets of a song lie in the stream. Through the real handlers, the real device and the real
// engine.
#include "convert/OfflinePlatform.h"
#include "host/HostSound.h"
#include "host/QtMessageLoop.h"
#include "host/SoundTap.h"
#include "playback/NoDesk.h"
#include "playback/NoteSounding.h"
#include "playback/Sequencer.h"
#include "playback/StopWatch.h"
#include "score/PlainSetup.h"
#include "score/Studio.h"
#include "support/TableauStage.h"
#include "tableaux/MusicMouse.h"

#include <QApplication>
#include <QMouseEvent>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <memory>
#include <thread>
#include <vector>

namespace {

using namespace velorin;
using Clock = std::chrono::steady_clock;

constexpr int presses = 60;
constexpr int columns = 240;
constexpr int columnsApart = 2;
constexpr std::int16_t woodBlock = 115; ///< begins at once and is soon over
constexpr float heard = 0.002F;         ///< full scale is 1

double ms(Clock::duration time) {
    return std::chrono::duration<double, std::milli>(time).count();
}

/// Passes everything on and notes when a note begins.
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
    PlainSetup setup;
    Studio studio{platform, setup};
    NoDesk desk;
    scripted::PlainTableauDesk window;
    NoteSounding sounding{studio, desk};
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
        setup.instrument = woodBlock;
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

bool isHeard(const host::TappedBlock& block) {
    return std::any_of(block.sound.begin(), block.sound.end(),
                       [](float sample) { return std::abs(sample) > heard; });
}

/// The moment at which the engine has made the first block with sound in it.
Clock::time_point waitForSound(host::SoundTap& tap) {
    host::TappedBlock block;
    const auto end = Clock::now() + std::chrono::seconds(1);
    while (Clock::now() < end) {
        while (tap.read(block)) {
            if (isHeard(block))
                return Clock::now();
        }
        std::this_thread::sleep_for(std::chrono::microseconds(50));
    }
    return end;
}

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
        toSound.push_back(ms(waitForSound(*bench.tap) - start));
        bench.send(QEvent::MouseButtonRelease, Qt::NoButton);
        bench.sounding.Device_Click(); // silence
        bench.sounding.Combo1_Click();
    }
    printRow("press_to_message_ms", toMessage);
    printRow("press_to_sound_ms", toSound);
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
    StopWatch watch(bench.platform.clock, bench.loop);
    Sequencer sequencer(bench.studio, bench.sounding, watch, bench.desk);
    sequencer.PlayTimer = watch.StopWatchNew();
    // What the presses have left must have died away, else its end counts as a first onset.
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
