// The dialog for saving, and its question.
#include "host/SaveDialog.h"

#include "platform/CaseBlind.h"
#include "platform/Text.h"

#include <QFileInfo>
#include <QLineEdit>
#include <QMessageBox>

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
    // Its own question is about the name without the ending.
    setOption(DontConfirmOverwrite);
    setNameFilters(filters_);
}

QString SaveDialog::chosenName() const {
    const QStringList files = selectedFiles();
    if (files.isEmpty())
        return {};
    const QString pattern = patterns_.value(filters_.indexOf(selectedNameFilter()));
    return QString::fromStdString(
        nameForPattern(files.constFirst().toStdString(), pattern.toStdString()));
}

/// The desktop's own dialog has no field here.
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
    QMessageBox box(QMessageBox::Warning, windowTitle(), question,
                    QMessageBox::Yes | QMessageBox::No, this);
    box.setTextFormat(Qt::PlainText);
    box.setDefaultButton(QMessageBox::No);
    box.setWindowFlag(Qt::WindowStaysOnTopHint);
    return box.exec() == QMessageBox::Yes;
}

// A folder that was typed is entered, and nothing is written.
void SaveDialog::accept() {
    const QStringList files = selectedFiles();
    const bool isFile = !files.isEmpty() && !QFileInfo(files.constFirst()).isDir();
    if (!isDrawnHere() || !isFile || mayWrite())
        QFileDialog::accept();
}

// The desktop's own dialog is closed when its answer comes, so it opens again after a "no".
bool SaveDialog::choose() {
    while (exec() == Accepted)
        if (isDrawnHere() || mayWrite())
            return !chosenName().isEmpty();
    return false;
}

} // namespace velorin::host
