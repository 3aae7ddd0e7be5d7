// Reads chunks and events, without mercy for what is not as it should be.
#include "MidiText.h"

#include <string_view>

namespace velorin::convert {

namespace {

class Bytes {
public:
    explicit Bytes(std::string_view bytes) : bytes_(bytes) {}

    [[nodiscard]] bool atEnd() const { return at_ >= bytes_.size(); }

    int byte() {
        isWhole = isWhole && !atEnd();
        return isWhole ? static_cast<unsigned char>(bytes_[at_++]) : 0;
    }

    std::uint32_t number(int count) {
        std::uint32_t value = 0;
        for (int i = 0; i < count; ++i)
            value = value << 8 | static_cast<std::uint32_t>(byte());
        return value;
    }

    std::uint32_t variableNumber() {
        std::uint32_t value = 0;
        int next = 0x80;
        while ((next & 0x80) != 0 && isWhole) {
            next = byte();
            value = value << 7 | static_cast<std::uint32_t>(next & 0x7F);
        }
        return value;
    }

    std::string_view text(std::size_t count) {
        isWhole = isWhole && count <= bytes_.size() - at_;
        const std::string_view taken = isWhole ? bytes_.substr(at_, count) : std::string_view();
        at_ += taken.size();
        return taken;
    }

    bool isWhole = true;

private:
    std::string_view bytes_;
    std::size_t at_ = 0;
};

std::string join(const char* word, int number, int more = -1, int last = -1) {
    std::string text = std::string(word) + ' ' + std::to_string(number);
    for (const int each : {more, last})
        text += each < 0 ? std::string() : ' ' + std::to_string(each);
    return text;
}

std::string metaText(Bytes& track) {
    const int kind = track.byte();
    const std::string_view content = track.text(track.variableNumber());
    Bytes bytes(content);
    switch (kind) {
    case 0x03:
        return "name " + std::string(content);
    case 0x04:
        return "instrument " + std::string(content);
    case 0x2F:
        return "end";
    case 0x51:
        return "tempo " + std::to_string(bytes.number(3));
    case 0x58: {
        const int beats = bytes.byte();
        return join("measure", beats, 1 << bytes.byte());
    }
    case 0x7F:
        return join("cell", static_cast<unsigned char>(content.empty() ? '\0' : content.back()));
    default:
        return join("meta", kind);
    }
}

std::string eventText(Bytes& track) {
    const int status = track.byte();
    const int channel = (status & 0x0F) + 1;
    switch (status & 0xF0) {
    case 0x80: {
        const int key = track.byte();
        return track.byte() == 0 ? join("off", channel, key) : "off with a velocity";
    }
    case 0x90: {
        const int key = track.byte();
        return join("on", channel, key, track.byte());
    }
    case 0xB0: {
        const int number = track.byte();
        return join("control", channel, number, track.byte());
    }
    case 0xC0:
        return join("program", channel, track.byte());
    default:
        return status == 0xFF ? metaText(track) : join("status", status);
    }
}

} // namespace

MidiText::MidiText(const std::string& file) {
    Bytes bytes(file);
    bool isAsItShouldBe = bytes.text(4) == "MThd" && bytes.number(4) == 6;
    format = static_cast<int>(bytes.number(2));
    const std::uint32_t count = bytes.number(2);
    division = static_cast<int>(bytes.number(2));
    for (std::uint32_t i = 0; i < count && bytes.isWhole; ++i) {
        isAsItShouldBe = isAsItShouldBe && bytes.text(4) == "MTrk";
        Bytes track(bytes.text(bytes.number(4)));
        std::vector<std::string> lines;
        std::int64_t tick = 0;
        while (!track.atEnd() && track.isWhole) {
            tick += track.variableNumber();
            lines.push_back(std::to_string(tick) + ' ' + eventText(track));
        }
        isAsItShouldBe = isAsItShouldBe && track.isWhole;
        tracks.push_back(lines);
    }
    isWhole = isAsItShouldBe && bytes.isWhole && bytes.atEnd();
}

} // namespace velorin::convert
