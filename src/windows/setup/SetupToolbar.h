// Loads and unloads `Form3`, the Setup Toolbar, and sets its controls.
#pragma once

#include "studio/Setup.h"
#include "windows/frame/ToolWindow.h"

#include <functional>
#include <memory>
#include <string>

namespace velorin {

class Form3;
class Session;
class ToolWindows;

/// One for the run; the view of `Studio::setup`. Needs a QApplication when a value is used.
///
/// Rule: the first use of a value loads the window, and so does the next use after it was closed.
/// It then has its defaults: what the user had set is lost. Held by shell/setup_toolbar.
class SetupToolbar final : public SetupView, public ToolWindow {
public:
    SetupToolbar(Session& session, ToolWindows& windows);
    ~SetupToolbar() override;

    /// The window, loaded if it was not: `Form_Load` runs, the window stays hidden.
    Form3& form();
    [[nodiscard]] bool isLoaded() const { return form_ != nullptr; }

    /// The window was closed while rows or chords were not as the defaults. May be empty.
    std::function<void()> onValuesLost;

    /// The user has taken an entry of a list of instruments. The first time that notes drawn before
    /// keep another one, a hint says how to change them.
    void instrumentTaken();
    std::function<void(const std::string& lines)> onHint; ///< shows lines for some seconds

    QWidget* window() override;
    QWidget& load() override;
    void unload() override;

    // SetupView
    void loadControls() override;
    void setTrackSel(int row, bool selected) override;
    void TrackSel_MouseDown(int row) override;
    void TrackSel_Click(int row) override;
    void setTrackHide(int row, bool hidden) override;
    void enableTrackHide(int row, bool enabled) override;
    void setTrackHidePicture(int row, bool active) override;
    void setVol(int row, const std::string& text) override;
    void setCh(int row, bool chord) override;
    void setChkstrum(int row, bool strummed) override;
    void setCombo1(int index) override;
    void setCombo2(int index) override;
    void setTempoBar(int value) override;
    void setTempoLabel(const std::string& text) override;
    void showFirstTab() override;

private:
    [[nodiscard]] bool hasOwnValues() const;

    Session& session_;
    ToolWindows& windows_;
    std::unique_ptr<Form3> form_;
    bool hasAdvised_ = false;
    bool ready_ = false; ///< `Form_Load` was run, so `Form_Unload` must run
};

} // namespace velorin
