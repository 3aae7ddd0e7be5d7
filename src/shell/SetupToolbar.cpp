// The Setup Toolbar as a service: loading its window, and reading and setting its controls.
#include "shell/SetupToolbar.h"

#include "platform/MessageLoop.h"
#include "score/Studio.h"
#include "shell/Form3.h"
#include "shell/RowButton.h"
#include "shell/SetupDesk.h"

namespace velorin {

namespace {

bool isRow(int row) {
    return row >= 0 && row < scoreRows;
}

bool hasChordBoxes(int row) {
    return row >= 0 && row < musicRows;
}

std::size_t at(int row) {
    return static_cast<std::size_t>(row);
}

void select(QComboBox& list, int index) {
    if (index >= -1 && index < list.count()) {
        list.setCurrentIndex(index);
    }
}

} // namespace

SetupToolbar::SetupToolbar(Studio& studio) : studio_(studio) {}

SetupToolbar::~SetupToolbar() = default;

void SetupToolbar::attach(NoteSounding& sounding, SetupDesk& desk) {
    sounding_ = &sounding;
    desk_ = &desk;
}

Form3& SetupToolbar::form() {
    // The load yields once, so the window may have been closed by the time it is loaded.
    while (!form_) {
        form_ = std::make_unique<Form3>(*this, studio_, *sounding_, *desk_);
        if (studio_.platform.loop.isEnding()) {
            break; // a program that ends opens no device again; the controls have their defaults
        }
        ready_ = true;
        form_->Form_Load();
    }
    return *form_;
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
    if (ready_) {
        form_->Form_Unload();
    }
    ready_ = false;
    form_->hide();
    desk_->destroyLater(std::move(form_));
}

bool SetupToolbar::TrackHide(int row) {
    return isRow(row) && form().TrackHide[at(row)]->isChecked();
}

std::optional<std::string_view> SetupToolbar::vol(int row) {
    if (!isRow(row) || form().vol[at(row)] == nullptr) {
        return std::nullopt;
    }
    return form().volText[at(row)];
}

bool SetupToolbar::Ch(int row) {
    return hasChordBoxes(row) && form().Ch[at(row)]->isChecked();
}

bool SetupToolbar::Chkstrum(int row) {
    return hasChordBoxes(row) && form().Chkstrum[at(row)]->isChecked();
}

bool SetupToolbar::TrackSel(int row) {
    return isRow(row) && form().TrackSel[at(row)]->isChecked();
}

void SetupToolbar::setTrackSel(int row, bool selected) {
    if (isRow(row)) {
        form().setTrackSel(row, selected);
    }
}

void SetupToolbar::enableTrackSel(int row, bool enabled) {
    if (isRow(row)) {
        form().TrackSel[at(row)]->setEnabled(enabled);
    }
}

void SetupToolbar::TrackSel_MouseDown(int row) {
    if (isRow(row)) {
        form().TrackSel_MouseDown(row);
    }
}

void SetupToolbar::TrackSel_Click(int row) {
    if (isRow(row)) {
        form().TrackSel_Click(row);
    }
}

void SetupToolbar::setTrackHide(int row, bool hidden) {
    if (isRow(row)) {
        form().TrackHide[at(row)]->setChecked(hidden);
    }
}

void SetupToolbar::enableTrackHide(int row, bool enabled) {
    if (isRow(row)) {
        form().TrackHide[at(row)]->setEnabled(enabled);
    }
}

void SetupToolbar::setTrackHidePicture(int row, bool active) {
    if (isRow(row)) {
        form().setTrackHidePicture(row, active);
    }
}

void SetupToolbar::setVol(int row, const std::string& text) {
    if (isRow(row) && form().vol[at(row)] != nullptr) {
        form().vol[at(row)]->setText(QString::fromStdString(text));
    }
}

void SetupToolbar::setCh(int row, bool chord) {
    if (hasChordBoxes(row)) {
        form().Ch[at(row)]->setChecked(chord);
    }
}

void SetupToolbar::setChkstrum(int row, bool strummed) {
    if (hasChordBoxes(row)) {
        form().Chkstrum[at(row)]->setChecked(strummed);
    }
}

int SetupToolbar::Combo1() {
    return form().Combo1->currentIndex();
}

void SetupToolbar::setCombo1(int index) {
    select(*form().Combo1, index);
}

std::string SetupToolbar::Combo1Entry(int index) {
    return form().Combo1->itemText(index).toStdString();
}

int SetupToolbar::Combo5() {
    return form().Combo5->currentIndex();
}

std::string SetupToolbar::Combo5Entry(int index) {
    return form().Combo5->itemText(index).toStdString();
}

void SetupToolbar::Combo5_Click() {
    form().Combo5_Click();
}

int SetupToolbar::Combo2() {
    return form().Combo2->currentIndex();
}

void SetupToolbar::setCombo2(int index) {
    select(*form().Combo2, index);
}

void SetupToolbar::setTempoBar(int value) {
    QScrollBar& bar = *form().HScroll1;
    if (value >= bar.minimum() && value <= bar.maximum()) {
        bar.setValue(value);
    }
}

void SetupToolbar::setTempoLabel(const std::string& text) {
    form().setTempoLabel(QString::fromStdString(text));
}

void SetupToolbar::showFirstTab() {
    form().SSTab1->setCurrentIndex(0);
}

} // namespace velorin
