// The values of the Setup Toolbar, with or without its window.
#include "studio/Setup.h"

#include "model/InstrumentNames.h"

namespace velorin {

namespace {

bool isRow(int row) {
    return RowOptions::isRow(row);
}

} // namespace

/// The view with its window loaded, or null.
SetupView* Setup::load() {
    if (view_ != nullptr)
        view_->loadControls();
    return view_;
}

const RowOptions& Setup::options() {
    load();
    return values.options;
}

bool Setup::TrackHide(int row) {
    return isRow(row) && options().TrackHide(row);
}

std::optional<std::string_view> Setup::vol(int row) {
    if (!isRow(row))
        return std::nullopt;
    return options().vol(row);
}

bool Setup::Ch(int row) {
    return RowOptions::hasChords(row) && options().Ch(row);
}

bool Setup::Chkstrum(int row) {
    return RowOptions::hasChords(row) && options().Chkstrum(row);
}

bool Setup::TrackSel(int row) {
    if (!isRow(row))
        return false;
    load();
    return values.selected[row];
}

void Setup::setTrackSel(int row, bool selected) {
    if (!isRow(row))
        return;
    if (SetupView* const view = load())
        return view->setTrackSel(row, selected);
    for (int other = 0; selected && other < scoreRows; ++other) {
        if (isMusicRow(other) == isMusicRow(row))
            values.selected[other] = false;
    }
    values.selected[row] = selected;
}

void Setup::TrackSel_MouseDown(int row) {
    if (!isRow(row))
        return;
    if (SetupView* const view = load())
        view->TrackSel_MouseDown(row);
}

void Setup::TrackSel_Click(int row) {
    if (!isRow(row))
        return;
    if (SetupView* const view = load())
        view->TrackSel_Click(row);
}

void Setup::setTrackHide(int row, bool hidden) {
    if (!isRow(row))
        return;
    if (SetupView* const view = load())
        return view->setTrackHide(row, hidden);
    values.options.rows[row].hidden = hidden;
}

void Setup::enableTrackHide(int row, bool enabled) {
    if (!isRow(row))
        return;
    if (SetupView* const view = load())
        view->enableTrackHide(row, enabled);
}

void Setup::setTrackHidePicture(int row, bool active) {
    if (!isRow(row))
        return;
    if (SetupView* const view = load())
        view->setTrackHidePicture(row, active);
}

void Setup::setVol(int row, const std::string& text) {
    if (!RowOptions::hasVolume(row))
        return;
    if (SetupView* const view = load())
        return view->setVol(row, text);
    values.options.rows[row].volume = text;
}

void Setup::setCh(int row, bool chord) {
    if (!RowOptions::hasChords(row))
        return;
    if (SetupView* const view = load())
        return view->setCh(row, chord);
    values.options.rows[row].chord = chord;
}

void Setup::setChkstrum(int row, bool strummed) {
    if (!RowOptions::hasChords(row))
        return;
    if (SetupView* const view = load())
        return view->setChkstrum(row, strummed);
    values.options.rows[row].strummed = strummed;
}

int Setup::Combo1() {
    load();
    return values.instrument;
}

void Setup::setCombo1(int index) {
    SetupView* const view = load();
    if (index < -1 || index >= static_cast<int>(instrumentNames.size()))
        return;
    if (view != nullptr)
        return view->setCombo1(index);
    values.instrument = index;
}

int Setup::Combo5() {
    load();
    return values.percussion;
}

int Setup::Combo2() {
    load();
    return values.device;
}

void Setup::setCombo2(int index) {
    if (SetupView* const view = load())
        return view->setCombo2(index);
    values.device = index;
}

// Rule: a tempo outside the bar's range leaves the bar where it is. Held by score/reading.
void Setup::setTempoBar(int value) {
    SetupView* const view = load();
    constexpr int slowest = 20;
    constexpr int fastest = 300;
    if (view != nullptr && value >= slowest && value <= fastest)
        view->setTempoBar(value);
}

void Setup::setTempoLabel(const std::string& text) {
    if (SetupView* const view = load())
        view->setTempoLabel(text);
}

void Setup::showFirstTab() {
    if (SetupView* const view = load())
        view->showFirstTab();
}

} // namespace velorin
