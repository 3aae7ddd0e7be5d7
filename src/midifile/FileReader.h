// Reads Standard MIDI Files.
#pragma once

#include "midifile/MidiData.h"

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace velorin::midifile {

/// Formats 0, 1 and 2, also inside a RIFF file. There are as many tracks as the header says; what
/// follows is ignored, and a second header ends the file. The top bit of data bytes is ignored. A
/// track that is cut or damaged has its events up to there; no value if there is no track at all.
[[nodiscard]] std::optional<MidiData> readFirst(std::span<const std::uint8_t> bytes);

/// The file and those that follow it, each from its own header. Empty if `readFirst` returns no
/// value. A following file is left out if it has no track, or the same bytes as the first: some
/// programs write a file twice.
[[nodiscard]] std::vector<MidiData> readAll(std::span<const std::uint8_t> bytes);

} // namespace velorin::midifile
