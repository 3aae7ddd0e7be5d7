// A Standard MIDI File as a list of messages with their times.
#pragma once

#include "host/midi/ShortMessage.h"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <span>
#include <vector>

namespace velorin::host {

struct MidiFile {
    struct Event {
        std::int64_t timeUs = 0; ///< from the start of the file, as its tempo changes make it
        ShortMessage message;
    };

    std::vector<Event> events; ///< in the order of their times
    std::int64_t lengthUs = 0; ///< to the end of the longest track, or of the last pattern
    bool isWhole = true;       ///< false: a track is damaged or cut, and its rest is missing

    [[nodiscard]] bool hasNotes() const; ///< true if anything in it sounds
};

/// Formats 0, 1 and 2, also inside a RIFF file; a time division in ticks or in film frames. The
/// tracks of formats 0 and 1 play together, the patterns of format 2 one after the other. There are
/// as many tracks as the header says; what follows is ignored, and a second header ends the file.
/// The top bit of data bytes is ignored. Exclusive messages are left out. A track that is cut or
/// damaged plays up to there; no value if there is no track at all.
[[nodiscard]] std::optional<MidiFile> readMidiFile(std::span<const std::uint8_t> bytes);

/// The bytes of a file; no value for what is no regular file, is empty, or is larger than 16 MiB.
[[nodiscard]] std::optional<std::vector<std::uint8_t>>
readMidiBytes(const std::filesystem::path& path);

/// No value too if `readMidiBytes` has none.
[[nodiscard]] std::optional<MidiFile> readMidiFile(const std::filesystem::path& path);

} // namespace velorin::host
