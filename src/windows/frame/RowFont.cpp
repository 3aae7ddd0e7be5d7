// The fonts of painted rows.
#include "windows/frame/RowFont.h"

namespace velorin {

namespace {

constexpr int smallPx = 11;

} // namespace

QFont rowFont(const QFont& font, int pixels, QFont::Weight weight) {
    QFont other = font;
    other.setPixelSize(pixels);
    other.setWeight(weight);
    if (pixels <= smallPx)
        other.setHintingPreference(QFont::PreferVerticalHinting);
    return other;
}

} // namespace velorin
