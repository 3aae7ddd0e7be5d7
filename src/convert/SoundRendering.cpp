// The sequencer with no time to wait, a MIDI file's messages in their order, and samples as they
// are.
#include "convert/SoundRendering.h"

#include "convert/LoadedScore.h"
#include "convert/PlayedMidi.h"
#include "convert/RenderedMidi.h"
#include "host/media/SoundReader.h"
#include "host/media/WavChunks.h"
#include "host/midi/MidiFile.h"
#include "host/synth/SynthModule.h"
#include "platform/PathLookup.h"

#include <algorithm>
#include <memory>
#include <vector>

namespace velorin::convert {

using platform::Failure;
using platform::Result;

namespace {

/// How each score of a sound takes part in its progress.
struct Share {
    double begin = 0.0;
    double size = 1.0;
};

std::function<void(double)> shareOf(const std::function<void(double)>& progress, Share share) {
    if (!progress)
        return {};
    return [&progress, share](double done) { progress(share.begin + share.size * done); };
}

/// The source and its followers, in their order.
std::vector<std::string> scoresOf(const SoundRequest& request) {
    std::vector<std::string> names{request.source};
    names.insert(names.end(), request.followers.begin(), request.followers.end());
    return names;
}

/// What a rendering must know before it begins.
struct Plan {
    double seconds = 0.0;             ///< of all scores together
    std::vector<std::int64_t> leadNs; ///< of each score
};

// A follower's name goes into the reason, since a message begins with that of the source.
Result<Plan> planOf(const SoundRequest& request) {
    Plan plan;
    for (const std::string& name : scoresOf(request)) {
        const bool isFirst = plan.leadNs.empty();
        auto song = playSilently(name, isFirst ? request.text : std::string(), request.setup);
        if (!song)
            return isFirst ? song.failure()
                           : Failure{"cannot be joined: " + name + " " + song.reason()};
        plan.seconds += static_cast<double>(song->lengthNs) / 1e9;
        plan.leadNs.push_back(song->leadNs);
    }
    return plan;
}

Result<void> checkLength(const SoundRequest& request, double seconds, int rateHz) {
    return request.checkLength ? request.checkLength(seconds, rateHz) : Result<void>();
}

void warning(const SoundRequest& request, const std::string& text) {
    if (request.warning)
        request.warning(text);
}

// A file without notes is a piece of silence; one whose notes are all lost is none.
Result<void> checkMidiFile(const SoundRequest& request, const host::MidiFile& music) {
    if (!music.isWhole && !music.hasNotes())
        return Failure{"is damaged before its first note"};
    if (!music.isWhole)
        warning(request, "is damaged; only the part before the damage is converted");
    if (!music.hasNotes())
        warning(request, "has no notes; the sound is silent");
    return checkLength(request, static_cast<double>(music.lengthUs) / 1e6, request.rateHz);
}

Result<void> finishTail(RenderedMidi& midi, SoundTarget& target) {
    midi.catchUp();
    midi.renderTail();
    if (midi.failed())
        return Failure{target.failureReason()};
    return target.finish();
}

std::uint32_t packed(const host::ShortMessage& message) {
    return message.byte[0] | static_cast<std::uint32_t>(message.byte[1]) << 8 |
           static_cast<std::uint32_t>(message.byte[2]) << 16;
}

} // namespace

Result<std::unique_ptr<host::Synth>> loadSynth(const SoundRequest& request) {
    auto load = host::loadSynthModule();
    if (!load)
        return Failure{"cannot be played: " + load.reason()};
    auto synth = (*load)(request.soundFont, request.rateHz, host::FontLoading::asNeeded,
                         request.isDry ? host::Effects::none : host::Effects::usual);
    if (!synth)
        return Failure{"cannot be played: no SoundFont " + request.soundFont.string()};
    return synth;
}

Result<void> renderScore(const SoundRequest& request, const MakeTarget& make) {
    auto plan = planOf(request);
    if (!plan)
        return plan.failure();
    if (auto checked = checkLength(request, plan->seconds, request.rateHz); !checked)
        return checked;
    auto synth = loadSynth(request);
    if (!synth)
        return synth.failure();
    auto made = make(request.rateHz, 2);
    if (!made)
        return made.failure();
    const std::unique_ptr<SoundTarget> target = std::move(*made);
    LoadedScore* playing = nullptr;
    MixRenderer mix(**synth, [&](const std::int16_t* stereo, int frames) {
        const bool written = target->write(stereo, frames);
        if (!written)
            playing->host.loop.end();
        return written;
    });
    RenderedMidi midi(mix, request.rateHz);
    const std::vector<std::string> names = scoresOf(request);
    std::unique_ptr<LoadedScore> score; // the last one stays: the tail takes its clock
    const double share = 1.0 / static_cast<double>(names.size());
    for (std::size_t i = 0; i < names.size() && !midi.failed(); ++i) {
        auto next = std::make_unique<LoadedScore>(midi);
        playing = next.get();
        if (auto opened =
                next->open(names[i], i == 0 ? request.text : std::string(), request.setup);
            !opened)
            return opened;
        if (i == 0)
            midi.setClock(next->host.clock);
        else
            midi.follow(next->host.clock, plan->leadNs[i]);
        play(*next, shareOf(request.progress, {share * static_cast<double>(i), share}));
        score = std::move(next);
    }
    return finishTail(midi, *target);
}

Result<void> renderMidi(const SoundRequest& request, const MakeTarget& make) {
    const auto music = host::readMidiFile(platform::resolve(request.source));
    if (!music)
        return Failure{"is not a MIDI file"};
    if (auto checked = checkMidiFile(request, *music); !checked)
        return checked;
    auto synth = loadSynth(request);
    if (!synth)
        return synth.failure();
    auto made = make(request.rateHz, 2);
    if (!made)
        return made.failure();
    const std::unique_ptr<SoundTarget> target = std::move(*made);
    JumpingClock clock;
    MixRenderer mix(**synth, [&](const std::int16_t* stereo, int frames) {
        return target->write(stereo, frames);
    });
    RenderedMidi midi(mix, request.rateHz);
    midi.setClock(clock);
    platform::MidiOutHandle handle = 0;
    midi.midiOutOpen(handle, 0);
    for (const host::MidiFile::Event& event : music->events) {
        clock.nowNs = event.timeUs * 1000;
        midi.midiOutShortMsg(handle, packed(event.message));
        if (midi.failed())
            return Failure{target->failureReason()};
        if (request.progress)
            request.progress(static_cast<double>(event.timeUs) /
                             static_cast<double>(std::max<std::int64_t>(music->lengthUs, 1)));
    }
    clock.nowNs = music->lengthUs * 1000;
    return finishTail(midi, *target);
}

Result<void> copyWav(const SoundRequest& request, const MakeTarget& make) {
    const std::filesystem::path path = platform::resolve(request.source);
    const auto file = host::openWav(path);
    if (!file)
        return Failure{host::unreadableReason(host::readWavChunks(path))};
    const double seconds = static_cast<double>(file->frames()) / file->rateHz();
    if (auto checked = checkLength(request, seconds, file->rateHz()); !checked)
        return checked;
    auto made = make(file->rateHz(), std::min(file->channels(), 2));
    if (!made)
        return made.failure();
    const std::unique_ptr<SoundTarget> target = std::move(*made);
    constexpr int step = 8192;
    std::vector<std::int16_t> samples(2 * step);
    std::int64_t done = 0;
    while (const int got = file->readRounded(samples.data(), step)) {
        if (!target->write(samples.data(), got))
            return Failure{target->failureReason()};
        done += got;
        if (request.progress)
            request.progress(
                std::min(1.0, static_cast<double>(done) /
                                  static_cast<double>(std::max<std::int64_t>(file->frames(), 1))));
    }
    if (done == 0)
        warning(request, "has no sound");
    else if (done < file->frames())
        warning(request, "is damaged; only the part before the damage is converted");
    return target->finish();
}

} // namespace velorin::convert
