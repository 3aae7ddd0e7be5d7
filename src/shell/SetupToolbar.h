// The Setup Toolbar as a service: its window, `Form3`, is loaded by the first use of one of its
// controls, and again by the next use after it was closed.
#pragma once

#include "score/SetupControls.h"

#include <QPointer>

#include <memory>
#include <vector>

namespace velorin {

class Form3;
class NoteSounding;
class SetupDesk;
struct Studio;

/// One for the run. Needs a QApplication once a control is used. The references may be to objects
/// that are still to be made: nothing of them is touched before the first use.
class SetupToolbar final : public SetupControls {
public:
    SetupToolbar(Studio& studio, NoteSounding& sounding, SetupDesk& desk);
    ~SetupToolbar() override;

    /// The window, loaded if it was not: `Form_Load` runs, the window stays hidden.
    Form3& form();
    [[nodiscard]] bool isLoaded() const { return form_ != nullptr; }
    [[nodiscard]] bool isVisible() const;

    void show(); ///< loads it and puts it on the screen, without the focus
    void hide(); ///< nothing if it is not loaded

    /// `Form_Unload` and the end of the window; nothing if it is not loaded. It leaves the screen
    /// at once and is destroyed when the last of its handlers has returned.
    void unload();

    bool TrackHide(int row) override;
    std::optional<std::string> vol(int row) override;
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
    friend class Form3;
    void handlerBegins() { ++running_; }
    void handlerEnds();

    Studio& studio_;
    NoteSounding& sounding_;
    SetupDesk& desk_;
    Form3* form_ = nullptr;             ///< the loaded window
    std::vector<QPointer<Form3>> gone_; ///< unloaded while one of their handlers still ran
    int running_ = 0;                   ///< handlers of `Form3` on the stack
};

} // namespace velorin
