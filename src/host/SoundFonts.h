// The SoundFonts of the machine: where they are looked for, and in which order they stand.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace velorin::host {

struct SoundFont {
    std::filesystem::path path; ///< free of links
    std::string name;           ///< the file's name without its ending, UTF-8
    bool generalMidi = false;   ///< has the 128 programs of General MIDI and a drum kit
};

/// The folders in the order in which they count: beside the program, the user's, the system's.
[[nodiscard]] std::vector<std::filesystem::path>
soundFontFolders(const std::filesystem::path& programFolder, const std::filesystem::path& home);

/// Every SoundFont (.sf2, .sf3) in the folders, each file once however many links lead to it. Fonts
/// with General MIDI stand first, so that the first device plays any score; then the order of the
/// folders holds, within a folder the one that the system calls its default, then the name.
[[nodiscard]] std::vector<SoundFont>
findSoundFonts(const std::vector<std::filesystem::path>& folders);

} // namespace velorin::host
