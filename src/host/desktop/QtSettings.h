// The settings store: one INI file for each user, with case-insensitive keys.
#pragma once

#include "host/process/OnceLogger.h"
#include "platform/Settings.h"

#include <QString>
#include <QTimer>

#include <map>
#include <set>

namespace velorin::host {

/// The file is read once, by the constructor. Changes are written together when the event loop is
/// idle, and by the destructor. What cannot be written is kept for the run.
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
    QTimer whenIdle_;
    std::set<std::string> changed_;             ///< keys not written to the file yet
    std::map<std::string, std::string> values_; ///< by section and key, in lower case
    OnceLogger notWritable_;
};

} // namespace velorin::host
