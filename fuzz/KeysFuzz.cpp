// Any bytes as what a MIDI keyboard sends: messages have valid bytes, and when all keys are up
// nothing sounds any more. System messages of the input choose the row and its chord.
#include "Expect.h"
#include "convert/LoadedScore.h"
#include "host/midi/ShortMessage.h"
#include "host/midiin/MidiInput.h"
#include "playback/MidiKeys.h"

#include <algorithm>
#include <array>
#include <span>
#include <string>

using namespace velorin;

namespace {

constexpr int drumChannel = 9; // drums end by themselves

/// Knows which notes sound.
class Sounding final : public platform::MidiOut {
public:
    int midiOutGetNumDevs() override { return 1; }
    std::string midiOutGetDevCapsA(int index) override { return index == 0 ? "Fuzz" : ""; }
    std::uint32_t midiOutOpen(platform::MidiOutHandle& handle, int) override {
        handle = 1;
        return platform::midiSuccess;
    }
    std::uint32_t midiOutClose(platform::MidiOutHandle) override { return platform::midiSuccess; }
    std::uint32_t midiOutShortMsg(platform::MidiOutHandle, std::uint32_t message) override {
        const host::ShortMessage bytes = host::unpack(message);
        expect(bytes.count > 0);
        if (bytes.kind() != 0x80 && bytes.kind() != 0x90)
            return platform::midiSuccess;
        bool& sounds = sounds_[static_cast<std::size_t>(bytes.channel())][bytes.byte[1]];
        sounds = bytes.kind() == 0x90 && bytes.byte[2] > 0;
        if (sounds)
            ++begun_;
        return platform::midiSuccess;
    }

    [[nodiscard]] bool isSilent() const {
        for (std::size_t channel = 0; channel < sounds_.size(); ++channel) {
            const auto& keys = sounds_[channel];
            if (channel != drumChannel &&
                std::any_of(keys.begin(), keys.end(), [](bool sounds) { return sounds; }))
                return false;
        }
        return true;
    }
    [[nodiscard]] int begun() const { return begun_; }

private:
    std::array<std::array<bool, 128>, 16> sounds_{};
    int begun_ = 0;
};

void chooseRow(Studio& studio, unsigned char byte) {
    const int row = byte % scoreRows;
    studio.score.CurrentRow = static_cast<std::int16_t>(row);
    studio.setup.values.options.rows[static_cast<std::size_t>(row)].chord = (byte & 0x80U) != 0;
}

void play(MidiKeys& keys, const platform::MidiInMessage& message) {
    expect(message.status >= 0x80 && message.status <= 0xEF);
    expect(message.data1 <= 127 && message.data2 <= 127);
    const int kind = message.status & 0xF0;
    if (kind == 0x90 && message.data2 > 0)
        keys.press(message.data1);
    else if (kind == 0x80 || kind == 0x90)
        keys.release(message.data1);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    Sounding sounding;
    convert::LoadedScore score(sounding);
    score.session.sounding.Device_Click();
    MidiKeys keys(score.studio, score.session.sounding);
    bool hasPressed = false;
    for (std::size_t at = 0; at < size;) {
        const std::size_t count = std::min<std::size_t>(data[at] % 5, size - at - 1);
        const std::span bytes(data + at + 1, count);
        at += 1 + count;
        if (const auto message = host::channelMessage(bytes)) {
            hasPressed = hasPressed || ((message->status & 0xF0) == 0x90 && message->data2 > 0);
            play(keys, *message);
        } else if (count == 2 && bytes[0] == 0xFF) {
            keys.releaseAll();
            chooseRow(score.studio, bytes[1]);
        }
    }
    keys.releaseAll();
    expect(sounding.isSilent());
    expect(hasPressed == (sounding.begun() > 0));
    return 0;
}
