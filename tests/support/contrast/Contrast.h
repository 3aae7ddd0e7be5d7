// The contrast of two colours, as the Web Content Accessibility Guidelines 2 compute it.
#pragma once

#include <QColor>

namespace velorin {

/// The relative luminance of a colour, [0, 1].
[[nodiscard]] double luminance(const QColor& colour);
/// The contrast of two luminances, [1, 21].
[[nodiscard]] double contrastOf(double first, double second);
/// The contrast of two colours, [1, 21]. The alpha values do not count.
[[nodiscard]] double contrast(const QColor& first, const QColor& second);

/// What shows if `above` with its alpha is painted on `ground`.
[[nodiscard]] QColor blended(const QColor& above, const QColor& ground);

} // namespace velorin
