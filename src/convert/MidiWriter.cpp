// Chunks, delta times and meta events.
#include "convert/MidiWriter.h"

#include <algorithm>
#include <cassert>

namespace velorin::convert {

namespace {

constexpr char metaStatus = '\xFF';
constexpr std::uint32_t format = 1;

// Seven bits a byte; all bytes but the last have the top bit.
std::string variableNumber(std::uint32_t number) {
    std::string bytes(1, static_cast<char>(number & 0x7FU));
    for (number >>= 7; number > 0; number >>= 7)
        bytes.insert(bytes.begin(), static_cast<char>(0x80U | (number & 0x7FU)));
    return bytes;
}

std::string chunkOf(std::string_view name, const std::string& content) {
    return std::string(name) + bigEndian(static_cast<std::uint32_t>(content.size()), 4) + content;
}

std::string metaEvent(int kind, std::string_view content) {
    return std::string{metaStatus, static_cast<char>(kind)} +
           variableNumber(static_cast<std::uint32_t>(content.size())) + std::string(content);
}

} // namespace

std::string bigEndian(std::uint32_t number, int bytes) {
    std::string text;
    for (int shift = 8 * (bytes - 1); shift >= 0; shift -= 8)
        text += static_cast<char>((number >> shift) & 0xFFU);
    return text;
}

void MidiTrack::add(std::int64_t tick, std::string_view message) {
    assert(tick >= 0 && tick <= mostMidiTicks);
    events_.push_back({tick, std::string(message)});
}

void MidiTrack::addMeta(std::int64_t tick, int kind, std::string_view content) {
    add(tick, metaEvent(kind, content));
}

std::string MidiTrack::chunk(std::int64_t endTick) const {
    std::vector<Event> ordered = events_;
    std::stable_sort(ordered.begin(), ordered.end(),
                     [](const Event& a, const Event& b) { return a.tick < b.tick; });
    const std::int64_t last = ordered.empty() ? 0 : ordered.back().tick;
    ordered.push_back({std::max(endTick, last), metaEvent(midiMeta::endOfTrack, {})});
    std::string content;
    std::int64_t at = 0;
    for (const Event& event : ordered) {
        content += variableNumber(static_cast<std::uint32_t>(event.tick - at)) + event.bytes;
        at = event.tick;
    }
    return chunkOf("MTrk", content);
}

std::string midiFile(int division, const std::vector<MidiTrack>& tracks, std::int64_t endTick) {
    std::string file = chunkOf("MThd", bigEndian(format, 2) +
                                           bigEndian(static_cast<std::uint32_t>(tracks.size()), 2) +
                                           bigEndian(static_cast<std::uint32_t>(division), 2));
    for (const MidiTrack& track : tracks)
        file += track.chunk(endTick);
    return file;
}

} // namespace velorin::convert
