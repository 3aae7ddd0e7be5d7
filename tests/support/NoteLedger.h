// What still sounds on the MIDI devices of a test: each note-on without a note-off.
#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace scripted {

/// Reads the log of `ScriptedMidi` line by line. A note-off, or a note-on at velocity 0, ends all
/// that its key sounds on its channel; closing a device ends everything.
class NoteLedger {
public:
    /// Takes the lines of `log` that have come since the last call. A log that has been emptied
    /// meanwhile is read from its beginning.
    void read(const std::vector<std::string>& log);

    /// "0:67" for key 67 on channel 0, in the order of channels and keys; "0:67 x2" for one that
    /// was begun twice.
    [[nodiscard]] std::vector<std::string> left() const;

    /// The same without the percussion channel, whose sounds end by themselves.
    [[nodiscard]] std::vector<std::string> leftMelodic() const;

    /// Notes begun so far.
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
