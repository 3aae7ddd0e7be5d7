// The settings store: one INI file for each user.
#include "host/desktop/QtSettings.h"

#include "host/disk/DurableFile.h"
#include "platform/Text.h"

#include <QFileInfo>
#include <QSettings>
#include <QStandardPaths>

#include <filesystem>

namespace velorin::host {

namespace fs = std::filesystem;

namespace {

std::string canonical(const std::string& section, const std::string& key) {
    return platform::lowerCase(section + "/" + key);
}

} // namespace

QString QtSettings::defaultFile() {
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
           "/velorin/Velorin 2.1.ini";
}

QtSettings::QtSettings(QString file, platform::Notices* notices)
    : file_(std::move(file)), notWritable_(notices) {
    const QSettings store(file_, QSettings::IniFormat);
    const QStringList keys = store.allKeys();
    whenIdle_.setSingleShot(true);
    QObject::connect(&whenIdle_, &QTimer::timeout, [this] { writeChanges(); });
    for (const QString& key : keys) {
        if (key.isEmpty())
            continue; // damage
        // A text with a comma that another program has written is read as a list.
        const QVariant value = store.value(key);
        const QString text = value.typeId() == QMetaType::QStringList
                                 ? value.toStringList().join(", ")
                                 : value.toString();
        values_[platform::lowerCase(key.toStdString())] = text.toStdString();
    }
}

std::string QtSettings::GetSetting(const std::string& section, const std::string& key,
                                   const std::string& fallback) {
    const auto known = values_.find(canonical(section, key));
    return known != values_.end() ? known->second : fallback;
}

void QtSettings::SaveSetting(const std::string& section, const std::string& key,
                             const std::string& value) {
    const std::string name = canonical(section, key);
    const auto known = values_.find(name);
    if (known != values_.end() && known->second == value)
        return;
    values_[name] = value;
    changed_.insert(name);
    whenIdle_.start(0);
}

QtSettings::~QtSettings() {
    writeChanges();
}

// All changes at once, since each write waits for the disk: the store syncs the new file before it
// renames it, and the folder is synced after that.
void QtSettings::writeChanges() {
    if (changed_.empty())
        return;
    const fs::path folder = QFileInfo(file_).absolutePath().toStdString();
    constexpr unsigned forAll = 0777;
    createFoldersDurably(folder, forAll);
    QSettings store(file_, QSettings::IniFormat);
    for (const std::string& name : changed_)
        store.setValue(QString::fromStdString(name), QString::fromStdString(values_[name]));
    changed_.clear();
    store.sync();
    if (store.status() == QSettings::NoError)
        (void)syncFolder(folder); // the settings are written; only a power cut could undo it
    if (store.status() == QSettings::AccessError)
        notWritable_.log("The settings cannot be written to \"" + file_.toStdString() +
                         "\", so they end with this run. Make room there, or allow writing.");
}

} // namespace velorin::host
