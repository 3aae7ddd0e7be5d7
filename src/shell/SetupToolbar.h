// The Setup Toolbar as a service: its window, `Form3`, is loaded by the first use of one of its
// controls, and again by the next use after it was closed.
#pragma once

#include "score/SetupControls.h"
#include "shell/ToolWindow.h"

#include <memory>

namespace velorin {

class Form3;
class NoteSounding;
class SetupDesk;
struct Studio;

/// One for the run. Needs a QApplication once a control is used.
class SetupToolbar final : public SetupControls, public ToolWindow {
public:
    /// `studio` may still be to be made: it holds a reference to this object in its turn.
    explicit SetupToolbar(Studio& studio);

    /// The parts of the main window, which is made later; before the first use of a control.
    void attach(NoteSounding& sounding, SetupDesk& desk);

    ~SetupToolbar() override;

    /// The window, loaded if it was not: `Form_Load` runs, the window stays hidden.
    Form3& form();
    [[nodiscard]] bool isLoaded() const { return form_ != nullptr; }

    QWidget* window() override;
    QWidget& load() override;
    void unload() override;

    bool TrackHide(int row) override;
    std::optional<std::string_view> vol(int row) override;
    bool Ch(int row) override;
    bool Chkstrum(int row) override;

    bool TrackSel(int row) override;
    void setTrackSel(int row, bool selected) override;
    void enableTrackSel(int row, bool enabled) override;
    void TrackSel_MouseDown(int row) override;
    void TrackSel_Click(int row) override;
    void setTrackHide(int row, bool hidden) override;
    void enableTrackHide(int row, bool enabled) override;
    void setTrackHidePicture(int row, bool active) override;
    void setVol(int row, const std::string& text) override;
    void setCh(int row, bool chord) override;
    void setChkstrum(int row, bool strummed) override;
    int Combo1() override;
    void setCombo1(int index) override;
    std::string Combo1Entry(int index) override;
    int Combo5() override;
    std::string Combo5Entry(int index) override;
    void Combo5_Click() override;
    int Combo2() override;
    void setCombo2(int index) override;
    void setTempoBar(int value) override;
    void setTempoLabel(const std::string& text) override;
    void showFirstTab() override;

private:
    Studio& studio_;
    NoteSounding* sounding_ = nullptr;
    SetupDesk* desk_ = nullptr;
    std::unique_ptr<Form3> form_;
    bool ready_ = false; ///< the window was loaded in order, and is to be unloaded so
};

} // namespace velorin
