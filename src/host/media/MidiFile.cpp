// The chunks of a MIDI file, its tracks merged, and ticks turned into time.
#include "host/media/MidiFile.h"

#include <algorithm>
#include <fstream>
#include <string_view>

namespace velorin::host {

namespace fs = std::filesystem;

namespace {

constexpr std::uintmax_t mostBytes = 16 << 20;
constexpr double mostUs = 1e15; ///< 31 years: what is longer is damage
constexpr std::uint32_t usualTempoUs = 500'000;

/// Reads forward through bytes; behind their end everything is 0.
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

/// A message, a change of tempo, or the end of a track.
struct Mark {
    std::int64_t tick = 0;
    std::uint32_t tempoUs = 0; ///< 0: no change
    ShortMessage message;      ///< empty: none
};

constexpr std::uint8_t metaStatus = 0xFF;
constexpr std::uint8_t tempoKind = 0x51;
constexpr std::uint8_t endKind = 0x2F;

/// How a track goes on after an event.
enum class Then { nextEvent, end, damage };

bool skip(Bytes& track, std::uint32_t length) {
    const bool isWhole = length <= track.left();
    track.take(length);
    return isWhole && !track.failed();
}

Then readMeta(Bytes& track, std::int64_t tick, std::vector<Mark>& marks) {
    const std::uint8_t kind = track.byte();
    const std::uint32_t length = track.variableNumber();
    if (kind == tempoKind && length == 3) {
        const std::uint32_t tempoUs = track.number(3);
        if (!track.failed() && tempoUs > 0)
            marks.push_back({tick, tempoUs, {}});
        return track.failed() ? Then::damage : Then::nextEvent;
    }
    if (!skip(track, length))
        return Then::damage;
    return kind == endKind ? Then::end : Then::nextEvent;
}

// Some programs write velocities above 127; as in other players, the top bit does not count.
Then readChannelMessage(Bytes& track, std::uint8_t status, std::int64_t tick,
                        std::vector<Mark>& marks) {
    std::uint32_t word = status;
    word |= (track.byte() & 0x7FU) << 8;
    if ((status & 0xE0U) != 0xC0U)
        word |= (track.byte() & 0x7FU) << 16;
    if (track.failed())
        return Then::damage;
    marks.push_back({tick, 0, unpack(word)});
    return Then::nextEvent;
}

Then readEvent(Bytes& track, std::uint8_t& running, std::int64_t tick, std::vector<Mark>& marks) {
    const std::uint8_t status = (track.peek() & 0x80U) != 0 ? track.byte() : running;
    if (status == metaStatus)
        return readMeta(track, tick, marks);
    if (status == 0xF0 || status == 0xF7)
        return skip(track, track.variableNumber()) ? Then::nextEvent : Then::damage;
    if (status < 0x80 || status > 0xEF)
        return Then::damage;
    running = status;
    return readChannelMessage(track, status, tick, marks);
}

/// A track's marks, the last one at its end, and whether it was read to there.
struct Track {
    std::vector<Mark> marks;
    bool isWhole = true;
};

Track readTrack(Bytes bytes) {
    Track track;
    std::int64_t tick = 0;
    std::uint8_t running = 0;
    Then then = Then::nextEvent;
    while (then == Then::nextEvent && !bytes.atEnd()) {
        const std::uint32_t delta = bytes.variableNumber();
        tick += delta;
        then = bytes.failed() ? Then::damage : readEvent(bytes, running, tick, track.marks);
    }
    track.marks.push_back({tick, 0, {}});
    track.isWhole = then != Then::damage;
    return track;
}

/// How long a tick is.
class TickLength {
public:
    explicit TickLength(std::uint16_t division) : division_(division) {}

    [[nodiscard]] double us(std::uint32_t tempoUs) const {
        if ((division_ & 0x8000U) == 0)
            return static_cast<double>(tempoUs) / std::max<int>(division_, 1);
        const int ticksPerFrame = std::max(division_ & 0xFF, 1);
        return 1e6 / (framesPerSecond(256 - (division_ >> 8)) * ticksPerFrame);
    }

private:
    // 29 stands for the drop-frame rate of television, 29.97.
    static double framesPerSecond(int named) { return named == 29 ? 30'000.0 / 1001.0 : named; }

    std::uint16_t division_;
};

MidiFile timed(std::vector<Mark> marks, TickLength length) {
    std::stable_sort(marks.begin(), marks.end(),
                     [](const Mark& a, const Mark& b) { return a.tick < b.tick; });
    MidiFile file;
    double us = 0.0;
    double usPerTick = length.us(usualTempoUs);
    std::int64_t tick = 0;
    for (const Mark& mark : marks) {
        us = std::min(us + static_cast<double>(mark.tick - tick) * usPerTick, mostUs);
        tick = mark.tick;
        file.lengthUs = static_cast<std::int64_t>(us + 0.5);
        if (mark.tempoUs > 0)
            usPerTick = length.us(mark.tempoUs);
        if (mark.message.count > 0)
            file.events.push_back({file.lengthUs, mark.message});
    }
    return file;
}

MidiFile together(std::vector<Track> tracks, TickLength length) {
    std::vector<Mark> marks;
    for (Track& track : tracks) {
        marks.insert(marks.end(), track.marks.begin(), track.marks.end());
        track.marks = {};
    }
    return timed(std::move(marks), length);
}

// Each pattern has a tempo of its own and begins where the one before it ends.
MidiFile oneAfterTheOther(std::vector<Track> patterns, TickLength length) {
    constexpr auto most = static_cast<std::int64_t>(mostUs);
    MidiFile file;
    for (Track& pattern : patterns) {
        const MidiFile next = timed(std::move(pattern.marks), length);
        for (const MidiFile::Event& event : next.events)
            file.events.push_back({std::min(file.lengthUs + event.timeUs, most), event.message});
        file.lengthUs = std::min(file.lengthUs + next.lengthUs, most);
    }
    return file;
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

// A second header begins another file, as at the end of one that was written over a longer one.
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

} // namespace

bool MidiFile::hasNotes() const {
    return std::any_of(events.begin(), events.end(), [](const Event& event) {
        return event.message.kind() == 0x90 && event.message.byte[2] > 0;
    });
}

std::optional<MidiFile> readMidiFile(std::span<const std::uint8_t> bytes) {
    Bytes file(bytes);
    const Header header = readHeader(file);
    if (header.division == 0)
        return std::nullopt;
    std::vector<Track> tracks = readTracks(file, header.trackCount);
    if (tracks.empty())
        return std::nullopt;
    const bool isWhole =
        std::all_of(tracks.begin(), tracks.end(), [](const Track& track) { return track.isWhole; });
    const TickLength length(header.division);
    MidiFile music = header.format == 2 ? oneAfterTheOther(std::move(tracks), length)
                                        : together(std::move(tracks), length);
    music.isWhole = isWhole;
    return music;
}

std::optional<MidiFile> readMidiFile(const fs::path& path) {
    std::error_code failed;
    const std::uintmax_t size = fs::is_regular_file(path, failed) ? fs::file_size(path, failed) : 0;
    if (failed || size == 0 || size > mostBytes)
        return std::nullopt;
    std::vector<std::uint8_t> bytes(static_cast<std::size_t>(size));
    std::ifstream file(path, std::ios::binary);
    file.read(reinterpret_cast<char*>(bytes.data()), static_cast<std::streamsize>(size));
    bytes.resize(static_cast<std::size_t>(std::max<std::streamsize>(file.gcount(), 0)));
    return readMidiFile(std::span<const std::uint8_t>(bytes));
}

} // namespace velorin::host
