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

    bool takeWord(std::string_view word) {
        if (left() < word.size() || !std::equal(word.begin(), word.end(),
                                                bytes_.begin() + static_cast<std::ptrdiff_t>(at_)))
            return false;
        at_ += word.size();
        return true;
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

/// Returns whether the track goes on.
bool readMeta(Bytes& track, std::int64_t tick, std::vector<Mark>& marks) {
    const std::uint8_t kind = track.byte();
    const std::uint32_t length = track.variableNumber();
    if (kind == tempoKind && length == 3) {
        const std::uint32_t tempoUs = track.number(3);
        if (!track.failed() && tempoUs > 0)
            marks.push_back({tick, tempoUs, {}});
        return !track.failed();
    }
    const bool isWhole = length <= track.left();
    track.take(length);
    return isWhole && kind != endKind && !track.failed();
}

/// Returns whether the track goes on.
bool readChannelMessage(Bytes& track, std::uint8_t status, std::int64_t tick,
                        std::vector<Mark>& marks) {
    std::uint32_t word = status;
    word |= static_cast<std::uint32_t>(track.byte()) << 8;
    if ((status & 0xE0U) != 0xC0U)
        word |= static_cast<std::uint32_t>(track.byte()) << 16;
    const ShortMessage message = unpack(word);
    if (track.failed() || message.count == 0)
        return false;
    marks.push_back({tick, 0, message});
    return true;
}

bool readEvent(Bytes& track, std::uint8_t& running, std::int64_t tick, std::vector<Mark>& marks) {
    const std::uint8_t status = (track.peek() & 0x80U) != 0 ? track.byte() : running;
    if (status == metaStatus)
        return readMeta(track, tick, marks);
    if (status == 0xF0 || status == 0xF7) {
        const std::uint32_t length = track.variableNumber();
        const bool isWhole = length <= track.left();
        track.take(length);
        return isWhole && !track.failed();
    }
    if (status < 0x80 || status > 0xEF)
        return false;
    running = status;
    return readChannelMessage(track, status, tick, marks);
}

void readTrack(Bytes track, std::vector<Mark>& marks) {
    std::int64_t tick = 0;
    std::uint8_t running = 0;
    while (!track.atEnd()) {
        const std::uint32_t delta = track.variableNumber();
        if (track.failed())
            break;
        tick += delta;
        if (!readEvent(track, running, tick, marks))
            break;
    }
    marks.push_back({tick, 0, {}});
}

/// How long a tick is.
class TickLength {
public:
    explicit TickLength(std::uint16_t division) : division_(division) {}

    [[nodiscard]] double us(std::uint32_t tempoUs) const {
        if ((division_ & 0x8000U) == 0)
            return static_cast<double>(tempoUs) / std::max<int>(division_, 1);
        const int framesPerSecond = 256 - (division_ >> 8);
        const int ticksPerFrame = std::max(division_ & 0xFF, 1);
        return 1e6 / (static_cast<double>(framesPerSecond) * ticksPerFrame);
    }

private:
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

} // namespace

std::optional<MidiFile> readMidiFile(std::span<const std::uint8_t> bytes) {
    Bytes file(bytes);
    if (file.takeWord("RIFF")) {
        file.take(4);
        if (!file.takeWord("RMIDdata"))
            return std::nullopt;
        file.take(4);
    }
    if (!file.takeWord("MThd"))
        return std::nullopt;
    const std::uint32_t headerLength = file.number(4);
    Bytes header(file.take(headerLength));
    header.number(4); // the format and the count of tracks: all that there are play together
    const auto division = static_cast<std::uint16_t>(header.number(2));
    if (header.failed() || division == 0)
        return std::nullopt;
    std::vector<Mark> marks;
    while (file.left() >= 8) {
        const bool isTrack = file.takeWord("MTrk");
        if (!isTrack)
            file.take(4);
        const std::uint32_t length = file.number(4);
        const auto chunk = file.take(length);
        if (isTrack)
            readTrack(Bytes(chunk), marks);
    }
    if (marks.empty())
        return std::nullopt;
    return timed(std::move(marks), TickLength(division));
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
