// Implements `MainDesk` with the controls of the main window and the tool windows.
#pragma once

#include "studio/MainDesk.h"

class QLineEdit;

namespace velorin {

class EditingToolbar;
class Form1;
class RecordingToolbar;
class ToolWindows;

/// Owned by `Form1`.
class MainWindowDesk final : public MainDesk {
public:
    MainWindowDesk(Form1& form, ToolWindows& windows, EditingToolbar& editing,
                   RecordingToolbar& recording)
        : form_(form), windows_(windows), editing_(editing), recording_(recording) {}

    void DrawNoteArray() override;
    void DrawBeatArray() override;
    void DrawPolyTableau() override;
    void clearMusicBox() override;
    unsigned musicDraws() override;
    void GetColumn(int offset) override;
    void PutColumn(int offset) override;
    void drawPlayMarker(int offset) override;
    void Form_Resize() override;
    void showHint(const std::string& line) override;

    void focusMusicBox() override;
    void focusBeatbox() override;
    void setBeatboxHeight(int heightPx) override;
    int beatboxHeight() override;
    void moveViewTo(int column, int pitch) override;
    int HScroll1Min() override;
    void setHScroll1(int value) override;

    std::string text(MainText box) override;
    void setText(MainText box, const std::string& text) override;
    void setMainCombo1(int index) override;
    void enableMainTrackSel(int row, bool enabled) override;
    void setCheck1(bool checked) override;
    void ChangeInstrument(int instrument, int row) override;
    void FunctionBut_Click(int index) override;

    void enableTableaux(bool enabled) override;
    void enableWizard(bool enabled) override;
    void enableToolbars() override;

    void leaveTopMost() override;
    void returnToTopMost() override;
    void HideToolbars() override;
    void ShowToolbars() override;
    std::string Form2Text1() override;
    void setChkgraphics(bool checked) override;
    void showProgress(double ratio, const std::string* caption) override;
    void endProgress() override;
    void Recordcontrol() override;

    bool changeToProgramFolder() override;
    void endWithError(const std::string& text) override;

private:
    [[nodiscard]] QLineEdit& box(MainText box);

    Form1& form_;
    ToolWindows& windows_;
    EditingToolbar& editing_;
    RecordingToolbar& recording_;
};

} // namespace velorin
