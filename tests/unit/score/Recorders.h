// A main window and a Setup Toolbar that record what they were told.
#pragma once

#include "score/PlainSetup.h"
#include "score/ScoreDesk.h"
#include "score/Studio.h"

#include <functional>
#include <string>
#include <vector>

namespace velorin::test {

using Log = std::vector<std::string>;

inline std::string said(std::string what, int number) {
    what += ' ';
    what += std::to_string(number);
    return what;
}

class RecordingDesk final : public ScoreDesk {
public:
    explicit RecordingDesk(Log& log) : log_(log) {}

    void DrawNoteArray() override { log_.emplace_back("DrawNoteArray"); }
    void DrawBeatArray() override { log_.emplace_back("DrawBeatArray"); }
    void DrawPolyTableau() override { log_.emplace_back("DrawPolyTableau"); }
    void focusMusicBox() override { log_.emplace_back("focus MusicBox"); }
    void focusBeatbox() override { log_.emplace_back("focus Beatbox"); }
    void setBeatboxHeight(int h) override { log_.push_back(said("Beatbox", h)); }
    int HScroll1Min() override { return 20; }
    void setHScroll1(int value) override {
        log_.push_back(said("HScroll1", value));
        if (onScroll)
            onScroll();
    }
    void setMainCombo1(int index) override {
        log_.push_back(said("main Combo1", index));
        if (onMainCombo1)
            onMainCombo1();
    }
    void enableMainTrackSel(int row, bool enabled) override {
        enabledRows += enabled ? '+' : '-';
        enabledRows += std::to_string(row);
    }
    void setMainTrackSel(int row, bool) override { log_.push_back(said("main TrackSel", row)); }
    void ChangeInstrument(int instrument, int row) override {
        log_.push_back(said(said("ChangeInstrument", instrument), row));
    }
    void leaveTopMost() override { log_.emplace_back("leave top-most"); }
    void returnToTopMost() override { log_.emplace_back("return to top-most"); }

    std::function<void()> onScroll;
    std::function<void()> onMainCombo1; ///< runs at every set, as if each were a change
    std::string enabledRows;

private:
    Log& log_;
};

/// The plain values, with the handlers that a change runs.
class RecordingSetup final : public SetupControls {
public:
    explicit RecordingSetup(Log& log) : log_(log) {}

    bool TrackHide(int r) override { return plain.TrackHide(r); }
    std::optional<std::string_view> vol(int r) override { return plain.vol(r); }
    bool Ch(int r) override { return plain.Ch(r); }
    bool Chkstrum(int r) override { return plain.Chkstrum(r); }
    bool TrackSel(int r) override { return plain.TrackSel(r); }
    void setTrackSel(int r, bool selected) override {
        const bool changes = plain.TrackSel(r) != selected;
        plain.setTrackSel(r, selected);
        if (changes)
            TrackSel_Click(r);
    }
    void enableTrackSel(int, bool) override {}
    void TrackSel_MouseDown(int) override {}
    void TrackSel_Click(int r) override { log_.push_back(said("TrackSel_Click", r)); }
    void setTrackHide(int r, bool hidden) override { plain.setTrackHide(r, hidden); }
    void enableTrackHide(int r, bool enabled) override {
        enabledHides += enabled ? '+' : '-';
        enabledHides += std::to_string(r);
    }
    void setTrackHidePicture(int, bool) override {}
    void setVol(int r, const std::string& text) override { plain.setVol(r, text); }
    void setCh(int r, bool chord) override { plain.setCh(r, chord); }
    void setChkstrum(int r, bool strummed) override { plain.setChkstrum(r, strummed); }
    int Combo1() override { return plain.Combo1(); }
    void setCombo1(int i) override {
        log_.push_back(said("Combo1", i));
        const int before = plain.instrument;
        plain.setCombo1(i);
        if (plain.instrument != before && onCombo1)
            onCombo1();
    }
    std::string Combo1Entry(int i) override { return plain.Combo1Entry(i); }
    int Combo5() override { return plain.Combo5(); }
    std::string Combo5Entry(int i) override { return plain.Combo5Entry(i); }
    void Combo5_Click() override {}
    int Combo2() override { return plain.Combo2(); }
    void setCombo2(int i) override { plain.setCombo2(i); }
    void setTempoBar(int value) override {
        log_.push_back(said("tempo bar", value));
        plain.setTempoBar(value);
    }
    void setTempoLabel(const std::string& text) override { log_.push_back("tempo label " + text); }
    void showFirstTab() override { log_.emplace_back("first tab"); }

    PlainSetup plain;
    std::function<void()> onCombo1;
    std::string enabledHides;

private:
    Log& log_;
};

} // namespace velorin::test
