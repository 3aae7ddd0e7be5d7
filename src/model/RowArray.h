// An array with one entry for each row of the score.
#pragma once

#include "model/Cell.h"
#include "platform/CheckedArray.h"

namespace velorin {

/// Indexed by the row, [0, count). `count` is less than `scoreRows` if only the music rows have an
/// entry.
template <class T, int count = scoreRows>
using RowArray = platform::CheckedArray<T, count>;

} // namespace velorin
