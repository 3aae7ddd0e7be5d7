// A `MainDesk` that does nothing, for sessions without a main window.
#pragma once

#include "studio/MainDesk.h"

namespace velorin {

/// Also the base of test fakes that implement only some of the calls.
struct NoDesk : MainDesk {
    void DrawNoteArray() override {}
    void DrawBeatArray() override {}
    void DrawPolyTableau() override {}
    void clearMusicBox() override {}
    unsigned musicDraws() override { return 0; }
    void GetColumn(int) override {}
    void PutColumn(int) override {}
    void drawPlayMarker(int) override {}
    void Form_Resize() override {}
    void showHint(const std::string&) override {}

    void focusMusicBox() override {}
    void focusBeatbox() override {}
    void setBeatboxHeight(int) override {}
    int beatboxHeight() override { return 0; }
    void moveViewTo(int, int) override {}
    int HScroll1Min() override { return 20; }
    void setHScroll1(int) override {}

    std::string text(MainText) override { return {}; }
    void setText(MainText, const std::string&) override {}
    void setMainCombo1(int) override {}
    void enableMainTrackSel(int, bool) override {}
    void setCheck1(bool) override {}
    void ChangeInstrument(int, int) override {}
    void FunctionBut_Click(int) override {}

    void enableTableaux(bool) override {}
    void enableWizard(bool) override {}
    void enableToolbars() override {}

    void leaveTopMost() override {}
    void returnToTopMost() override {}
    void HideToolbars() override {}
    void ShowToolbars() override {}
    std::string Form2Text1() override { return {}; }
    void setChkgraphics(bool) override {}
    void showProgress(double, const std::string*) override {}
    void endProgress() override {}
    void Recordcontrol() override {}
    bool changeToProgramFolder() override { return true; }
    void endWithError(const std::string&) override {}
};

} // namespace velorin
