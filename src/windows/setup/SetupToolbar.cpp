// Loads and unloads `Form3`, the Setup Toolbar, and sets its controls.
#include "windows/setup/SetupToolbar.h"

#include "platform/MessageLoop.h"
#include "session/Session.h"
#include "windows/frame/RowButton.h"
#include "windows/frame/ToolWindows.h"
#include "windows/setup/Form3.h"

namespace velorin {

namespace {

void select(QComboBox& list, int index) {
    if (index >= -1 && index < list.count()) {
        list.setCurrentIndex(index);
    }
}

} // namespace

SetupToolbar::SetupToolbar(Session& session, ToolWindows& windows)
    : session_(session), windows_(windows) {
    session.studio.setup.attach(*this);
}

SetupToolbar::~SetupToolbar() = default;

Form3& SetupToolbar::form() {
    // The load yields once, so the window may have been closed when it returns.
    while (!form_) {
        form_ = std::make_unique<Form3>(*this, session_, windows_);
        if (session_.studio.platform.loop.isEnding())
            break; // the program ends: opens no device; the controls have their defaults
        ready_ = true;
        form_->Form_Load();
    }
    return *form_;
}

void SetupToolbar::loadControls() {
    if (!form_)
        form();
}

QWidget* SetupToolbar::window() {
    return form_.get();
}

QWidget& SetupToolbar::load() {
    return form();
}

void SetupToolbar::unload() {
    if (!form_) {
        return;
    }
    const bool losesValues = ready_ && hasOwnValues();
    if (ready_) {
        form_->Form_Unload();
    }
    ready_ = false;
    form_->detachValues();
    windows_.closed.destroyLater(std::move(form_));
    if (losesValues && onValuesLost)
        onValuesLost();
}

bool SetupToolbar::hasOwnValues() const {
    const NoteSounding& chord = session_.sounding;
    const bool isMinor =
        chord.ChordInterval1 == 3 && chord.ChordInterval2 == 7 && chord.ChordInterval3 == 12;
    return !isMinor || session_.studio.setup.values.options.rows != RowOptions{}.rows;
}

void SetupToolbar::setTrackSel(int row, bool selected) {
    form().setTrackSel(row, selected);
}

void SetupToolbar::TrackSel_MouseDown(int row) {
    form().TrackSel_MouseDown(row);
}

void SetupToolbar::TrackSel_Click(int row) {
    form().TrackSel_Click(row);
}

void SetupToolbar::setTrackHide(int row, bool hidden) {
    form().TrackHide[row]->setChecked(hidden);
}

void SetupToolbar::enableTrackHide(int row, bool enabled) {
    form().TrackHide[row]->setEnabled(enabled);
}

void SetupToolbar::setTrackHidePicture(int row, bool active) {
    form().setTrackHidePicture(row, active);
}

void SetupToolbar::setVol(int row, const std::string& text) {
    form().vol[row]->setText(QString::fromStdString(text));
}

void SetupToolbar::setCh(int row, bool chord) {
    form().Ch[row]->setChecked(chord);
}

void SetupToolbar::setChkstrum(int row, bool strummed) {
    form().Chkstrum[row]->setChecked(strummed);
}

void SetupToolbar::setCombo1(int index) {
    select(*form().Combo1, index);
}

void SetupToolbar::setCombo2(int index) {
    select(*form().Combo2, index);
}

void SetupToolbar::setTempoBar(int value) {
    form().HScroll1->setValue(value);
}

void SetupToolbar::setTempoLabel(const std::string& text) {
    form().setTempoLabel(QString::fromStdString(text));
}

void SetupToolbar::showFirstTab() {
    form().SSTab1->setCurrentIndex(0);
}

} // namespace velorin
