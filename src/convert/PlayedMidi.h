// Plays a score without time or sound, and keeps what it sends.
#pragma once

#include "host/midi/ShortMessage.h"
#include "model/RowArray.h"
#include "platform/MidiOut.h"
#include "platform/Result.h"

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace velorin::convert {

struct LoadedScore;
struct PlaySetup;

/// A message that a device accepts.
struct PlayedMessage {
    std::int64_t timeNs = 0; ///< from the start of the play
    int row = 0;             ///< that sent it, [0, 13)
    host::ShortMessage message;
};

struct PlayedSong {
    std::vector<PlayedMessage> messages; ///< in the order in which they were sent
    std::int64_t leadNs = 0;             ///< the wait from the start to column 0
    std::int64_t lengthNs = 0;           ///< from the start to the end of the last column
    double columnSeconds = 0.0; ///< 12 / tempo; 0 or negative if the tempo is, as in a few files
};

/// A MIDI device that keeps the messages and sounds nothing.
class KeptMidi final : public platform::MidiOut {
public:
    int midiOutGetNumDevs() override { return 1; }
    std::string midiOutGetDevCapsA(int index) override;
    std::uint32_t midiOutOpen(platform::MidiOutHandle& handle, int index) override;
    std::uint32_t midiOutClose(platform::MidiOutHandle handle) override;
    std::uint32_t midiOutShortMsg(platform::MidiOutHandle handle, std::uint32_t message) override;

private:
    friend PlayedSong playToEnd(LoadedScore& score, KeptMidi& midi);

    const LoadedScore* score_ = nullptr; ///< null before the play: messages are then lost
    std::vector<PlayedMessage> messages_;
};

/// Plays the score once from its start, with the sequencer of the program, into the device that it
/// was made with. `progress` gets the share done [0, 1] from time to time; it may be empty.
void play(LoadedScore& score, const std::function<void(double)>& progress = {});

/// Plays the score into `midi`, the device that it was made with.
[[nodiscard]] PlayedSong playToEnd(LoadedScore& score, KeptMidi& midi);

/// Plays a score file without sound, which takes next to no time. Fails if it is none. `text` and
/// `setup` as in `LoadedScore::open`.
[[nodiscard]] platform::Result<PlayedSong> playSilently(const std::string& name,
                                                        const std::string& text = {},
                                                        const PlaySetup* setup = nullptr);

/// For each row, a bit for each MIDI channel [0, 15] on which it begins notes.
[[nodiscard]] RowArray<std::uint16_t> channelsOfRows(const PlayedSong& song);

} // namespace velorin::convert
