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

/// The presets of the file; no value if it is no SoundFont. Reads only the headers.
[[nodiscard]] std::optional<std::vector<Preset>> readPresets(const std::filesystem::path& file);

/// True if the font has all 128 melodic programs and a percussion kit (bank 128).
[[nodiscard]] bool isGeneralMidi(const std::vector<Preset>& presets);

} // namespace velorin::host
