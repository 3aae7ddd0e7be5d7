// The Setup Toolbar on a scripted host, with a main window that writes down what is asked of it.
#pragma once

#include "playback/NoDesk.h"

#include "playback/NoteSounding.h"
#include "score/Studio.h"
#include "shell/Form3.h"
#include "shell/SetupDesk.h"
#include "shell/SetupToolbar.h"
#include "support/ScriptedPlatform.h"

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace velorin {

using Lines = std::vector<std::string>;

class RecordingSetupDesk final : public SetupDesk {
public:
    Lines log;
    std::vector<std::unique_ptr<QWidget>> gone; ///< windows that wait to be destroyed
    std::function<void()> onDeviceClick;

    void Combo1_Click() override { log.emplace_back("Combo1_Click"); }
    void Combo5_Click() override { log.emplace_back("Combo5_Click"); }
    void Device_Click() override {
        log.emplace_back("Device_Click");
        if (onDeviceClick) {
            onDeviceClick();
        }
    }
    void TrackSel_Click(int row) override {
        log.push_back("TrackSel_Click " + std::to_string(row));
    }
    void Form_Resize() override { log.emplace_back("Form_Resize"); }
    void DrawNoteArray() override { log.emplace_back("DrawNoteArray"); }
    void noteActiveToolbar(const char* name) override {
        log.push_back(std::string("active ") + name);
    }
    void addKeys(ToolFrame&) override {}
    FrameState& frames() override { return frames_; }
    void destroyLater(std::unique_ptr<QWidget> window) override {
        gone.push_back(std::move(window));
    }
    void runHandler(const QWidget&, const std::function<void()>& handler) override { handler(); }
    void endWithError(const std::string& text) override { log.push_back("end: " + text); }

private:
    FrameState frames_;
};

/// Nothing is loaded yet; the first use of a control loads the window.
struct SetupStage {
    SetupStage() { setup.attach(sounding, desk); }

    /// What was asked of the main window since the last call.
    Lines asked() { return std::exchange(desk.log, {}); }
    Form3& form() { return setup.form(); }

    scripted::ScriptedPlatform host;
    NoDesk quiet;
    RecordingSetupDesk desk;
    SetupToolbar setup{studio};
    Studio studio{host.platform, setup};
    NoteSounding sounding{studio, quiet};
};

} // namespace velorin
