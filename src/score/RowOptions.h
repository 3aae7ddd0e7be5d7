// The four options of a row that the user sets in the Setup Toolbar, as everything below that
// window reads them.
#pragma once

#include <optional>
#include <string_view>

namespace velorin {

/// Read live: at each note, at each column, at each edit. Row [0, 13) or as told.
class RowOptions {
public:
    virtual ~RowOptions() = default;

    /// The row is hidden: not drawn, not played, not touched by block edits.
    [[nodiscard]] virtual bool TrackHide(int row) = 0;

    /// The row's velocity as text, valid until it changes; no value for row 9, which has no box.
    /// Read for each note, so it is no copy.
    [[nodiscard]] virtual std::optional<std::string_view> vol(int row) = 0;

    /// Every note of the row [0, 8) sounds as a chord.
    [[nodiscard]] virtual bool Ch(int row) = 0;

    /// The chord notes of the row [0, 8) are strummed.
    [[nodiscard]] virtual bool Chkstrum(int row) = 0;
};

} // namespace velorin
