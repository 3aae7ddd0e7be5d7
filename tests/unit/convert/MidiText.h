// A Standard MIDI File as text, event by event.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace velorin::convert {

/// The events of a file whose messages have no running status. Each is a line: its tick and what it
/// is, channels counted from 1.
///
///     0 name Ch 1            2400 on 1 67 127        2400 cell 42
///     0 program 1 24         4800 off 1 67           9600 end
struct MidiText {
    explicit MidiText(const std::string& file);

    int format = -1;
    int division = 0;
    std::vector<std::vector<std::string>> tracks;
    bool isWhole = false; ///< every chunk has its length, and nothing follows the last
};

} // namespace velorin::convert
