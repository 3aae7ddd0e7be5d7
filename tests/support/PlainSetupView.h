// A Setup Toolbar without controls: it sets the values, and runs no handler.
#pragma once

#include "studio/Setup.h"

namespace scripted {

/// Attaches itself. A base class for views that log their calls.
class PlainSetupView : public velorin::SetupView {
public:
    explicit PlainSetupView(velorin::Setup& setup) : setup_(setup) { setup.attach(*this); }

    void loadControls() override {}
    void setTrackSel(int row, bool selected) override {
        for (int other = 0; selected && other < velorin::scoreRows; ++other) {
            if (velorin::isMusicRow(other) == velorin::isMusicRow(row))
                setup_.values.selected[other] = false;
        }
        setup_.values.selected[row] = selected;
    }
    void TrackSel_MouseDown(int) override {}
    void TrackSel_Click(int) override {}
    void setTrackHide(int row, bool hidden) override {
        setup_.values.options.rows[row].hidden = hidden;
    }
    void enableTrackHide(int, bool) override {}
    void setTrackHidePicture(int, bool) override {}
    void setVol(int row, const std::string& text) override {
        setup_.values.options.rows[row].volume = text;
    }
    void setCh(int row, bool chord) override { setup_.values.options.rows[row].chord = chord; }
    void setChkstrum(int row, bool strummed) override {
        setup_.values.options.rows[row].strummed = strummed;
    }
    void setCombo1(int index) override { setup_.values.instrument = index; }
    void setCombo2(int index) override { setup_.values.device = index; }
    void setTempoBar(int) override {}
    void setTempoLabel(const std::string&) override {}
    void showFirstTab() override {}

protected:
    velorin::Setup& setup_;
};

} // namespace scripted
