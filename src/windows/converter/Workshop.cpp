// Names of new files, and the SoundFont.
#include "windows/converter/Workshop.h"

#include "host/synth/SoundFonts.h"

#include <cstdlib>
#include <utility>

namespace velorin {

namespace fs = std::filesystem;

Workshop::Workshop(fs::path programFolder) : programFolder_(std::move(programFolder)) {}

fs::path Workshop::reserve(const fs::path& folder, const std::string& stem,
                           const std::string& ending) {
    const std::lock_guard lock(mutex_);
    for (int number = 1;; ++number) {
        std::string name = stem;
        if (number > 1)
            name.append("-").append(std::to_string(number));
        fs::path target = folder / name.append(ending);
        std::error_code failed;
        if (!fs::exists(fs::symlink_status(target, failed)) && taken_.insert(target).second)
            return target;
    }
}

void Workshop::release(const fs::path& target) {
    const std::lock_guard lock(mutex_);
    taken_.erase(target);
}

fs::path Workshop::soundFont() {
    std::call_once(fontSought_, [this] {
        const char* const home = std::getenv("HOME");
        const auto fonts = host::findSoundFonts(
            host::soundFontFolders(programFolder_, home != nullptr ? home : ""));
        if (!fonts.empty())
            font_ = fonts.front().path;
    });
    return font_;
}

} // namespace velorin
