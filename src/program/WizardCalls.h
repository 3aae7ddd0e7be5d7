// Implements `WizardDesk`: carries out the calls of the lessons on the program's windows.
#pragma once

#include "tutorial/WizardDesk.h"

namespace velorin {

class Form2;
class Form3;
class Program;
class Record;

/// Forwards each call to the window. The program outlives it.
class WizardCalls final : public WizardDesk {
public:
    explicit WizardCalls(Program& program) : program_(program) {}

    void MusicBox_MouseDown(int button, int shift, double x, double y) override;
    void MusicBox_MouseMove(int button, int shift, double x, double y) override;
    void MusicBox_MouseUp(int button, int shift, double x, double y) override;

    void setForm3Tab(int index) override;
    void chooseInstrument(int index) override;
    void choosePercussion(int index) override;
    void setCombo3(int index) override;

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
};

} // namespace velorin
