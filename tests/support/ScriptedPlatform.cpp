// The settings and the random numbers for tests, and the host made of all parts.
#include "support/ScriptedPlatform.h"

#include "platform/Text.h"

namespace scripted {

namespace {

std::pair<std::string, std::string> address(const std::string& section, const std::string& key) {
    return {platform::lowerCase(section), platform::lowerCase(key)};
}

} // namespace

std::string ScriptedSettings::GetSetting(const std::string& section, const std::string& key,
                                         const std::string& fallback) {
    return find(section, key).value_or(fallback);
}

void ScriptedSettings::SaveSetting(const std::string& section, const std::string& key,
                                   const std::string& value) {
    values_[address(section, key)] = value;
}

std::optional<std::string> ScriptedSettings::find(const std::string& section,
                                                  const std::string& key) const {
    const auto found = values_.find(address(section, key));
    if (found == values_.end())
        return std::nullopt;
    return found->second;
}

double ScriptedDesktop::Rnd() {
    if (randoms.empty())
        return 0.0;
    const double number = randoms.front();
    randoms.pop_front();
    return number;
}

std::string ScriptedSystemFiles::GetShortPathNameA(const std::string& path) {
    std::string name;
    for (const char character : path)
        name += character == ' ' ? std::string("%20") : std::string(1, character);
    return name;
}

std::string ScriptedSystemFiles::GetPrivateProfileStringA(const std::string& section,
                                                          const std::string& key,
                                                          const std::string& fallback,
                                                          const std::string& file) {
    const auto found = values_.find(platform::lowerCase(file + "|" + section + "|" + key));
    return found == values_.end() ? fallback : found->second;
}

bool ScriptedSystemFiles::WritePrivateProfileStringA(const std::string& section,
                                                     const std::string& key,
                                                     const std::string& value,
                                                     const std::string& file) {
    values_[platform::lowerCase(file + "|" + section + "|" + key)] = value;
    return true;
}

ScriptedPlatform::ScriptedPlatform()
    : midi(time),
      mci(time),
      systemFiles(folder.path().string()),
      platform{time,     time,    midi,  mci,  dialogs,     boxes,   files,
               settings, desktop, menus, time, systemFiles, encoder, folder.path().string(),
               nullptr,  &notices} {}

} // namespace scripted
