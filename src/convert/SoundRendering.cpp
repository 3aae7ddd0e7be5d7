// The sequencer with no time to wait, a MIDI file's messages in their order, and samples as they
// are.
#include "convert/SoundRendering.h"

#include "convert/LoadedScore.h"
#include "convert/RenderedMidi.h"
#include "host/media/MidiFile.h"
#include "host/media/SoundReader.h"
#include "host/media/WavChunks.h"
#include "platform/CaseBlind.h"
#include "playback/NoteSounding.h"
#include "playback/Sequencer.h"
#include "playback/StopWatch.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <vector>

namespace velorin::convert {

namespace {

std::unique_ptr<host::Synth> loadSynth(const SoundRequest& request, std::string& problem) {
    auto synth = host::Synth::load(request.soundFont, request.rateHz, host::FontLoading::asNeeded);
    if (!synth)
        problem = "cannot be played: no SoundFont " + request.soundFont.string();
    return synth;
}

void reportProgress(LoadedScore& score, const std::function<void(double)>& progress) {
    const double columns = std::max<int>(score.studio.score.LastColumn, 1);
    progress(std::min(score.studio.run.PlayColumn / columns, 1.0));
}

// As the program does it from its start: the device opens, then the play command runs to its end.
void play(LoadedScore& score) {
    NoteSounding sounding(score.studio, score.desk);
    StopWatch watch(score.host.clock, score.host.loop);
    Sequencer sequencer(score.studio, sounding, watch, score.desk);
    sequencer.PlayTimer = watch.StopWatchNew();
    sounding.Device_Click();
    sequencer.PlayAndStop_Click(0);
}

/// A device that takes everything and sounds nothing.
struct SilentMidi final : platform::MidiOut {
    int midiOutGetNumDevs() override { return 1; }
    std::string midiOutGetDevCapsA(int) override { return {}; }
    std::uint32_t midiOutOpen(platform::MidiOutHandle& handle, int) override {
        handle = 1;
        return platform::midiSuccess;
    }
    std::uint32_t midiOutClose(platform::MidiOutHandle) override { return platform::midiSuccess; }
    std::uint32_t midiOutShortMsg(platform::MidiOutHandle, std::uint32_t) override {
        return platform::midiSuccess;
    }
};

// The song is played once without sound, which takes no time: strummed chords make it longer than
// its columns. Negative for what is no score.
double secondsOf(const std::string& source) {
    SilentMidi midi;
    LoadedScore score(midi);
    if (!score.open(source).empty())
        return -1.0;
    play(score);
    return static_cast<double>(score.host.clock.nowNs) / 1e9;
}

std::string checkLength(const SoundRequest& request, double seconds) {
    return request.checkLength ? request.checkLength(seconds) : std::string();
}

void remark(const SoundRequest& request, const std::string& text) {
    if (request.remark)
        request.remark(text);
}

// A file without notes is a piece of silence; one whose notes are all lost is none.
std::string judge(const SoundRequest& request, const host::MidiFile& music) {
    if (!music.isWhole && !music.hasNotes())
        return "is damaged before its first note";
    if (!music.isWhole)
        remark(request, "is damaged; only what comes before the damage is converted");
    if (!music.hasNotes())
        remark(request, "has no notes; the sound is silent");
    return checkLength(request, static_cast<double>(music.lengthUs) / 1e6);
}

std::string finishTail(RenderedMidi& midi, SoundTarget& target) {
    midi.catchUp();
    midi.renderTail();
    return midi.failed() ? target.whyFailed() : target.finish();
}

std::uint32_t packed(const host::ShortMessage& message) {
    return message.byte[0] | static_cast<std::uint32_t>(message.byte[1]) << 8 |
           static_cast<std::uint32_t>(message.byte[2]) << 16;
}

std::int16_t toSample(float value) {
    return static_cast<std::int16_t>(
        std::lrintf(std::clamp(value * 32768.0F, -32768.0F, 32767.0F)));
}

} // namespace

std::string renderScore(const SoundRequest& request, const MakeTarget& make) {
    std::string problem;
    const auto synth = loadSynth(request, problem);
    if (!synth)
        return problem;
    LoadedScore* playing = nullptr;
    std::unique_ptr<SoundTarget> target;
    RenderedMidi midi(*synth, request.rateHz, [&](const std::int16_t* stereo, int frames) {
        const bool written = target->write(stereo, frames);
        if (!written)
            playing->host.loop.end();
        return written;
    });
    LoadedScore score(midi);
    playing = &score;
    midi.setClock(score.host.clock);
    if (problem = score.open(request.source); !problem.empty())
        return problem;
    if (problem = checkLength(request, secondsOf(request.source)); !problem.empty())
        return problem;
    target = make(request.rateHz, 2, problem);
    if (!target)
        return problem;
    if (request.progress)
        score.host.loop.onYield = [&] { reportProgress(score, request.progress); };
    play(score);
    return finishTail(midi, *target);
}

std::string renderMidi(const SoundRequest& request, const MakeTarget& make) {
    const auto music = host::readMidiFile(platform::resolve(request.source));
    if (!music)
        return "is no MIDI file";
    std::string problem = judge(request, *music);
    if (!problem.empty())
        return problem;
    const auto synth = loadSynth(request, problem);
    if (!synth)
        return problem;
    const std::unique_ptr<SoundTarget> target = make(request.rateHz, 2, problem);
    if (!target)
        return problem;
    JumpingClock clock;
    RenderedMidi midi(*synth, request.rateHz, [&](const std::int16_t* stereo, int frames) {
        return target->write(stereo, frames);
    });
    midi.setClock(clock);
    platform::MidiOutHandle handle = 0;
    midi.midiOutOpen(handle, 0);
    for (const host::MidiFile::Event& event : music->events) {
        clock.nowNs = event.timeUs * 1000;
        midi.midiOutShortMsg(handle, packed(event.message));
        if (midi.failed())
            return target->whyFailed();
        if (request.progress)
            request.progress(static_cast<double>(event.timeUs) /
                             static_cast<double>(std::max<std::int64_t>(music->lengthUs, 1)));
    }
    clock.nowNs = music->lengthUs * 1000;
    return finishTail(midi, *target);
}

std::string copyWav(const SoundRequest& request, const MakeTarget& make) {
    const std::filesystem::path path = platform::resolve(request.source);
    const auto file = host::openWav(path);
    if (!file)
        return host::whyNotRead(host::readWavChunks(path));
    std::string problem;
    const auto target = make(file->rateHz(), std::min(file->channels(), 2), problem);
    if (!target)
        return problem;
    constexpr int step = 8192;
    std::vector<float> read(2 * step);
    std::vector<std::int16_t> samples(2 * step);
    std::int64_t done = 0;
    for (int got = file->read(read.data(), step); got > 0; got = file->read(read.data(), step)) {
        std::transform(read.begin(), read.begin() + 2 * got, samples.begin(), toSample);
        if (!target->write(samples.data(), got))
            return target->whyFailed();
        done += got;
        if (request.progress)
            request.progress(
                std::min(1.0, static_cast<double>(done) /
                                  static_cast<double>(std::max<std::int64_t>(file->frames(), 1))));
    }
    if (done == 0)
        remark(request, "has no sound in it");
    else if (done < file->frames())
        remark(request, "is damaged; only what comes before the damage is converted");
    return target->finish();
}

} // namespace velorin::convert
