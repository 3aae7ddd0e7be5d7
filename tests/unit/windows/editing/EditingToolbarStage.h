// The Editing Toolbar on a scripted host, with a main window that logs its calls.
#pragma once

#include "support/ToolStage.h"
#include "windows/editing/EditingToolbar.h"
#include "windows/editing/Form2.h"

#include <functional>
#include <map>
#include <string>
#include <vector>

namespace velorin {

using Lines = std::vector<std::string>;

/// Logs the calls that identify a command. Keeps the copies of the number boxes.
struct LoggedDesk final : NoDesk {
    Lines log;
    std::function<void()> onCall;
    std::map<MainText, std::string> texts;
    std::string spaces = "1";

    void FunctionBut_Click(int index) override {
        note("FunctionBut_Click " + std::to_string(index));
    }
    void DrawPolyTableau() override { note("DrawPolyTableau"); }
    void clearMusicBox() override { note("clearMusicBox"); }
    void focusMusicBox() override { note("focusMusicBox"); }
    void leaveTopMost() override { note("leaveTopMost"); }
    void enableTableaux(bool enabled) override {
        note(enabled ? "enableTableaux" : "disableTableaux");
    }
    std::string Form2Text1() override { return spaces; }
    std::string text(MainText box) override { return texts[box]; }
    void setText(MainText box, const std::string& text) override { texts[box] = text; }

private:
    void note(const std::string& line) {
        log.push_back(line);
        if (onCall)
            onCall();
    }
};

/// The window is not loaded yet.
struct EditingToolbarStage : scripted::ToolStage {
    EditingToolbarStage() {
        studio.desk = &desk;
        windows.add(Tool::editing, toolbar);
        session.sequencer.PlayTimer = session.watch.StopWatchNew();
    }

    Form2& form() { return toolbar.form(); }
    /// The calls that the button makes on the main window.
    Lines clicked(int index) {
        desk.log.clear();
        form().Cmd2_Click(index);
        return desk.log;
    }

    LoggedDesk desk;
    EditingToolbar toolbar{session, windows};
};

} // namespace velorin
