// The icon and the kind of a file in the file dialogs.
#pragma once

#include <QFileIconProvider>
#include <QMimeDatabase>

namespace velorin::host {

/// Goes by the name alone. What Qt's own does reads the file, in the thread of the windows: one
/// that gives nothing, such as /proc/kmsg, would hold the program up for ever, and a slow network
/// drive for each of its files.
class IconsByName final : public QFileIconProvider {
public:
    using QFileIconProvider::icon;
    [[nodiscard]] QIcon icon(const QFileInfo& file) const override;
    [[nodiscard]] QString type(const QFileInfo& file) const override;

private:
    [[nodiscard]] QMimeType kind(const QFileInfo& file) const;

    QMimeDatabase kinds_;
};

} // namespace velorin::host
