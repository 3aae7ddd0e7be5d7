// Fakes of the main window and of the Setup Toolbar that log their calls.
#pragma once

#include "studio/Studio.h"
#include "support/PlainSetupView.h"

#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace velorin::test {

using Log = std::vector<std::string>;

inline std::string said(std::string what, int number) {
    what += ' ';
    what += std::to_string(number);
    return what;
}

class RecordingDesk final : public NoDesk {
public:
    explicit RecordingDesk(Log& log) : log_(log) {}

    void DrawNoteArray() override { log_.emplace_back("DrawNoteArray"); }
    void DrawBeatArray() override { log_.emplace_back("DrawBeatArray"); }
    void DrawPolyTableau() override { log_.emplace_back("DrawPolyTableau"); }
    void focusMusicBox() override { log_.emplace_back("focus MusicBox"); }
    void focusBeatbox() override { log_.emplace_back("focus Beatbox"); }
    void setBeatboxHeight(int h) override { log_.push_back(said("Beatbox", h)); }
    void moveViewTo(int column, int pitch) override { views.emplace_back(column, pitch); }
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
    void ChangeInstrument(int instrument, int row) override {
        log_.push_back(said(said("ChangeInstrument", instrument), row));
    }
    void leaveTopMost() override { log_.emplace_back("leave top-most"); }
    void returnToTopMost() override { log_.emplace_back("return to top-most"); }

    std::vector<std::pair<int, int>> views; ///< columns and pitch indices
    std::function<void()> onScroll;
    std::function<void()>
        onMainCombo1; ///< runs at every set, as if each were a change of the entry
    std::string enabledRows;

private:
    Log& log_;
};

/// Sets the values and logs the handlers that a change runs.
class RecordingSetup final : public scripted::PlainSetupView {
public:
    RecordingSetup(Setup& setup, Log& log) : PlainSetupView(setup), log_(log) {}

    void setTrackSel(int r, bool selected) override {
        const bool changes = setup_.values.selected[r] != selected;
        PlainSetupView::setTrackSel(r, selected);
        if (changes)
            TrackSel_Click(r);
    }
    void TrackSel_Click(int r) override { log_.push_back(said("TrackSel_Click", r)); }
    void enableTrackHide(int r, bool enabled) override {
        enabledHides += enabled ? '+' : '-';
        enabledHides += std::to_string(r);
    }
    void setCombo1(int i) override {
        log_.push_back(said("Combo1", i));
        const int before = setup_.values.instrument;
        PlainSetupView::setCombo1(i);
        if (setup_.values.instrument != before && onCombo1)
            onCombo1();
    }
    void setTempoBar(int value) override { log_.push_back(said("tempo bar", value)); }
    void setTempoLabel(const std::string& text) override { log_.push_back("tempo label " + text); }
    void showFirstTab() override { log_.emplace_back("first tab"); }

    std::function<void()> onCombo1;
    std::string enabledHides;

private:
    Log& log_;
};

} // namespace velorin::test
