// Looks up icons and kinds in the desktop's table of file name extensions.
#include "host/desktop/IconsByName.h"

#include <QIcon>

namespace velorin::host {

QMimeType IconsByName::kind(const QFileInfo& file) const {
    return kinds_.mimeTypeForFile(file.fileName(), QMimeDatabase::MatchExtension);
}

bool IconsByName::isUnknownScore(const QFileInfo& file) const {
    return file.suffix().compare(QLatin1String("sng"), Qt::CaseInsensitive) == 0 &&
           kind(file).name() != QLatin1String("application/x-velorin-score");
}

// For a folder nothing is read, and it may have an icon of its own.
QIcon IconsByName::icon(const QFileInfo& file) const {
    if (file.isDir())
        return QFileIconProvider::icon(file);
    if (isUnknownScore(file))
        return QIcon(QStringLiteral(":/look/score-file.svg"));
    const QMimeType known = kind(file);
    return QIcon::fromTheme(
        known.iconName(), QIcon::fromTheme(known.genericIconName(), QFileIconProvider::icon(File)));
}

QString IconsByName::type(const QFileInfo& file) const {
    if (file.isDir())
        return QFileIconProvider::type(file);
    return isUnknownScore(file) ? QStringLiteral("Velorin score") : kind(file).comment();
}

} // namespace velorin::host
