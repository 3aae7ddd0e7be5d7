// Any bytes as the settings file: the windows can use every value that is read from it, and the
// next run finds what they save.
#include "Expect.h"
#include "host/desktop/QtSettings.h"
#include "windows/frame/SettingValues.h"

#include <unistd.h>

#include <QCoreApplication>
#include <QFile>

#include <cmath>
#include <cstdint>
#include <string>

using namespace velorin;

namespace {

/// A file with a new name for each run: Qt caches files by name for a while.
class SettingsFile {
public:
    SettingsFile(const unsigned char* data, std::size_t size, std::uint64_t number)
        : name_(QString("/dev/shm/velorin-fuzz-%1-%2.ini").arg(getpid()).arg(number)) {
        QFile file(name_);
        const auto bytes = static_cast<qint64>(size);
        expect(file.open(QIODevice::WriteOnly) &&
               file.write(reinterpret_cast<const char*>(data), bytes) == bytes);
    }
    ~SettingsFile() { QFile::remove(name_); }
    SettingsFile(const SettingsFile&) = delete;
    SettingsFile& operator=(const SettingsFile&) = delete;

    [[nodiscard]] QString name() const { return name_; }

private:
    QString name_;
};

void expectUsable(host::QtSettings& settings) {
    for (const char* key : {"Playing position", "Devices", "Top", "Left", "Record Top", "Volume"}) {
        const std::string text = settings.GetSetting("Settings", key, "0");
        if (const auto twips = settingTwips(text))
            expect(std::isfinite(*twips) && settingTwips(settingText(*twips)).has_value());
        if (const auto boolean = settingBoolean(text))
            expect(settingBoolean(settingText(*boolean)) == boolean);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    static int count = 0;
    static QCoreApplication application(count, nullptr);
    static std::uint64_t number = 0;
    const SettingsFile file(data, size, ++number);
    const std::string value(reinterpret_cast<const char*>(data), size % 32);
    const bool isText = QString::fromStdString(value).toStdString() == value;
    {
        host::QtSettings settings(file.name());
        expectUsable(settings);
        if (isText)
            settings.SaveSetting("Settings", "Own name", value);
    }
    host::QtSettings again(file.name());
    if (isText)
        expect(again.GetSetting("Settings", "own name", "none") == value);
    return 0;
}
