// Merges the tracks of a MIDI file, and turns ticks into time.
#include "host/midi/MidiFile.h"

#include "midifile/FileReader.h"
#include "midifile/TickTime.h"

#include <algorithm>
#include <cmath>
#include <fstream>

namespace velorin::host {

namespace fs = std::filesystem;

namespace {

using midifile::Event;
using midifile::mostUs;
using midifile::TickLength;
using midifile::Track;

constexpr std::uintmax_t mostBytes = 16 << 20;

/// The events must be in the order of their ticks.
MidiFile timed(const std::vector<Event>& events, std::int64_t endTick, TickLength length) {
    MidiFile file;
    double us = 0.0;
    double usPerTick = length.us(midifile::usualTempoUs);
    std::int64_t tick = 0;
    const auto moveTo = [&](std::int64_t next) {
        us = std::min(us + static_cast<double>(next - tick) * usPerTick, mostUs);
        tick = next;
        file.lengthUs = std::llround(us);
    };
    for (const Event& event : events) {
        moveTo(event.tick);
        if (event.tempoUs > 0)
            usPerTick = length.us(event.tempoUs);
        if (event.count > 0)
            file.events.push_back({file.lengthUs, {event.bytes, event.count}});
    }
    moveTo(endTick);
    return file;
}

MidiFile together(std::vector<Track> tracks, TickLength length) {
    std::vector<Event> events;
    std::int64_t endTick = 0;
    for (Track& track : tracks) {
        events.insert(events.end(), track.events.begin(), track.events.end());
        endTick = std::max(endTick, track.endTick);
        track.events = {};
    }
    std::stable_sort(events.begin(), events.end(),
                     [](const Event& a, const Event& b) { return a.tick < b.tick; });
    return timed(events, endTick, length);
}

// Each pattern has a tempo of its own and begins where the one before it ends.
MidiFile oneAfterTheOther(const std::vector<Track>& patterns, TickLength length) {
    constexpr auto most = static_cast<std::int64_t>(mostUs);
    MidiFile file;
    for (const Track& pattern : patterns) {
        const MidiFile next = timed(pattern.events, pattern.endTick, length);
        for (const MidiFile::Event& event : next.events)
            file.events.push_back({std::min(file.lengthUs + event.timeUs, most), event.message});
        file.lengthUs = std::min(file.lengthUs + next.lengthUs, most);
    }
    return file;
}

} // namespace

bool MidiFile::hasNotes() const {
    return std::any_of(events.begin(), events.end(), [](const Event& event) {
        return event.message.kind() == 0x90 && event.message.byte[2] > 0;
    });
}

std::optional<MidiFile> readMidiFile(std::span<const std::uint8_t> bytes) {
    auto data = midifile::readFirst(bytes);
    if (!data)
        return std::nullopt;
    const bool isWhole = data->isWhole();
    const TickLength length(data->division);
    MidiFile music = data->format == 2 ? oneAfterTheOther(data->tracks, length)
                                       : together(std::move(data->tracks), length);
    music.isWhole = isWhole;
    return music;
}

std::optional<std::vector<std::uint8_t>> readMidiBytes(const fs::path& path) {
    std::error_code failed;
    const std::uintmax_t size = fs::is_regular_file(path, failed) ? fs::file_size(path, failed) : 0;
    if (failed || size == 0 || size > mostBytes)
        return std::nullopt;
    std::vector<std::uint8_t> bytes(static_cast<std::size_t>(size));
    std::ifstream file(path, std::ios::binary);
    file.read(reinterpret_cast<char*>(bytes.data()), static_cast<std::streamsize>(size));
    bytes.resize(static_cast<std::size_t>(std::max<std::streamsize>(file.gcount(), 0)));
    return bytes;
}

std::optional<MidiFile> readMidiFile(const fs::path& path) {
    const auto bytes = readMidiBytes(path);
    return bytes ? readMidiFile(std::span<const std::uint8_t>(*bytes)) : std::nullopt;
}

} // namespace velorin::host
