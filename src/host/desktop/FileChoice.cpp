// Dialogs that choose several files, or a folder, on Qt.
#include "host/desktop/FileChoice.h"

#include "host/desktop/IconsByName.h"
#include "platform/Settings.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QHeaderView>
#include <QTreeView>

namespace velorin::host {

namespace {

constexpr char section[] = "Settings";
constexpr char folderKey[] = "dialog folder";

QStringList choose(QFileDialog& dialog, platform::Settings& settings) {
    IconsByName icons;
    dialog.setIconProvider(&icons);
    if (const auto* const files = dialog.findChild<QTreeView*>())
        files->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    const auto last = QString::fromStdString(settings.GetSetting(section, folderKey, ""));
    dialog.setDirectory(!last.isEmpty() && QFileInfo(last).isDir() ? last : QDir::homePath());
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return {};
    const QFileInfo first(dialog.selectedFiles().constFirst());
    const QString folder = first.isDir() ? first.absoluteFilePath() : first.absolutePath();
    settings.SaveSetting(section, folderKey, folder.toStdString());
    return dialog.selectedFiles();
}

} // namespace

std::vector<std::string> chooseFiles(QWidget* parent, platform::Settings& settings,
                                     const std::string& title, const std::string& filter) {
    QFileDialog dialog(parent, QString::fromStdString(title));
    dialog.setFileMode(QFileDialog::ExistingFiles);
    dialog.setNameFilter(QString::fromStdString(filter));
    std::vector<std::string> files;
    for (const QString& file : choose(dialog, settings))
        files.push_back(file.toStdString());
    return files;
}

std::optional<std::string> chooseFolder(QWidget* parent, platform::Settings& settings,
                                        const std::string& title) {
    QFileDialog dialog(parent, QString::fromStdString(title));
    dialog.setFileMode(QFileDialog::Directory);
    dialog.setOption(QFileDialog::ShowDirsOnly);
    const QStringList chosen = choose(dialog, settings);
    return chosen.isEmpty() ? std::nullopt
                            : std::optional<std::string>(chosen.constFirst().toStdString());
}

} // namespace velorin::host
