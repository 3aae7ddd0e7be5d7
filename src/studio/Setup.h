// The values of the Setup Toolbar: the row options, the lists and the tempo.
#pragma once

#include "model/RowOptions.h"

#include <optional>
#include <string>
#include <string_view>

namespace velorin {

/// The window that shows the values, `Form3`. A call sets a control. If that changes the control,
/// its handler runs, as after a click, and the control writes its value into `Setup::values`.
/// `Setup` has checked all rows, indices and numbers.
class SetupView {
public:
    virtual ~SetupView() = default;

    /// Loads the window if it is not loaded.
    ///
    /// Rule: loading resets `Setup::values` to the defaults. Held by shell/setup_toolbar.
    virtual void loadControls() = 0;

    virtual void setTrackSel(int row, bool selected) = 0;
    virtual void TrackSel_MouseDown(int row) = 0;
    virtual void TrackSel_Click(int row) = 0;
    virtual void setTrackHide(int row, bool hidden) = 0;
    virtual void enableTrackHide(int row, bool enabled) = 0;
    virtual void setTrackHidePicture(int row, bool active) = 0;
    virtual void setVol(int row, const std::string& text) = 0;
    virtual void setCh(int row, bool chord) = 0;
    virtual void setChkstrum(int row, bool strummed) = 0;
    virtual void setCombo1(int index) = 0;
    virtual void setCombo2(int index) = 0;
    virtual void setTempoBar(int value) = 0;
    virtual void setTempoLabel(const std::string& text) = 0;
    virtual void showFirstTab() = 0;
};

/// What the controls of the Setup Toolbar hold. List indices count from 0, -1 is no entry.
struct SetupValues {
    RowOptions options{};
    RowArray<bool> selected{{true}}; ///< `TrackSel`: the current row of each group
    int instrument = 24;             ///< `Combo1`: the General MIDI program
    int percussion = 0;              ///< `Combo5`: entry 0 is sound 128
    int device = 0;                  ///< `Combo2`: 0 is the mapper, n the device n - 1
};

/// Owned by `Studio`. With a view, every call with a valid row first loads the window if it is not
/// loaded, and a set goes to its control. Without a view a set changes the value, and no handler
/// runs. Setting the current value again runs no handler. An invalid row, index or number does
/// nothing.
class Setup {
public:
    /// From now on the window is loaded by the first use of a value. The view outlives this.
    void attach(SetupView& view) { view_ = &view; }

    // Row options: read at each note, at each column, at each edit.
    [[nodiscard]] const RowOptions& options();
    [[nodiscard]] bool TrackHide(int row);
    [[nodiscard]] std::optional<std::string_view> vol(int row); ///< valid until the next change
    [[nodiscard]] bool Ch(int row);
    [[nodiscard]] bool Chkstrum(int row);

    // The current row's option buttons, row [0, 13).
    [[nodiscard]] bool TrackSel(int row);
    /// Selecting an option clears the others of its group (0..7, 8..12) and runs `TrackSel_Click`.
    void setTrackSel(int row, bool selected);
    void TrackSel_MouseDown(int row); ///< the other options and the pictures follow option `row`
    void TrackSel_Click(int row);

    void setTrackHide(int row, bool hidden);
    void enableTrackHide(int row, bool enabled);
    void setTrackHidePicture(int row, bool active); ///< the active-row picture on `TrackHide`(row)
    void setVol(int row, const std::string& text);
    void setCh(int row, bool chord);
    void setChkstrum(int row, bool strummed);

    [[nodiscard]] int Combo1(); ///< the instrument list; its entries are `instrumentEntry`
    void setCombo1(int index);
    [[nodiscard]] int Combo5(); ///< the percussion list; its entries are `percussionEntry`
    [[nodiscard]] int Combo2(); ///< the device list
    void setCombo2(int index);

    void setTempoBar(int value);                 ///< `HScroll1`, [20, 300]
    void setTempoLabel(const std::string& text); ///< a change sets `Tempo`
    void showFirstTab();

    /// Written by the view's controls; read through the calls above.
    SetupValues values;

private:
    SetupView* load();

    SetupView* view_ = nullptr;
};

} // namespace velorin
