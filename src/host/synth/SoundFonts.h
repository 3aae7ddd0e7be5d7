// Finds the SoundFonts of the machine, in the order of the device list.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace velorin::host {

struct SoundFont {
    std::filesystem::path path; ///< with links resolved
    std::string name;           ///< the file's name without its extension, UTF-8
    bool generalMidi = false;   ///< has the 128 programs of General MIDI and a drum kit
};

/// The folders to search, in order of precedence: beside the program, the user's, the system's.
[[nodiscard]] std::vector<std::filesystem::path>
soundFontFolders(const std::filesystem::path& programFolder, const std::filesystem::path& home);

/// Every SoundFont (.sf2, .sf3) in the folders, each file once however many links lead to it. Fonts
/// with General MIDI come first, so that the first device plays any score. Then the order of the
/// folders counts; within a folder the system default, then the name.
[[nodiscard]] std::vector<SoundFont>
findSoundFonts(const std::vector<std::filesystem::path>& folders);

} // namespace velorin::host
