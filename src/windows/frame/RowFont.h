// The fonts of rows and notes that windows paint themselves.
#pragma once

#include <QFont>

namespace velorin {

/// `font` in another size and weight. Letters of 11 pixels or less stand on whole pixels, which
/// keeps them sharp.
[[nodiscard]] QFont rowFont(const QFont& font, int pixels, QFont::Weight weight = QFont::Normal);

} // namespace velorin
