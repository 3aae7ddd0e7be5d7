// Any text as a command string for a device that plays a tape: the answer is a known code, and the
// position stays on the tape.
#include "Expect.h"
#include "host/mci/CommandText.h"
#include "host/mci/MciErrors.h"
#include "host/mci/PlayerDevice.h"

#include <string>

using namespace velorin::host;

namespace {

class Tape final : public Transport {
public:
    std::int64_t unitsPerSecond() const override { return 44100; }
    bool countsFrames() const override { return true; }
    std::int64_t length() const override { return 100'000; }
    std::int64_t position() override { return position_; }
    TransportMode mode() override { return mode_; }
    void play(std::int64_t from, std::int64_t to) override {
        expect(from >= 0 && from <= to && to <= length());
        position_ = to;
        mode_ = TransportMode::playing;
    }
    void pause() override { mode_ = TransportMode::paused; }
    void resume() override { mode_ = TransportMode::playing; }
    void stop() override { mode_ = TransportMode::stopped; }
    void seek(std::int64_t position) override {
        expect(position >= 0 && position <= length());
        position_ = position;
    }

private:
    std::int64_t position_ = 0;
    TransportMode mode_ = TransportMode::stopped;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    PlayerDevice device(std::make_unique<Tape>());
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t end = std::min(text.find('\n', at), text.size());
        const CommandText command = readCommand(text.substr(at, end - at));
        if (command.verb == "open") {
            const OpenText open = readOpen(command.rest);
            expect(open.file.size() <= command.rest.size());
        }
        std::string reply = "-";
        const std::uint32_t code = device.carryOut(command, &reply);
        expect(!mciErrorText(code).empty());
        expect(code == mci::success || reply == "-");
        at = end + 1;
    }
    return 0;
}
