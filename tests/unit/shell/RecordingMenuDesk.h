// A main window that writes down what the menus ask of it.
#pragma once

#include "shell/MenuDesk.h"

#include <string>
#include <vector>

namespace velorin {

class RecordingMenuDesk final : public MenuDesk {
public:
    std::vector<std::string> log;
    bool beatboxVisible = true;

    void Cmd2_Click(int index) override { log.push_back("Cmd2_Click " + std::to_string(index)); }
    void CutBut_Click() override { log.emplace_back("CutBut_Click"); }
    void copyIt() override { log.emplace_back("copyIt"); }
    void PasteIntoBut_Click() override { log.emplace_back("PasteIntoBut_Click"); }
    void PasteBut_Click() override { log.emplace_back("PasteBut_Click"); }
    void Command33_Click() override { log.emplace_back("Command33_Click"); }
    void Command34_Click() override { log.emplace_back("Command34_Click"); }
    void Check3_Click() override { log.emplace_back("Check3_Click"); }
    void RewindBut_Click() override { log.emplace_back("RewindBut_Click"); }
    void PlayAndStop_Click(int index) override {
        log.push_back("PlayAndStop_Click " + std::to_string(index));
    }
    void Command32_Click() override { log.emplace_back("Command32_Click"); }
    void Cmdhelp_Click() override { log.emplace_back("Cmdhelp_Click"); }
    void Command3_Click() override { log.emplace_back("Command3_Click"); }
    void Form_Resize() override { log.emplace_back("Form_Resize"); }
    void showToolbar(const char* name) override { log.push_back(std::string("show ") + name); }
    void unloadToolbar(const char* name) override { log.push_back(std::string("unload ") + name); }
    bool isBeatboxVisible() override { return beatboxVisible; }
    void setBeatboxVisible(bool visible) override {
        beatboxVisible = visible;
        log.push_back(visible ? "Beatbox shown" : "Beatbox hidden");
    }
};

} // namespace velorin
