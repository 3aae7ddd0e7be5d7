// Reads the chunks of a MIDI file and the events of its tracks.
#include "midifile/FileReader.h"

#include <algorithm>
#include <string_view>

namespace velorin::midifile {

namespace {

/// Reads bytes in order; after the end everything is 0.
class Bytes {
public:
    explicit Bytes(std::span<const std::uint8_t> bytes) : bytes_(bytes) {}

    [[nodiscard]] bool atEnd() const { return at_ >= bytes_.size(); }
    [[nodiscard]] bool failed() const { return failed_; }
    [[nodiscard]] std::size_t left() const { return bytes_.size() - at_; }

    std::uint8_t byte() {
        failed_ = failed_ || atEnd();
        return failed_ ? std::uint8_t{0} : bytes_[at_++];
    }

    [[nodiscard]] std::uint8_t peek() const { return atEnd() ? std::uint8_t{0} : bytes_[at_]; }

    std::uint32_t number(int bytes) {
        std::uint32_t value = 0;
        for (int i = 0; i < bytes; ++i)
            value = (value << 8) | byte();
        return value;
    }

    /// Seven bits a byte, at most four bytes.
    std::uint32_t variableNumber() {
        std::uint32_t value = 0;
        for (int i = 0; i < 4; ++i) {
            const std::uint8_t next = byte();
            value = (value << 7) | (next & 0x7FU);
            if ((next & 0x80U) == 0)
                return value;
        }
        failed_ = true;
        return 0;
    }

    /// The next `count` bytes, or as many of them as there are.
    std::span<const std::uint8_t> take(std::size_t count) {
        const auto taken = bytes_.subspan(at_, std::min(count, left()));
        at_ += taken.size();
        return taken;
    }

    [[nodiscard]] bool startsWith(std::string_view word) const {
        return left() >= word.size() &&
               std::equal(word.begin(), word.end(),
                          bytes_.begin() + static_cast<std::ptrdiff_t>(at_));
    }

