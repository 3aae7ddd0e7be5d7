// The sequencer with no time to wait.
#include "convert/PlayedMidi.h"

#include "convert/LoadedScore.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace velorin::convert {

namespace {

constexpr platform::MidiOutHandle keptHandle = 1;

} // namespace

std::string KeptMidi::midiOutGetDevCapsA(int index) {
    return index == 0 ? "File" : "";
}

std::uint32_t KeptMidi::midiOutOpen(platform::MidiOutHandle& handle, int index) {
    if (index > 0 || index < mapper)
        return platform::midiBadDevice;
    handle = keptHandle;
    return platform::midiSuccess;
}

std::uint32_t KeptMidi::midiOutClose(platform::MidiOutHandle handle) {
    return handle == keptHandle ? platform::midiSuccess : platform::midiBadHandle;
}

std::uint32_t KeptMidi::midiOutShortMsg(platform::MidiOutHandle handle, std::uint32_t message) {
    if (handle != keptHandle || score_ == nullptr)
        return platform::midiBadHandle;
    const host::ShortMessage bytes = host::unpack(message);
    if (bytes.count == 0)
        return platform::midiBadParameter;
    messages_.push_back({score_->host.clock.nowNs, score_->session.sounding.SoundRow, bytes});
    return platform::midiSuccess;
}

// As the program does it from its start: the device opens, then the play command runs to its end.
void play(LoadedScore& score, const std::function<void(double)>& progress) {
    Session& session = score.session;
    if (progress) {
        score.host.loop.onYield = [&score, &progress] {
            const double columns = std::max<int>(score.studio.score.LastColumn, 1);
            progress(std::min(score.studio.run.PlayColumn / columns, 1.0));
        };
    }
    session.sequencer.PlayTimer = session.watch.StopWatchNew();
    session.sounding.Device_Click();
    session.sequencer.PlayAndStop_Click(0);
    score.host.loop.onYield = nullptr;
}

PlayedSong playToEnd(LoadedScore& score, KeptMidi& midi) {
    const Session& session = score.session;
    midi.messages_.clear();
    midi.score_ = &score;
    play(score);
    midi.score_ = nullptr;
    PlayedSong song;
    song.messages = std::exchange(midi.messages_, {});
    song.columnSeconds = static_cast<double>(session.sequencer.ColumnTime);
    song.leadNs = std::max<std::int64_t>(std::llround(song.columnSeconds * 1e9), 0);
    song.lengthNs = score.host.clock.nowNs;
    return song;
}

platform::Result<PlayedSong> playSilently(const std::string& name, const std::string& text,
                                          const PlaySetup* setup) {
    KeptMidi midi;
    LoadedScore score(midi);
    if (const auto opened = score.open(name, text, setup); !opened)
        return opened.failure();
    return playToEnd(score, midi);
}

RowArray<std::uint16_t> channelsOfRows(const PlayedSong& song) {
    RowArray<std::uint16_t> channels{};
    for (const PlayedMessage& played : song.messages) {
        const host::ShortMessage& message = played.message;
        if (message.kind() != 0x90 || message.byte[2] == 0)
            continue;
        const unsigned bit = 1U << static_cast<unsigned>(message.channel());
        channels[played.row] = static_cast<std::uint16_t>(channels[played.row] | bit);
    }
    return channels;
}

} // namespace velorin::convert
