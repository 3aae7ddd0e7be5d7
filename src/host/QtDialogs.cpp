// File dialogs on Qt.
#include "host/QtDialogs.h"

#include "platform/MessageLoop.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QHeaderView>
#include <QTreeView>

#include <algorithm>

namespace velorin::host {

QStringList nameFilters(const std::string& filter) {
    const QStringList parts = QString::fromStdString(filter).split('|');
    QStringList filters;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        const QString patterns = QString(parts[i + 1]).replace(';', ' ').simplified();
        const QString name = parts[i].section('(', 0, 0).trimmed();
        filters.push_back(QStringLiteral("%1 (%2)").arg(name, patterns));
    }
    return filters;
}

std::optional<platform::FileDialogAnswer>
QtDialogs::GetOpenFileNameA(const platform::FileDialogRequest& request) {
    return ask(request, false);
}

std::optional<platform::FileDialogAnswer>
QtDialogs::GetSaveFileNameA(const platform::FileDialogRequest& request) {
    return ask(request, true);
}

std::optional<platform::FileDialogAnswer> QtDialogs::ask(const platform::FileDialogRequest& request,
                                                         bool saves) {
    if (loop_.isEnding())
        return std::nullopt;
    QFileDialog dialog(nullptr, QString::fromStdString(request.title), folder_);
    dialog.setAcceptMode(saves ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    const bool mustExist = !saves && (request.flags & platform::ofnFileMustExist) != 0;
    dialog.setFileMode(mustExist ? QFileDialog::ExistingFile : QFileDialog::AnyFile);
    dialog.setOption(QFileDialog::DontConfirmOverwrite,
                     (request.flags & platform::ofnOverwritePrompt) == 0);
    // Sizes and dates are read whole.
    if (const auto* files = dialog.findChild<QTreeView*>())
        files->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    // The tool windows stay above all others; the dialog must not lie under them.
    dialog.setWindowFlag(Qt::WindowStaysOnTopHint);
    const QStringList filters = nameFilters(request.filter);
    dialog.setNameFilters(filters);
    if (!filters.isEmpty())
        dialog.selectNameFilter(filters.at(
            std::clamp<qsizetype>(request.filterIndex - 1, qsizetype{0}, filters.size() - 1)));
    if (dialog.exec() != QDialog::Accepted || loop_.isEnding() || dialog.selectedFiles().isEmpty())
        return std::nullopt;
    const QString name = dialog.selectedFiles().constFirst();
    folder_ = QFileInfo(name).absolutePath();
    const auto chosen = static_cast<int>(filters.indexOf(dialog.selectedNameFilter()));
    return platform::FileDialogAnswer{name.toStdString(), std::max(chosen, 0) + 1};
}

} // namespace velorin::host
