// The lessons' calls on the program, carried out on its windows.
#pragma once

#include "tutorial/WizardDesk.h"

namespace velorin {

class EditingToolbar;
class Form2;
class Form3;
class Program;
class Record;
class RecordingToolbar;

/// Everything here is a line or two to whoever does it.
class WizardCalls final : public WizardDesk {
public:
    WizardCalls(Program& program, EditingToolbar& editing, RecordingToolbar& recording)
        : program_(program), editing_(editing), recording_(recording) {}

    void Command4_Click() override;
    void CmdBeatactivate() override;
    void OpenFile(const std::string& name) override;
    void mSaveAs_Click() override;
    void PlayAndStop_Click(int index) override;
    void RewindBut_Click() override;
    void copyIt() override;
    void CutBut_Click() override;
    void PasteBut_Click() override;
    void PasteIntoBut_Click() override;
    void InsertColumnBut_Click() override;
    void CopyNotes(int firstRow, int lastRow) override;
    void MusicBox_MouseDown(int button, int shift, double x, double y) override;
    void MusicBox_MouseMove(int button, int shift, double x, double y) override;
    void MusicBox_MouseUp(int button, int shift, double x, double y) override;
    void activateBeatbox() override;

    bool FileExists(const std::string& name) override;
    void p_DestroyFile(const std::string& name) override;
    void ExtractSamples() override;

    void setForm3Tab(int index) override;
    void setTrackSel(int row, bool selected) override;
    void TrackSel_MouseDown(int row) override;
    void chooseInstrument(int index) override;
    void choosePercussion(int index) override;
    void setCombo3(int index) override;
    void setCh(int row, bool chord) override;
    void setVol(int row, const std::string& text) override;
    void setTempoBar(int tempo) override;

    void showForm2() override;
    void bringForm2ToFront() override;
    void toggleEditMode() override;
    void setForm2Text1(const std::string& text) override;
    void setForm2Text3(const std::string& text) override;
    void setForm2Text4(const std::string& text) override;
    void setForm2Text5(const std::string& text) override;

    void showRecord() override;
    void setRecordTab(int index) override;
    void setRecordCheck2(bool set) override;
    void setRecordCheck3(bool set) override;
    void setRecordCheck4(bool set) override;
    void setRecordText6(const std::string& text) override;
    void setOptsourcesng() override;
    void setOptsourcemid() override;
    void Cmdrecord_Click() override;
    void C4_Click() override;
    void Record_Command4_Click(int index) override;

    void leaveTopMost() override;
    void returnToTopMost() override;
    void showHourglass(bool shown) override;

private:
    [[nodiscard]] Form3& form3();
    [[nodiscard]] Form2& form2();
    [[nodiscard]] Record& record();
    void setTopMost(bool topmost);

    Program& program_;
    EditingToolbar& editing_;
    RecordingToolbar& recording_;
};

} // namespace velorin
