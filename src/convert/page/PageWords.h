// The words of a page that depend on the score.
#pragma once

#include "convert/page/SheetLayout.h"

#include <string>
#include <string_view>

namespace velorin::convert {

/// What the sheet shows, in a sentence: "The score of dawn: four channels over 48 bars, notes from
/// 3D to 5B." Not escaped.
[[nodiscard]] std::string sheetDescription(std::string_view title, const SheetLayout& layout,
                                           const Score& score);

/// A list entry for each row with notes: its chip, and its instruments in the order in which they
/// come in.
[[nodiscard]] std::string instrumentsMarkup(const Score& score);

} // namespace velorin::convert
