// The per-user store of strings, addressed by section and key; keys do not mind case.
#pragma once

#include <string>

namespace platform {

class Settings {
public:
    virtual ~Settings() = default;
    /// The stored text (UTF-8), or `fallback` if the key is absent.
    [[nodiscard]] virtual std::string GetSetting(const std::string& section, const std::string& key,
                                                 const std::string& fallback) = 0;
    /// Stores a text. A store that cannot be written keeps the value for the run and says so once
    /// on standard error.
    virtual void SaveSetting(const std::string& section, const std::string& key,
                             const std::string& value) = 0;
};

} // namespace platform
