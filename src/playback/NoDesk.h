// The main window's part in loading and playing, where there is no window: nothing happens.
#pragma once

#include "playback/PlaybackDesk.h"

namespace velorin {

/// Also the base of a stand-in that answers some of the calls.
struct NoDesk : PlaybackDesk {
    void DrawNoteArray() override {}
    void DrawBeatArray() override {}
    void DrawPolyTableau() override {}
    void focusMusicBox() override {}
    void focusBeatbox() override {}
    void setBeatboxHeight(int) override {}
    int HScroll1Min() override { return 20; }
    void setHScroll1(int) override {}
    void setMainCombo1(int) override {}
    void enableMainTrackSel(int, bool) override {}
    void setMainTrackSel(int, bool) override {}
    void ChangeInstrument(int, int) override {}
    void leaveTopMost() override {}
    void returnToTopMost() override {}

    void clearMusicBox() override {}
    unsigned musicDraws() override { return 0; }
    void GetColumn(int) override {}
    void PutColumn(int) override {}
    void drawPlayMarker(int) override {}
    void enableTableaux(bool) override {}
    void enableWizard(bool) override {}
    void enableToolbars() override {}
    void showProgress(double, const std::string*) override {}
    void endProgress() override {}
    void Recordcontrol() override {}
    std::string Instxt() override { return {}; }
    void setInstxt(const std::string&) override {}
};

} // namespace velorin
