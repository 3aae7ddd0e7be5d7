// The controls of the Setup Toolbar, `Form3`, as the rest of the program reads and sets them.
#pragma once

#include "score/RowOptions.h"

#include <string>

namespace velorin {

/// Every call loads the window if it is not loaded. To set what is set already runs no handler; a
/// change runs the control's handler, as a click would. A row or an index that the control does not
/// have does nothing. Lists count their entries from 0; -1 is no entry.
class SetupControls : public RowOptions {
public:
    // The current row's option buttons, row [0, 13).
    [[nodiscard]] virtual bool TrackSel(int row) = 0;
    /// Selecting an option clears the others of its group (0..7, 8..12) and runs `TrackSel_Click`.
    virtual void setTrackSel(int row, bool selected) = 0;
    virtual void enableTrackSel(int row, bool enabled) = 0;
    /// Makes the other options and the pictures follow option `row`.
    virtual void TrackSel_MouseDown(int row) = 0;
    virtual void TrackSel_Click(int row) = 0;

    virtual void setTrackHide(int row, bool hidden) = 0;
    virtual void enableTrackHide(int row, bool enabled) = 0;
    /// Shows or takes away the active-row picture on `TrackHide`(row).
    virtual void setTrackHidePicture(int row, bool active) = 0;

    virtual void setVol(int row, const std::string& text) = 0;
    virtual void setCh(int row, bool chord) = 0;
    virtual void setChkstrum(int row, bool strummed) = 0;

    /// The instrument list: 128 entries "number name", the index being the General MIDI program.
    [[nodiscard]] virtual int Combo1() = 0;
    virtual void setCombo1(int index) = 0;
    [[nodiscard]] virtual std::string Combo1Entry(int index) = 0; ///< empty outside the list

    /// The percussion list: 47 entries "number name", the number being the index plus 128.
    [[nodiscard]] virtual int Combo5() = 0;
    [[nodiscard]] virtual std::string Combo5Entry(int index) = 0; ///< empty outside the list
    virtual void Combo5_Click() = 0;

    /// The device list: entry 0 is the mapper, entry n the device n - 1.
    [[nodiscard]] virtual int Combo2() = 0;
    virtual void setCombo2(int index) = 0;

    virtual void setTempoBar(int value) = 0; ///< `HScroll1`; a value outside 20..300 does nothing
    virtual void setTempoLabel(const std::string& text) = 0; ///< a change sets `Tempo`

    virtual void showFirstTab() = 0;
};

} // namespace velorin
