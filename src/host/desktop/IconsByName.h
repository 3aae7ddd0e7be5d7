// The icon and the kind of a file in the file dialogs.
#pragma once

#include <QFileIconProvider>
#include <QMimeDatabase>

namespace velorin::host {

/// Looks at the name only. Scores have the program's own icon and kind, also where the desktop does
/// not know them. Qt's own provider reads the file, on the user-interface thread: a file
/// that blocks, such as /proc/kmsg, would hang the program, and a slow network drive would delay it
/// for each file.
class IconsByName final : public QFileIconProvider {
public:
    using QFileIconProvider::icon;
    [[nodiscard]] QIcon icon(const QFileInfo& file) const override;
    [[nodiscard]] QString type(const QFileInfo& file) const override;

private:
    /// A score on a desktop that does not know its type: the package is not installed there.
    [[nodiscard]] bool isUnknownScore(const QFileInfo& file) const;
    [[nodiscard]] QMimeType kind(const QFileInfo& file) const;

    QMimeDatabase kinds_;
};

} // namespace velorin::host
