// The save dialog and its question.
#include "host/desktop/SaveDialog.h"

#include "host/desktop/FramedBox.h"
#include "platform/PathLookup.h"
#include "platform/Text.h"

#include <QFileInfo>
#include <QLineEdit>

#include <filesystem>
#include <utility>

namespace velorin::host {

namespace fs = std::filesystem;

std::string nameForPattern(const std::string& name, const std::string& pattern) {
    const std::string trimmed = platform::trimBlanks(name);
    const std::string first = pattern.substr(0, pattern.find_first_of(" ;"));
    const bool hasEnding = first.size() > 2 && first.starts_with("*.") &&
                           first.find_first_of("*?[", 1) == std::string::npos;
    return hasEnding && !trimmed.empty() ? platform::withEnding(trimmed, first.substr(1)) : trimmed;
}

SaveDialog::SaveDialog(const QString& title, const QString& folder, QStringList filters,
                       QStringList patterns, bool asksBeforeReplacing)
    : QFileDialog(nullptr, title, folder),
      filters_(std::move(filters)),
      patterns_(std::move(patterns)),
      asksBeforeReplacing_(asksBeforeReplacing) {
    setAcceptMode(AcceptSave);
    setFileMode(AnyFile);
    // Qt's own question is about the name without the extension.
    setOption(DontConfirmOverwrite);
    setNameFilters(filters_);
}

void SaveDialog::propose(const QString& name) {
    if (name.isEmpty())
        return;
    const QFileInfo file(
        QString::fromStdString(platform::resolveForWriting(name.toStdString()).string()));
    if (QFileInfo(file.path()).isDir())
        setDirectory(file.path());
    selectFile(file.fileName());
    if (auto* const field = findChild<QLineEdit*>())
        field->selectAll();
}

QString SaveDialog::chosenName() const {
    const QStringList files = selectedFiles();
    if (files.isEmpty())
        return {};
    const QString pattern = patterns_.value(filters_.indexOf(selectedNameFilter()));
    return QString::fromStdString(
        nameForPattern(files.constFirst().toStdString(), pattern.toStdString()));
}

/// False for the desktop's own dialog, which has no input field here.
bool SaveDialog::isDrawnHere() const {
    return findChild<QLineEdit*>() != nullptr;
}

bool SaveDialog::mayWrite() {
    const QString name = chosenName();
    const fs::path path = platform::resolveForWriting(name.toStdString());
    std::error_code error;
    if (!asksBeforeReplacing_ || !fs::exists(path, error) || fs::is_directory(path, error))
        return true;
    const QString question = tr("%1 already exists.\nDo you want to replace it?")
                                 .arg(QFileInfo(QString::fromStdString(path.string())).fileName());
    FramedBox box(QMessageBox::Warning, windowTitle(), question, QMessageBox::Yes | QMessageBox::No,
                  this);
    box.setDefaultButton(QMessageBox::No);
    return box.exec() == QMessageBox::Yes;
}

// A typed folder is entered, and nothing is written.
void SaveDialog::accept() {
    const QStringList files = selectedFiles();
    const bool isFile = !files.isEmpty() && !QFileInfo(files.constFirst()).isDir();
    if (!isDrawnHere() || !isFile || mayWrite())
        QFileDialog::accept();
}

// The desktop's own dialog has closed when its answer comes, so it is opened again after a "no".
bool SaveDialog::choose() {
    while (exec() == Accepted)
        if (isDrawnHere() || mayWrite())
            return !chosenName().isEmpty();
    return false;
}

} // namespace velorin::host
