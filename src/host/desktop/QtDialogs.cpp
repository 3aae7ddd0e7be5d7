// File dialogs on Qt.
#include "host/desktop/QtDialogs.h"

#include "host/desktop/IconsByName.h"
#include "host/desktop/SaveDialog.h"
#include "platform/MessageLoop.h"
#include "platform/Settings.h"

#include <QComboBox>
#include <QFileDialog>
#include <QFileInfo>
#include <QHeaderView>
#include <QStyledItemDelegate>
#include <QTreeView>

#include <algorithm>

namespace velorin::host {

namespace {

constexpr char section[] = "Settings";
constexpr char folderKey[] = "dialog folder";
constexpr int mostRows = 18;

QStringList patternsOf(const std::string& filter) {
    const QStringList parts = QString::fromStdString(filter).split('|');
    QStringList patterns;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2)
        patterns.push_back(QString(parts[i + 1]).replace(';', ' ').simplified());
    return patterns;
}

/// The names of the pairs.
QStringList labelsOf(const std::string& filter) {
    const QStringList parts = QString::fromStdString(filter).split('|');
    QStringList labels;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2)
        labels.push_back(parts[i].trimmed());
    return labels;
}

/// Shows the filter names as the program has them; Qt's form of them differs. The desktop's own
/// dialog has no list that can be changed here.
void showLabels(const QFileDialog& dialog, const QStringList& labels) {
    auto* const list = dialog.findChild<QComboBox*>("fileTypeCombo");
    for (int i = 0; list != nullptr && i < list->count(); ++i)
        list->setItemText(i, labels.value(i));
}

/// The settings that both dialogs share.
void prepare(QFileDialog& dialog, QFileIconProvider& icons, const QStringList& filters,
             int filterIndex) {
    dialog.setIconProvider(&icons);
    // Sizes and dates are shown in full.
    if (const auto* files = dialog.findChild<QTreeView*>())
        files->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    // The tool windows stay above all others; the dialog must not lie under them. Without the main
    // window, which waits for it, it cannot be minimised.
    dialog.setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                          Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint |
                          Qt::WindowStaysOnTopHint);
    for (QComboBox* const list : dialog.findChildren<QComboBox*>()) {
        list->setItemDelegate(new QStyledItemDelegate(list)); // rows as high as in the windows
        list->setMaxVisibleItems(mostRows);
    }
    dialog.setNameFilters(filters);
    if (!filters.isEmpty())
        dialog.selectNameFilter(
            filters.at(std::clamp<qsizetype>(filterIndex - 1, qsizetype{0}, filters.size() - 1)));
}

} // namespace

QStringList nameFilters(const std::string& filter) {
    const QStringList labels = labelsOf(filter);
    const QStringList patterns = patternsOf(filter);
    QStringList filters;
    for (qsizetype i = 0; i < patterns.size(); ++i) {
        const QString name = labels[i].section('(', 0, 0).trimmed();
        const bool isWritten = labels[i].endsWith("(" + patterns[i] + ")");
        filters.push_back(isWritten ? labels[i] : QStringLiteral("%1 (%2)").arg(name, patterns[i]));
    }
    return filters;
}

QString QtDialogs::folder() const {
    const auto last = QString::fromStdString(settings_.GetSetting(section, folderKey, ""));
    return !last.isEmpty() && QFileInfo(last).isDir() ? last : folder_;
}

std::optional<platform::FileDialogAnswer>
QtDialogs::GetOpenFileNameA(const platform::FileDialogRequest& request) {
    if (loop_.isEnding())
        return std::nullopt;
    QFileDialog dialog(nullptr, QString::fromStdString(request.title), folder());
    const bool mustExist = (request.flags & platform::ofnFileMustExist) != 0;
    dialog.setFileMode(mustExist ? QFileDialog::ExistingFile : QFileDialog::AnyFile);
    const QStringList filters = nameFilters(request.filter);
    const QStringList labels = labelsOf(request.filter);
    IconsByName icons;
    prepare(dialog, icons, filters, request.filterIndex);
    showLabels(dialog, labels);
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return std::nullopt;
    const QString chosen = dialog.selectedNameFilter();
    return answered(dialog.selectedFiles().constFirst(),
                    std::max(filters.indexOf(chosen), labels.indexOf(chosen)));
}

std::optional<platform::FileDialogAnswer>
QtDialogs::GetSaveFileNameA(const platform::FileDialogRequest& request) {
    if (loop_.isEnding())
        return std::nullopt;
    const QStringList filters = nameFilters(request.filter);
    SaveDialog dialog(QString::fromStdString(request.title), folder(), filters,
                      patternsOf(request.filter),
                      (request.flags & platform::ofnOverwritePrompt) != 0);
    IconsByName icons;
    prepare(dialog, icons, filters, request.filterIndex);
    dialog.propose(QString::fromStdString(request.proposal));
    if (!dialog.choose())
        return std::nullopt;
    return answered(dialog.chosenName(), filters.indexOf(dialog.selectedNameFilter()));
}

std::optional<platform::FileDialogAnswer> QtDialogs::answered(const QString& name,
                                                              qsizetype filter) {
    if (loop_.isEnding())
        return std::nullopt;
    folder_ = QFileInfo(name).absolutePath();
    settings_.SaveSetting(section, folderKey, folder_.toStdString());
    return platform::FileDialogAnswer{name.toStdString(),
                                      static_cast<int>(std::max(filter, qsizetype{0})) + 1};
}

} // namespace velorin::host
