// The four options of a row that the user sets in the Setup Toolbar.
#pragma once

#include "model/RowArray.h"

#include <optional>
#include <string>
#include <string_view>

namespace velorin {

/// Rows are [0, 13) unless the member says otherwise. A row without the option answers false, or no
/// value.
struct RowOptions {
    struct Row {
        bool hidden = false;
        bool chord = false;
        bool strummed = false;
        std::string volume = "127"; ///< as the user typed it
        bool operator==(const Row&) const = default;
    };
    RowArray<Row> rows;

    /// The row is hidden: not drawn, not played, not changed by block edits.
    [[nodiscard]] bool TrackHide(int row) const { return isRow(row) && rows[row].hidden; }

    /// The row's velocity as text; no value for row 9, which has no box.
    [[nodiscard]] std::optional<std::string_view> vol(int row) const {
        if (!hasVolume(row))
            return std::nullopt;
        return rows[row].volume;
    }

    /// Every note of the row [0, 8) sounds as a chord.
    [[nodiscard]] bool Ch(int row) const { return hasChords(row) && rows[row].chord; }

    /// The chord notes of the row [0, 8) are strummed.
    [[nodiscard]] bool Chkstrum(int row) const { return hasChords(row) && rows[row].strummed; }

    [[nodiscard]] static bool isRow(int row) { return row >= 0 && row < scoreRows; }
    [[nodiscard]] static bool hasChords(int row) { return row >= 0 && row < musicRows; }
    [[nodiscard]] static bool hasVolume(int row) { return isRow(row) && row != rowWithoutVolume; }
};

} // namespace velorin
