// The rows that a block edit works on: those that the user has not hidden.
#pragma once

#include "model/Cell.h"
#include "model/RowOptions.h"

#include <algorithm>

namespace velorin {

/// Calls `edit(row)` for each row of [first, last] that is not hidden, in ascending order. Rows
/// outside the score are skipped. A user hides a row to protect it from block edits.
template <class Edit>
void forOpenRows(const RowOptions& rows, int first, int last, Edit edit) {
    for (int row = std::max(first, 0); row <= std::min(last, scoreRows - 1); ++row) {
        if (!rows.TrackHide(row))
            edit(row);
    }
}

template <class Edit>
void forOpenRows(const RowOptions& rows, Edit edit) {
    forOpenRows(rows, 0, scoreRows - 1, edit);
}

} // namespace velorin
