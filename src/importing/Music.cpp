// Pairs note ons with note offs, and follows programs, volumes and pedals.
#include "importing/Music.h"

#include "model/Cell.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <unordered_map>

namespace velorin::importing {

using midifile::Event;

namespace {

constexpr std::uint32_t none = std::numeric_limits<std::uint32_t>::max();
constexpr double openUs = -1.0; ///< the end of a note that still sounds

namespace controller {
constexpr int bank = 0;
constexpr int bankLow = 32;
constexpr int volume = 7;
constexpr int expression = 11;
constexpr int pedal = 64;
constexpr int soundOff = 120;
constexpr int reset = 121;
constexpr int notesOff = 123;
} // namespace controller

/// What the messages before a note say about it.
struct Channel {
    int program = 0;
    int volume = 100;
    int expression = 127;
    bool isPedalDown = false;
    std::vector<std::uint32_t> begun;   ///< since all notes were ended
    std::vector<std::uint32_t> silent;  ///< begun since the volume is 0
    std::vector<std::uint32_t> ringing; ///< released since the pedal is down
};

/// The open notes of a key, as a list through `next`: the first begun is the first to end.
struct OpenKey {
    std::uint32_t first = none;
    std::uint32_t last = none;
};

class Pairing {
public:
    explicit Pairing(Music& music) : music_(music) {}

    void take(const Event& event, std::size_t track, double us);

    /// Ends what still sounds, and leaves out the silent notes.
    void finish(double endUs);

private:
    void begin(const Event& event, std::size_t track, double us);
    void end(const Event& event, std::size_t track, double us);
    void endCell(const Event& event, std::size_t track, double us);
    void endAll(Channel& channel, double us);
    void control(Channel& channel, int number, int value, double us);
    void setVolume(Channel& channel, int value);
    void setPedal(Channel& channel, bool isDown, double us);
    void release(Channel& channel, std::uint32_t note, double us);

    static std::uint32_t keyId(const Event& event, std::size_t track) {
        return static_cast<std::uint32_t>(track << 11U) |
               static_cast<std::uint32_t>(event.channel() << 7) | event.bytes[1];
    }

