// The settings store: one INI file for each user, with keys that do not mind case.
#pragma once

#include "host/Complaint.h"
#include "platform/Settings.h"

#include <QString>
#include <QTimer>

#include <map>
#include <set>

namespace velorin::host {

/// Read whole when it is made. Changes are written together when the event loop comes to rest, and
/// at the end; what cannot be written is kept for the run.
class QtSettings final : public platform::Settings {
public:
    /// `notices`, which outlives this, may be null.
    explicit QtSettings(QString file = defaultFile(), platform::Notices* notices = nullptr);
    ~QtSettings() override;
    QtSettings(const QtSettings&) = delete;
    QtSettings& operator=(const QtSettings&) = delete;

    std::string GetSetting(const std::string& section, const std::string& key,
                           const std::string& fallback) override;
    void SaveSetting(const std::string& section, const std::string& key,
                     const std::string& value) override;

    /// "Velorin 2.1.ini" in the user's folder for settings.
    [[nodiscard]] static QString defaultFile();

private:
    void writeChanges();

    QString file_;
    QTimer atRest_;
    std::set<std::string> changed_;             ///< keys that the file does not have yet
    std::map<std::string, std::string> values_; ///< by section and key, in lower case
    Complaint notWritable_;
};

} // namespace velorin::host
