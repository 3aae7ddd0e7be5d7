// An open MIDI input: RtMidi's thread puts messages in, the control thread takes them out.
#pragma once

#include "platform/MidiIn.h"

#include <boost/lockfree/spsc_queue.hpp>

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

class RtMidiIn;

namespace velorin::host {

/// Made, asked and destroyed by the control thread. RtMidi calls `take` on a thread of the MIDI
/// system, which may be one of real time, so it does not lock and does not allocate.
class MidiInput {
public:
    /// Null if the port is not there or cannot be opened. `api` is an `RtMidi::Api`.
    [[nodiscard]] static std::unique_ptr<MidiInput> open(int api, const std::string& port);
    ~MidiInput();
    MidiInput(const MidiInput&) = delete;
    MidiInput& operator=(const MidiInput&) = delete;

    /// Readable while messages wait.
    [[nodiscard]] int descriptor() const { return event_; }

    /// The next message, if one waits.
    [[nodiscard]] std::optional<platform::MidiInMessage> next();

    /// Call it before the last `next` of a turn: a message that comes after it makes the descriptor
    /// readable again.
    void acknowledge() const;

    [[nodiscard]] bool isThere() const;

private:
    explicit MidiInput(std::string port);
    void take(const std::vector<unsigned char>& bytes);

    std::string port_;
    int event_ = -1;
    /// A hand plays some tens of messages a second; a full queue drops the newest.
    boost::lockfree::spsc_queue<platform::MidiInMessage> messages_{1024};
    std::unique_ptr<RtMidiIn> input_; ///< last: its thread ends before the queue
};

/// The names of a system's input ports, without the numbers that change when a device is plugged in
/// again. Without the program's own ports and those that only pass messages through.
[[nodiscard]] std::vector<std::string> midiInputNames(int api);

/// The message in the bytes that a port gave, without a moment. No value for system messages and
/// for bytes that are no message.
[[nodiscard]] std::optional<platform::MidiInMessage>
channelMessage(std::span<const unsigned char> bytes);

/// "Keys:Keys MIDI 1 20:0" without the numbers at its end.
[[nodiscard]] std::string withoutPortNumbers(const std::string& name);

} // namespace velorin::host
