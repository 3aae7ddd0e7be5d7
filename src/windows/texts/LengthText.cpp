// Times as the windows show them.
#include "windows/texts/LengthText.h"

#include <algorithm>
#include <cmath>

namespace velorin {

QString lengthText(double seconds) {
    const auto whole = static_cast<long long>(std::llround(std::max(seconds, 0.0)));
    const QChar zero('0');
    const long long hours = whole / 3600;
    const long long minutes = whole / 60 % 60;
    const QString rest = QStringLiteral(":%1").arg(whole % 60, 2, 10, zero);
    if (hours == 0)
        return QString::number(minutes) + rest;
    return QStringLiteral("%1:%2").arg(hours).arg(minutes, 2, 10, zero) + rest;
}

} // namespace velorin
