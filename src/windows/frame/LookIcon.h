// The pictures of buttons and rows, by name.
#pragma once

#include <QIcon>
#include <QString>

namespace velorin {

/// A picture of the look by its file name, with its disabled variant if there is one; an icon that
/// paints nothing if there is no such picture. The files are read when the icon is painted for the
/// first time.
[[nodiscard]] QIcon lookIcon(const QString& picture);

} // namespace velorin
