// The Setup Toolbar's values without a window: what they are until a user changes them.
#pragma once

#include "score/Cell.h"
#include "score/SetupControls.h"

#include <array>

namespace velorin {

/// For programs without windows, and for tests. Setting a value runs no handler.
struct PlainSetup final : SetupControls {
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

    bool TrackHide(int r) override { return row[index(r)].hidden; }
    std::optional<std::string> vol(int r) override {
        return r == 9 ? std::nullopt : std::optional(row[index(r)].volume);
    }
    bool Ch(int r) override { return row[index(r)].chord; }
    bool Chkstrum(int r) override { return row[index(r)].strummed; }

    bool TrackSel(int r) override { return row[index(r)].selected; }
    void setTrackSel(int r, bool selected) override { row[index(r)].selected = selected; }
    void enableTrackSel(int, bool) override {}
    void TrackSel_MouseDown(int) override {}
    void TrackSel_Click(int) override {}
    void setTrackHide(int r, bool hidden) override { row[index(r)].hidden = hidden; }
    void enableTrackHide(int, bool) override {}
    void setTrackHidePicture(int, bool) override {}
    void setVol(int r, const std::string& text) override { row[index(r)].volume = text; }
    void setCh(int r, bool chord) override { row[index(r)].chord = chord; }
    void setChkstrum(int r, bool strummed) override { row[index(r)].strummed = strummed; }
    int Combo1() override { return instrument; }
    void setCombo1(int i) override { instrument = i; }
    std::string Combo1Entry(int i) override { return std::to_string(i) + " "; }
    int Combo5() override { return percussion; }
    std::string Combo5Entry(int i) override { return std::to_string(i + firstPercussion) + " "; }
    void Combo5_Click() override {}
    int Combo2() override { return device; }
    void setCombo2(int i) override { device = i; }
    void setTempoBar(int value) override { tempo = value; }
    void setTempoLabel(const std::string&) override {}
    void showFirstTab() override {}

private:
    static std::size_t index(int r) { return static_cast<std::size_t>(r); }
};

} // namespace velorin
