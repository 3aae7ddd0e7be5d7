// The Setup Toolbar's values without a window: what they are until a user changes them.
#pragma once

#include "score/Cell.h"
#include "score/SetupControls.h"

#include <array>

namespace velorin {

/// For programs without windows, and for tests. Setting a value runs no handler. A row, an index or
/// a tempo that the window's control would not have does nothing.
struct PlainSetup : SetupControls {
    struct Row {
        bool selected = false;
        bool hidden = false;
        bool chord = false;
        bool strummed = false;
        std::string volume = "127";
    };

    PlainSetup() { row[0].selected = true; }

    std::array<Row, scoreRows> row;
    int instrument = 24;
    int percussion = 0;
    int device = 0;
    int tempo = 100;

    bool TrackHide(int r) override;
    std::optional<std::string_view> vol(int r) override;
    bool Ch(int r) override;
    bool Chkstrum(int r) override;

    bool TrackSel(int r) override;
    void setTrackSel(int r, bool selected) override;
    void enableTrackSel(int, bool) override {}
    void TrackSel_MouseDown(int) override {}
    void TrackSel_Click(int) override {}
    void setTrackHide(int r, bool hidden) override;
    void enableTrackHide(int, bool) override {}
    void setTrackHidePicture(int, bool) override {}
    void setVol(int r, const std::string& text) override;
    void setCh(int r, bool chord) override;
    void setChkstrum(int r, bool strummed) override;
    int Combo1() override { return instrument; }
    void setCombo1(int i) override;
    std::string Combo1Entry(int i) override;
    int Combo5() override { return percussion; }
    std::string Combo5Entry(int i) override;
    void Combo5_Click() override {}
    int Combo2() override { return device; }
    void setCombo2(int i) override { device = i; }
    void setTempoBar(int value) override;
    void setTempoLabel(const std::string&) override {}
    void showFirstTab() override {}
};

} // namespace velorin
