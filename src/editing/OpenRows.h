// The rows that a block edit works on: those that the user has not hidden.
#pragma once

#include "score/Cell.h"
#include "score/RowOptions.h"

#include <algorithm>

namespace velorin {

/// Calls `edit(row)` for each row of [first, last] that is not hidden, in ascending order; rows
/// outside the score are left out. Hiding a row is how the user keeps it from every block edit.
template <class Edit>
void forOpenRows(RowOptions& rows, int first, int last, Edit edit) {
    for (int row = std::max(first, 0); row <= std::min(last, scoreRows - 1); ++row) {
        if (!rows.TrackHide(row))
            edit(row);
    }
}

template <class Edit>
void forOpenRows(RowOptions& rows, Edit edit) {
    forOpenRows(rows, 0, scoreRows - 1, edit);
}

} // namespace velorin
