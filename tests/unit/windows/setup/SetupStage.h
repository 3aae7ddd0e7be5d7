// The Setup Toolbar on a scripted host, with a main window that logs its calls.
#pragma once

#include "support/ToolStage.h"
#include "windows/setup/Form3.h"
#include "windows/setup/SetupToolbar.h"

#include <string>
#include <vector>

namespace velorin {

using Lines = std::vector<std::string>;

/// Logs into the log of the MIDI devices, so that the order of both is visible.
struct LoggedDesk final : NoDesk {
    explicit LoggedDesk(Lines& logGiven) : log(logGiven) {}

    Lines& log;
    std::string instrument = "5"; ///< `Instxt`

    void DrawNoteArray() override { log.emplace_back("DrawNoteArray"); }
    void DrawBeatArray() override { log.emplace_back("DrawBeatArray"); }
    void Form_Resize() override { log.emplace_back("Form_Resize"); }
    std::string text(MainText) override { return instrument; }
    void setText(MainText, const std::string& text) override {
        instrument = text;
        log.push_back("Instxt " + text);
    }
    void endWithError(const std::string& text) override { log.push_back("end: " + text); }
};

/// Nothing is loaded yet; the first use of a value loads the window.
struct SetupStage : scripted::ToolStage {
    SetupStage() { studio.desk = &desk; }

    /// The calls on the devices and on the main window since the last call: "open 0", "C3 18",
    /// "Form_Resize". The bank messages before each instrument are left out.
    Lines asked() {
        Lines lines;
        for (const std::string& line : host.midi.log) {
            const bool isTimed = line.size() > 6 && line[1] == '.';
            const std::string what = isTimed ? line.substr(6) : line;
            if (!what.starts_with('B'))
                lines.push_back(what);
        }
        host.midi.log.clear();
        return lines;
    }
    Form3& form() { return toolbar.form(); }

    LoggedDesk desk{host.midi.log};
    NoteSounding& sounding = session.sounding;
    Setup& setup = studio.setup;
    SetupToolbar toolbar{session, windows};
};

} // namespace velorin
