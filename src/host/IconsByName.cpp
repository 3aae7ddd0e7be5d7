// Icons and kinds of files, on the desktop's table of endings.
#include "host/IconsByName.h"

#include <QIcon>

namespace velorin::host {

QMimeType IconsByName::kind(const QFileInfo& file) const {
    return kinds_.mimeTypeForFile(file.fileName(), QMimeDatabase::MatchExtension);
}

// A folder has no content to be read, and may have an icon of its own.
QIcon IconsByName::icon(const QFileInfo& file) const {
    if (file.isDir())
        return QFileIconProvider::icon(file);
    const QMimeType known = kind(file);
    return QIcon::fromTheme(
        known.iconName(), QIcon::fromTheme(known.genericIconName(), QFileIconProvider::icon(File)));
}

QString IconsByName::type(const QFileInfo& file) const {
    return file.isDir() ? QFileIconProvider::type(file) : kind(file).comment();
}

} // namespace velorin::host