    Music& music_;
    std::array<Channel, 16> channels_;
    std::unordered_map<std::uint32_t, OpenKey> open_;
    std::vector<std::uint32_t> next_;
    std::vector<bool> isSilent_;
};

void Pairing::take(const Event& event, std::size_t track, double us) {
    if (event.isCellEnd())
        return endCell(event, track, us);
    Channel& channel = channels_[static_cast<std::size_t>(event.channel())];
    switch (event.kind()) {
    case 0x80:
        return end(event, track, us);
    case 0x90:
        return event.bytes[2] > 0 ? begin(event, track, us) : end(event, track, us);
    case 0xB0:
        return control(channel, event.bytes[1], event.bytes[2], us);
    case 0xC0:
        channel.program = event.bytes[1];
        return;
    case 0xE0:
        ++music_.leftOut.bends;
        return;
    default:
        ++music_.leftOut.pressures;
    }
}

// A synthesizer's usual volume is 100, so a note at that volume is as loud as its velocity.
int loudnessOf(int velocity, const Channel& channel) {
    const double loudness = velocity * (channel.volume / 100.0) * (channel.expression / 127.0);
    return std::clamp(static_cast<int>(std::lround(loudness)), 1, 127);
}

void Pairing::begin(const Event& event, std::size_t track, double us) {
    Channel& channel = channels_[static_cast<std::size_t>(event.channel())];
    const auto index = static_cast<std::uint32_t>(music_.notes.size());
    music_.notes.push_back({us, openUs, openUs, static_cast<std::uint16_t>(track),
                            static_cast<std::uint8_t>(event.channel()),
                            static_cast<std::uint8_t>(channel.program), event.bytes[1],
                            static_cast<std::uint8_t>(loudnessOf(event.bytes[2], channel))});
    next_.push_back(none);
    isSilent_.push_back(channel.volume == 0);
    if (channel.volume == 0)
        channel.silent.push_back(index);
    channel.begun.push_back(index);
    OpenKey& key = open_[keyId(event, track)];
    if (key.first == none)
        key.first = index;
    else
        next_[key.last] = index;
    key.last = index;
}

void Pairing::end(const Event& event, std::size_t track, double us) {
    const auto found = open_.find(keyId(event, track));
    if (found == open_.end())
        return;
    OpenKey& key = found->second;
    while (key.first != none && music_.notes[key.first].endUs != openUs)
        key.first = next_[key.first];
    if (key.first == none)
        return;
    release(channels_[static_cast<std::size_t>(event.channel())], key.first, us);
    key.first = next_[key.first];
}

// The drum may have ended already, if another track has struck the same one.
void Pairing::endCell(const Event& event, std::size_t track, double us) {
    const auto found = open_.find(keyId(event, track));
    if (found == open_.end() || found->second.last == none)
        return;
    Note& note = music_.notes[found->second.last];
    note.endUs = us;
    note.ringUs = us;
}

void Pairing::release(Channel& channel, std::uint32_t note, double us) {
    music_.notes[note].endUs = us;
    music_.notes[note].ringUs = us;
    if (channel.isPedalDown)
        channel.ringing.push_back(note);
}

void Pairing::endAll(Channel& channel, double us) {
    for (const std::uint32_t note : channel.begun) {
        if (music_.notes[note].endUs == openUs)
            release(channel, note, us);
    }
    channel.begun.clear();
}

void Pairing::setVolume(Channel& channel, int value) {
    channel.volume = value;
    if (value == 0)
        return;
    for (const std::uint32_t note : channel.silent) {
        if (music_.notes[note].endUs == openUs)
            isSilent_[note] = false;
    }
    channel.silent.clear();
}

void Pairing::setPedal(Channel& channel, bool isDown, double us) {
    if (!isDown) {
        for (const std::uint32_t note : channel.ringing)
            music_.notes[note].ringUs = us;
        channel.ringing.clear();
    }
    channel.isPedalDown = isDown;
}

void Pairing::control(Channel& channel, int number, int value, double us) {
    switch (number) {
    case controller::bank:
    case controller::bankLow:
        return;
    case controller::volume:
        return setVolume(channel, value);
    case controller::expression:
        channel.expression = value;
        return;
    case controller::pedal:
        return setPedal(channel, value >= 64, us);
    case controller::reset:
        channel.expression = 127;
        return setPedal(channel, false, us);
    case controller::soundOff:
    case controller::notesOff:
        return endAll(channel, us);
    default:
        ++music_.leftOut.controllers;
    }
}

void Pairing::finish(double endUs) {
    for (Channel& channel : channels_) {
        endAll(channel, endUs);
        setPedal(channel, false, endUs);
    }
    std::vector<Note> heard;
    heard.reserve(music_.notes.size());
    for (std::size_t i = 0; i < music_.notes.size(); ++i) {
        if (isSilent_[i])
            ++music_.leftOut.silent;
        else
            heard.push_back(music_.notes[i]);
    }
    music_.notes = std::move(heard);
}

/// Where an event is, to sort the events of all tracks.
struct Place {
    std::int64_t tick = 0;
    std::uint32_t track = 0;
    std::uint32_t index = 0;
};

std::vector<Place> merged(const midifile::MidiData& data, std::size_t first, std::size_t end) {
    std::vector<Place> places;
    for (std::size_t t = first; t < end; ++t) {
        for (std::size_t i = 0; i < data.tracks[t].events.size(); ++i)
            places.push_back({data.tracks[t].events[i].tick, static_cast<std::uint32_t>(t),
                              static_cast<std::uint32_t>(i)});
    }
    std::stable_sort(places.begin(), places.end(),
                     [](const Place& a, const Place& b) { return a.tick < b.tick; });
    return places;
}

/// Plays tracks [first, end) together, from a tick on. Returns the tick of their end.
std::int64_t play(const midifile::MidiData& data, std::size_t first, std::size_t end,
                  std::int64_t fromTick, Music& music, Pairing& pairing) {
    std::int64_t endTick = fromTick;
    music.tempo.add(fromTick, midifile::usualTempoUs);
    for (std::size_t t = first; t < end; ++t) {
        const midifile::Track& track = data.tracks[t];
        endTick = std::max(endTick, fromTick + track.endTick);
        music.leftOut.exclusive += track.exclusive;
        for (const midifile::Meter& meter : track.meters)
            music.meters.push_back({fromTick + meter.tick, meter.beats, meter.unit});
    }
    for (const Place& place : merged(data, first, end)) {
        const Event& event = data.tracks[place.track].events[place.index];
        if (event.tempoUs > 0)
            music.tempo.add(fromTick + event.tick, event.tempoUs);
        if (event.count > 0 || event.isCellEnd())
            pairing.take(event, place.track, music.tempo.usAt(fromTick + event.tick));
    }
    return endTick;
}

// The sequencer waits one column before it plays the first, and so do the files of scores.
double leadOf(const Music& music) {
    if (music.meters.size() < 2 || !music.tempo.length().isMetrical())
        return 0.0;
    const midifile::Meter& lead = music.meters[0];
    const midifile::Meter& next = music.meters[1];
    const bool isLead = lead.tick == 0 && lead.beats == 1 && lead.unit == 16 &&
                        next.tick * 4 == music.tempo.length().ticksPerQuarter();
    const double us = isLead ? music.tempo.usAt(next.tick) : 0.0;
    return music.notes.empty() || music.notes.front().us >= us ? us : 0.0;
}

} // namespace

double Music::endUs() const {
    double us = 0.0;
    for (const Note& note : notes)
        us = std::max(us, note.endUs);
    return us;
}

Music musicOf(const midifile::MidiData& data) {
    Music music{
        midifile::TempoMap(midifile::TickLength(data.division)), {}, {}, {}, 0.0, data.isWhole()};
    Pairing pairing(music);
    std::int64_t endTick = 0;
    if (data.format == 2) {
        for (std::size_t t = 0; t < data.tracks.size(); ++t)
            endTick = play(data, t, t + 1, endTick, music, pairing);
    } else {
        endTick = play(data, 0, data.tracks.size(), 0, music, pairing);
    }
    pairing.finish(music.tempo.usAt(endTick));
    std::stable_sort(music.meters.begin(), music.meters.end(),
                     [](const auto& a, const auto& b) { return a.tick < b.tick; });
    music.leadUs = leadOf(music);
    return music;
}

} // namespace velorin::importing
