// Implements `MainDesk` with the controls of the main window and the tool windows.
#include "windows/main/MainWindowDesk.h"

#include "session/Session.h"
#include "windows/editing/EditingToolbar.h"
#include "windows/editing/Form2.h"
#include "windows/frame/ToolWindows.h"
#include "windows/help/frminfo.h"
#include "windows/main/Form1.h"
#include "windows/recording/RecordingToolbar.h"

#include <QDir>

#include <algorithm>

namespace velorin {

void MainWindowDesk::DrawNoteArray() {
    form_.music.DrawNoteArray();
}

void MainWindowDesk::DrawBeatArray() {
    form_.percussion.DrawBeatArray();
}

void MainWindowDesk::DrawPolyTableau() {
    form_.poly.DrawPolyTableau();
}

void MainWindowDesk::clearMusicBox() {
    form_.area->MusicBox->picture.Cls();
}

unsigned MainWindowDesk::musicDraws() {
    return form_.music.draws();
}

void MainWindowDesk::GetColumn(int offset) {
    form_.music.GetColumn(offset);
}

void MainWindowDesk::PutColumn(int offset) {
    form_.music.PutColumn(offset);
}

void MainWindowDesk::drawPlayMarker(int offset) {
    form_.music.drawPlayMarker(offset);
}

void MainWindowDesk::Form_Resize() {
    form_.layout.Form_Resize();
}

void MainWindowDesk::showHint(const std::string& line) {
    form_.hints.showHint(&form_, line, form_.mapToGlobal(QPoint(60, 80)));
}

void MainWindowDesk::focusMusicBox() {
    windows_.focus.give(form_.area->MusicBox);
}

void MainWindowDesk::focusBeatbox() {
    windows_.focus.give(form_.area->Beatbox);
}

void MainWindowDesk::setBeatboxHeight(int heightPx) {
    PictureBox& box = *form_.area->Beatbox;
    box.place(box.x(), box.y(), box.width(), heightPx);
}

int MainWindowDesk::beatboxHeight() {
    return form_.area->Beatbox->height();
}

void MainWindowDesk::moveViewTo(int column, int pitch) {
    View& view = form_.session.studio.view;
    if (column >= 0) {
        const QScrollBar& bar = *form_.area->HScroll1;
        view.PlayerScroll = flagSet; // the handler does not redraw
        setHScroll1(std::clamp(column, bar.minimum(), bar.maximum()));
        view.PlayerScroll = flagClear;
    }
    if (pitch >= 0)
        form_.area->VScroll1->setValue(pitch);
}

int MainWindowDesk::HScroll1Min() {
    return form_.area->HScroll1->minimum();
}

void MainWindowDesk::setHScroll1(int value) {
    QScrollBar& bar = *form_.area->HScroll1;
    if (value >= bar.minimum() && value <= bar.maximum())
        bar.setValue(value);
}

QLineEdit& MainWindowDesk::box(MainText box) {
    switch (box) {
    case MainText::Text3:
        return *form_.Text3;
    case MainText::Text4:
        return *form_.Text4;
    case MainText::Text5:
        return *form_.Text5;
    case MainText::Instxt:
        break;
    }
    return *form_.Instxt;
}

std::string MainWindowDesk::text(MainText box) {
    return this->box(box).text().toStdString();
}

void MainWindowDesk::setText(MainText box, const std::string& text) {
    this->box(box).setText(QString::fromStdString(text));
}

void MainWindowDesk::setMainCombo1(int index) {
    if (index >= -1 && index < form_.Combo1->count())
        form_.Combo1->setCurrentIndex(index);
}

void MainWindowDesk::enableMainTrackSel(int row, bool enabled) {
    form_.TrackSel[row]->setEnabled(enabled);
}

void MainWindowDesk::setCheck1(bool checked) {
    form_.Check1->setChecked(checked);
}

void MainWindowDesk::ChangeInstrument(int instrument, int row) {
    form_.session.sounding.ChangeInstrument(instrument, row);
}

void MainWindowDesk::FunctionBut_Click(int index) {
    form_.musicMouse.FunctionBut_Click(index);
}

void MainWindowDesk::enableTableaux(bool enabled) {
    Picmain& area = *form_.area;
    area.Picture11->setEnabled(enabled);
    for (QWidget* locked :
         {static_cast<QWidget*>(area.MusicBox), static_cast<QWidget*>(area.Beatbox),
          static_cast<QWidget*>(area.HScroll1), static_cast<QWidget*>(area.VScroll1)})
        windows_.focus.enable(*locked, enabled);
    if (form_.onLockChanged)
        form_.onLockChanged();
}

void MainWindowDesk::enableWizard(bool enabled) {
    if (QWidget* const wizard = windows_.window(Tool::tutorial))
        windows_.focus.enable(*wizard, enabled);
}

void MainWindowDesk::enableToolbars() {
    for (const Tool tool : {Tool::editing, Tool::setup, Tool::recording})
        if (QWidget* const window = windows_.window(tool))
            window->setEnabled(true);
}

void MainWindowDesk::leaveTopMost() {
    windows_.setTopMost(false);
}

void MainWindowDesk::returnToTopMost() {
    windows_.setTopMost(true);
}

void MainWindowDesk::HideToolbars() {
    windows_.HideToolbars();
}

void MainWindowDesk::ShowToolbars() {
    windows_.ShowToolbars();
}

std::string MainWindowDesk::Form2Text1() {
    // After the end of the program no window is loaded.
    return windows_.load(Tool::editing) != nullptr ? editing_.form().Text1->text().toStdString()
                                                   : "1";
}

void MainWindowDesk::setChkgraphics(bool checked) {
    if (form_.session.studio.run.Form2Open.isSet() && windows_.load(Tool::editing) != nullptr)
        editing_.form().chkgraphics->setChecked(checked);
}

void MainWindowDesk::showProgress(double ratio, const std::string* caption) {
    recording_.showProgress(ratio, caption);
}

void MainWindowDesk::endProgress() {
    recording_.endProgress();
}

void MainWindowDesk::Recordcontrol() {
    recording_.Recordcontrol();
}

bool MainWindowDesk::changeToProgramFolder() {
    return QDir::setCurrent(QString::fromStdString(form_.session.studio.platform.programFolder));
}

void MainWindowDesk::endWithError(const std::string& text) {
    form_.onError(text);
}

} // namespace velorin
