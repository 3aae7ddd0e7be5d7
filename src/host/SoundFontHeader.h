// The list of presets in a SoundFont file, read without its samples.
#pragma once

#include <filesystem>
#include <optional>
#include <vector>

namespace velorin::host {

struct Preset {
    int bank = 0;
    int program = 0;
};

/// The presets of the file; no value if it is no SoundFont. Reads the headers alone.
[[nodiscard]] std::optional<std::vector<Preset>> readPresets(const std::filesystem::path& file);

/// Whether all 128 melodic programs and a percussion kit (bank 128) are there.
[[nodiscard]] bool isGeneralMidi(const std::vector<Preset>& presets);

} // namespace velorin::host
