// The settings store: one INI file for each user, with keys that do not mind case.
#pragma once

#include "host/Complaint.h"
#include "platform/Settings.h"

#include <QString>

#include <map>

namespace velorin::host {

/// Read whole when it is made. Every change is written to the file at once; one that cannot be
/// written is kept for the run.
class QtSettings final : public platform::Settings {
public:
    explicit QtSettings(QString file = defaultFile());

    std::string GetSetting(const std::string& section, const std::string& key,
                           const std::string& fallback) override;
    void SaveSetting(const std::string& section, const std::string& key,
                     const std::string& value) override;

    /// "Velorin 2.1.ini" in the user's folder for settings.
    [[nodiscard]] static QString defaultFile();

private:
    QString file_;
    std::map<std::string, std::string> values_; ///< by section and key, in lower case
    Complaint notWritable_;
};

} // namespace velorin::host
