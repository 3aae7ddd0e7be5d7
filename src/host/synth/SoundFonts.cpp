// The search for SoundFonts.
#include "host/synth/SoundFonts.h"

#include "host/synth/SoundFontHeader.h"
#include "platform/Text.h"

#include <algorithm>
#include <tuple>

namespace velorin::host {

namespace fs = std::filesystem;

namespace {

struct Found {
    SoundFont font;
    std::size_t folder = 0;
    bool systemDefault = false;

    // The first in the list has the lowest rank.
    [[nodiscard]] auto rank() const {
        return std::tuple(!font.generalMidi, folder, !systemDefault, font.name);
    }
};

bool isSoundFontName(const fs::path& path) {
    const std::string name = path.filename().string();
    return platform::endsWithIgnoringCase(name, ".sf2") ||
           platform::endsWithIgnoringCase(name, ".sf3");
}

// Debian's packages link this name to the font that the system prefers.
bool isDefaultLink(const fs::path& path) {
    return path.stem() == "default-GM";
}

void add(std::vector<Found>& found, const fs::path& entry, std::size_t folder) {
    std::error_code failed;
    const fs::path real = fs::canonical(entry, failed);
    if (failed || !fs::is_regular_file(real, failed))
        return;
    const auto known = std::find_if(found.begin(), found.end(),
                                    [&](const Found& f) { return f.font.path == real; });
    if (known != found.end()) {
        known->systemDefault = known->systemDefault || isDefaultLink(entry);
        return;
    }
    const auto presets = readPresets(real);
    if (!presets)
        return;
    found.push_back(
        {{real, real.stem().string(), isGeneralMidi(*presets)}, folder, isDefaultLink(entry)});
}

} // namespace

std::vector<fs::path> soundFontFolders(const fs::path& programFolder, const fs::path& home) {
    std::vector<fs::path> folders{programFolder, programFolder / "soundfonts"};
    if (!home.empty()) {
        folders.push_back(home / ".local/share/soundfonts");
        folders.push_back(home / ".local/share/sounds/sf2");
        folders.push_back(home / ".local/share/sounds/sf3");
    }
    for (const char* system : {"/usr/local/share/soundfonts", "/usr/share/soundfonts",
                               "/usr/share/sounds/sf2", "/usr/share/sounds/sf3"}) {
        folders.emplace_back(system);
    }
    return folders;
}

std::vector<SoundFont> findSoundFonts(const std::vector<fs::path>& folders) {
    std::vector<Found> found;
    for (std::size_t i = 0; i < folders.size(); ++i) {
        std::error_code failed;
        for (fs::directory_iterator entry(folders[i], failed), end; !failed && entry != end;
             entry.increment(failed)) {
            if (isSoundFontName(entry->path()))
                add(found, entry->path(), i);
        }
    }
    std::sort(found.begin(), found.end(),
              [](const Found& a, const Found& b) { return a.rank() < b.rank(); });
    std::vector<SoundFont> fonts;
    fonts.reserve(found.size());
    for (Found& f : found)
        fonts.push_back(std::move(f.font));
    return fonts;
}

} // namespace velorin::host