    bool takeWord(std::string_view word) {
        const bool isThere = startsWith(word);
        at_ += isThere ? word.size() : 0;
        return isThere;
    }

private:
    std::span<const std::uint8_t> bytes_;
    std::size_t at_ = 0;
    bool failed_ = false;
};

constexpr std::uint8_t metaStatus = 0xFF;
constexpr std::uint8_t tempoKind = 0x51;
constexpr std::uint8_t meterKind = 0x58;
constexpr std::uint8_t endKind = 0x2F;

/// How a track goes on after an event.
enum class Then { nextEvent, end, damage };

bool skip(Bytes& track, std::uint32_t length) {
    const bool isWhole = length <= track.left();
    track.take(length);
    return isWhole && !track.failed();
}

Then readTempo(Bytes& bytes, std::int64_t tick, Track& track) {
    const std::uint32_t tempoUs = bytes.number(3);
    if (!bytes.failed() && tempoUs > 0)
        track.events.push_back({tick, tempoUs, {}, 0});
    return bytes.failed() ? Then::damage : Then::nextEvent;
}

Then readMeter(Bytes& bytes, std::uint32_t length, std::int64_t tick, Track& track) {
    constexpr int smallestUnit = 6; // as a power of two
    const int beats = bytes.byte();
    const int unit = bytes.byte();
    if (!skip(bytes, length - 2))
        return Then::damage;
    if (beats > 0 && unit <= smallestUnit)
        track.meters.push_back({tick, beats, 1 << unit});
    return Then::nextEvent;
}

Then readOwnData(Bytes& bytes, std::uint32_t length, std::int64_t tick, Track& track) {
    constexpr std::uint8_t drumNoteOff = 0x89;
    const auto content = bytes.take(length);
    const std::uint8_t key = content.empty() ? std::uint8_t{0} : content.back();
    const std::string expected = drumCellEnd(key);
    if (key < 0x80 && std::equal(content.begin(), content.end(), expected.begin(), expected.end(),
                                 [](std::uint8_t byte, char character) {
                                     return byte == static_cast<std::uint8_t>(character);
                                 }))
        track.events.push_back({tick, 0, {drumNoteOff, key, 0}, 0});
    return Then::nextEvent;
}

Then readMeta(Bytes& bytes, std::int64_t tick, Track& track) {
    const std::uint8_t kind = bytes.byte();
    const std::uint32_t length = bytes.variableNumber();
    if (kind == tempoKind && length == 3)
        return readTempo(bytes, tick, track);
    if (kind == meterKind && length >= 2 && length <= bytes.left())
        return readMeter(bytes, length, tick, track);
    if (kind == ownDataKind && length <= bytes.left())
        return readOwnData(bytes, length, tick, track);
    if (!skip(bytes, length))
        return Then::damage;
    return kind == endKind ? Then::end : Then::nextEvent;
}

// Some programs write velocities above 127. The top bit is ignored.
Then readChannelMessage(Bytes& bytes, std::uint8_t status, std::int64_t tick, Track& track) {
    Event event{tick, 0, {status, 0, 0}, (status & 0xE0U) == 0xC0U ? 2U : 3U};
    for (std::size_t i = 1; i < event.count; ++i)
        event.bytes[i] = bytes.byte() & 0x7FU;
    if (bytes.failed())
        return Then::damage;
    track.events.push_back(event);
    return Then::nextEvent;
}

Then readEvent(Bytes& bytes, std::uint8_t& running, std::int64_t tick, Track& track) {
    const std::uint8_t status = (bytes.peek() & 0x80U) != 0 ? bytes.byte() : running;
    if (status == metaStatus)
        return readMeta(bytes, tick, track);
    if (status == 0xF0 || status == 0xF7) {
        ++track.exclusive;
        return skip(bytes, bytes.variableNumber()) ? Then::nextEvent : Then::damage;
    }
    if (status < 0x80 || status > 0xEF)
        return Then::damage;
    running = status;
    return readChannelMessage(bytes, status, tick, track);
}

Track readTrack(Bytes bytes) {
    Track track;
    std::uint8_t running = 0;
    Then then = Then::nextEvent;
    while (then == Then::nextEvent && !bytes.atEnd()) {
        track.endTick += bytes.variableNumber();
        then = bytes.failed() ? Then::damage : readEvent(bytes, running, track.endTick, track);
    }
    track.isWhole = then != Then::damage;
    return track;
}

struct Header {
    std::uint16_t format = 0;
    std::uint16_t trackCount = 0; ///< 0 in files of careless programs: as many as there are
    std::uint16_t division = 0;   ///< 0: there is no header
};

Header readHeader(Bytes& file) {
    if (file.takeWord("RIFF")) {
        file.take(4);
        if (!file.takeWord("RMIDdata"))
            return {};
        file.take(4);
    }
    if (!file.takeWord("MThd"))
        return {};
    const std::uint32_t length = file.number(4);
    Bytes bytes(file.take(length));
    Header header;
    header.format = static_cast<std::uint16_t>(bytes.number(2));
    header.trackCount = static_cast<std::uint16_t>(bytes.number(2));
    header.division = static_cast<std::uint16_t>(bytes.number(2));
    return bytes.failed() ? Header() : header;
}

// A second header begins another file: several in one, or the end of a longer one that was written
// over.
std::vector<Track> readTracks(Bytes& file, std::uint16_t count) {
    std::vector<Track> tracks;
    while (file.left() >= 8 && (count == 0 || tracks.size() < count)) {
        if (file.startsWith("MThd"))
            break;
        const bool isTrack = file.takeWord("MTrk");
        if (!isTrack)
            file.take(4);
        const std::uint32_t length = file.number(4);
        const bool isCut = length > file.left();
        const auto chunk = file.take(length);
        if (!isTrack)
            continue;
        tracks.push_back(readTrack(Bytes(chunk)));
        tracks.back().isWhole = tracks.back().isWhole && !isCut;
    }
    return tracks;
}

// Skips the chunks before the next header. False if there is none.
bool findHeader(Bytes& file) {
    while (file.left() >= 8 && !file.startsWith("MThd") && !file.startsWith("RIFF")) {
        file.take(4);
        file.take(file.number(4));
    }
    return file.left() >= 8;
}

std::optional<MidiData> readNext(Bytes& file) {
    const Header header = readHeader(file);
    if (header.division == 0)
        return std::nullopt;
    MidiData data{header.format, header.division, readTracks(file, header.trackCount)};
    if (data.tracks.empty())
        return std::nullopt;
    return data;
}

} // namespace

std::optional<MidiData> readFirst(std::span<const std::uint8_t> bytes) {
    Bytes file(bytes);
    return readNext(file);
}

std::vector<MidiData> readAll(std::span<const std::uint8_t> bytes) {
    Bytes file(bytes);
    std::vector<MidiData> files;
    auto next = readNext(file);
    if (!next)
        return files;
    files.push_back(std::move(*next));
    const auto first = bytes.first(bytes.size() - file.left());
    while (findHeader(file)) {
        const auto rest = bytes.last(file.left());
        next = readNext(file);
        const auto read = rest.first(rest.size() - file.left());
        if (next && !std::equal(read.begin(), read.end(), first.begin(), first.end()))
            files.push_back(std::move(*next));
    }
    return files;
}

} // namespace velorin::midifile
