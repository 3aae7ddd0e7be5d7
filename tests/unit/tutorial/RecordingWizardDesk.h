// A stand-in for the windows that lessons use: it logs each call.
#pragma once

#include "tutorial/WizardDesk.h"

#include <functional>
#include <vector>

namespace velorin {

class RecordingWizardDesk final : public WizardDesk {
public:
    std::vector<std::string> log;
    std::function<void()> onMouseDown; ///< runs inside each press

    void MusicBox_MouseDown(int button, int, double x, double y) override {
        note(mouse("down", button, x, y));
        if (onMouseDown)
            onMouseDown();
    }
    void MusicBox_MouseMove(int button, int, double x, double y) override {
        note(mouse("move", button, x, y));
    }
    void MusicBox_MouseUp(int button, int, double x, double y) override {
        note(mouse("up", button, x, y));
    }

    void setForm3Tab(int index) override { note("Form3.SSTab1", index); }
    void chooseInstrument(int index) override { note("Combo1", index); }
    void choosePercussion(int index) override { note("Combo5", index); }
    void setCombo3(int index) override { note("Combo3", index); }

    void showForm2() override { note("showForm2"); }
    void bringForm2ToFront() override { note("bringForm2ToFront"); }
    void toggleEditMode() override { note("toggleEditMode"); }
    void setForm2Text1(const std::string& text) override { note("Text1 " + text); }
    void setForm2Text3(const std::string& text) override { note("Text3 " + text); }
    void setForm2Text4(const std::string& text) override { note("Text4 " + text); }
    void setForm2Text5(const std::string& text) override { note("Text5 " + text); }

    void showRecord() override { note("showRecord"); }
    void setRecordTab(int index) override { note("Record.SSTab1", index); }
    void setRecordCheck2(bool set) override { note("Check2", set ? 1 : 0); }
    void setRecordCheck3(bool set) override { note("Check3", set ? 1 : 0); }
    void setRecordCheck4(bool set) override { note("Check4", set ? 1 : 0); }
    void setRecordText6(const std::string& text) override { note("Text6 " + text); }
    void setOptsourcesng() override { note("Optsourcesng"); }
    void setOptsourcemid() override { note("Optsourcemid"); }
    void Cmdrecord_Click() override { note("Cmdrecord_Click"); }
    void C4_Click() override { note("C4_Click"); }
    void Record_Command4_Click(int index) override { note("Record.Command4_Click", index); }

    void leaveTopMost() override { note("leaveTopMost"); }
    void returnToTopMost() override { note("returnToTopMost"); }
    void showHourglass(bool shown) override { note("hourglass", shown ? 1 : 0); }

private:
    void note(const std::string& line) { log.push_back(line); }
    void note(const std::string& name, int number) {
        log.push_back(name + " " + std::to_string(number));
    }
    static std::string mouse(const char* action, int button, double x, double y) {
        return std::string(action) + " " + std::to_string(button) + " at " +
               std::to_string(static_cast<int>(x)) + "," + std::to_string(static_cast<int>(y));
    }
};

} // namespace velorin
