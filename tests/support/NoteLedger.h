// The notes that still sound on the MIDI devices of a test: each note-on without a note-off.
#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace scripted {

/// Reads the log of `ScriptedMidi` line by line. A note-off, or a note-on with velocity 0, ends all
/// notes of its key on its channel. Closing a device ends everything.
class NoteLedger {
public:
    /// Reads the lines of `log` since the last call. A log that was cleared meanwhile is read from
    /// its beginning.
    void read(const std::vector<std::string>& log);

    /// "0:67" for key 67 on channel 0, ordered by channel and key; "0:67 x2" for a note that was
    /// started twice.
    [[nodiscard]] std::vector<std::string> left() const;

    /// The same without the percussion channel, whose sounds end on their own.
    [[nodiscard]] std::vector<std::string> leftMelodic() const;

    /// Notes started so far.
    [[nodiscard]] int begun() const { return begun_; }

private:
    using Note = std::pair<int, int>; ///< channel and key

    void takeLine(const std::string& line);
    [[nodiscard]] std::vector<std::string> listed(bool withPercussion) const;

    std::map<Note, int> sounding_;
    std::size_t taken_ = 0;
    int begun_ = 0;
};

} // namespace scripted
