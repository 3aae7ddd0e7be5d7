// The per-user store of strings by section and key. Keys are case-insensitive.
#pragma once

#include <string>

namespace platform {

class Settings {
public:
    virtual ~Settings() = default;
    /// The stored text (UTF-8), or `fallback` if the key is missing.
    [[nodiscard]] virtual std::string GetSetting(const std::string& section, const std::string& key,
                                                 const std::string& fallback) = 0;
    /// Stores a text. If the store cannot be written, the value lasts until the end of the run, and
    /// the failure is logged once.
    virtual void SaveSetting(const std::string& section, const std::string& key,
                             const std::string& value) = 0;
};

} // namespace platform
