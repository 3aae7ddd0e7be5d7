// The lessons' calls on the program, carried out on its windows.
#include "windows/WizardCalls.h"

#include "editing/EditingToolbar.h"
#include "editing/Form2.h"
#include "program/Form1.h"
#include "program/Program.h"
#include "shell/Form3.h"
#include "shell/SetupToolbar.h"

#include <QGuiApplication>

namespace velorin {

namespace {

/// Sets a list and has its handler run once; a list that shows the entry already does not run it.
template <class Handler>
void choose(QComboBox& list, int index, Handler click) {
    if (index < 0 || index >= list.count())
        return;
    if (list.currentIndex() == index)
        click();
    else
        list.setCurrentIndex(index);
}

} // namespace

Form3& WizardCalls::form3() {
    return program_.setup().form();
}

Form2& WizardCalls::form2() {
    return editing_.form();
}

void WizardCalls::Command4_Click() {
    program_.form1().commands.Command4_Click();
}

void WizardCalls::CmdBeatactivate() {
    program_.form1().commands.CmdBeatactivate();
}

void WizardCalls::OpenFile(const std::string& name) {
    program_.form1().files.OpenFile(name);
}

void WizardCalls::mSaveAs_Click() {
    program_.form1().mSaveAs_Click();
}

void WizardCalls::PlayAndStop_Click(int index) {
    program_.form1().PlayAndStop_Click(index);
}

void WizardCalls::RewindBut_Click() {
    program_.form1().RewindBut_Click();
}

void WizardCalls::copyIt() {
    program_.form1().copyIt();
}

void WizardCalls::CutBut_Click() {
    program_.form1().CutBut_Click();
}

void WizardCalls::PasteBut_Click() {
    program_.form1().PasteBut_Click();
}

void WizardCalls::PasteIntoBut_Click() {
    program_.form1().PasteIntoBut_Click();
}

void WizardCalls::InsertColumnBut_Click() {
    program_.form1().InsertColumnBut_Click();
}

void WizardCalls::CopyNotes(int firstRow, int lastRow) {
    program_.form1().CopyNotes(firstRow, lastRow);
}

void WizardCalls::MusicBox_MouseDown(int button, int shift, double x, double y) {
    program_.form1().musicMouse.MusicBox_MouseDown(button, shift, x, y);
}

void WizardCalls::MusicBox_MouseMove(int button, int shift, double x, double y) {
    program_.form1().musicMouse.MusicBox_MouseMove(button, shift, x, y);
}

void WizardCalls::MusicBox_MouseUp(int button, int shift, double x, double y) {
    program_.form1().musicMouse.MusicBox_MouseUp(button, shift, x, y);
}

void WizardCalls::activateBeatbox() {
    program_.form1().focusBeatbox();
}

bool WizardCalls::FileExists(const std::string& name) {
    return program_.form1().samples.FileExists(name);
}

void WizardCalls::p_DestroyFile(const std::string& name) {
    program_.form1().samples.p_DestroyFile(name);
}

void WizardCalls::ExtractSamples() {
    program_.form1().samples.ExtractSamples();
}

void WizardCalls::setForm3Tab(int index) {
    form3().SSTab1->setCurrentIndex(index);
}

void WizardCalls::setTrackSel(int row, bool selected) {
    program_.setup().setTrackSel(row, selected);
}

void WizardCalls::TrackSel_MouseDown(int row) {
    program_.setup().TrackSel_MouseDown(row);
}

void WizardCalls::chooseInstrument(int index) {
    Form3& form = form3();
    choose(*form.Combo1, index, [&form] { form.Combo1_Click(); });
}

void WizardCalls::choosePercussion(int index) {
    Form3& form = form3();
    choose(*form.Combo5, index, [&form] { form.Combo5_Click(); });
}

void WizardCalls::setCombo3(int index) {
    QComboBox& list = *form3().Combo3;
    if (index >= 0 && index < list.count())
        list.setCurrentIndex(index);
}

void WizardCalls::setCh(int row, bool chord) {
    program_.setup().setCh(row, chord);
}

void WizardCalls::setVol(int row, const std::string& text) {
    program_.setup().setVol(row, text);
}

void WizardCalls::setTempoBar(int tempo) {
    program_.setup().setTempoBar(tempo);
}

void WizardCalls::showForm2() {
    program_.showWindow("Form2");
}

void WizardCalls::bringForm2ToFront() {
    form2().raise();
}

void WizardCalls::toggleEditMode() {
    constexpr int modeButton = 11;
    form2().Cmd2_Click(modeButton);
}

void WizardCalls::setForm2Text1(const std::string& text) {
    form2().Text1->setText(QString::fromStdString(text));
}

void WizardCalls::setForm2Text3(const std::string& text) {
    form2().Text3->setText(QString::fromStdString(text));
}

void WizardCalls::setForm2Text4(const std::string& text) {
    form2().Text4->setText(QString::fromStdString(text));
}

void WizardCalls::setForm2Text5(const std::string& text) {
    form2().Text5->setText(QString::fromStdString(text));
}

void WizardCalls::leaveTopMost() {
    setTopMost(false);
}

void WizardCalls::returnToTopMost() {
    setTopMost(true);
}

void WizardCalls::setTopMost(bool topmost) {
    if (QWidget* wizard = program_.window("Wiz", false))
        SetTopMost(*wizard, topmost);
}

void WizardCalls::showHourglass(bool shown) {
    if (shown)
        QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    else
        QGuiApplication::restoreOverrideCursor();
}

} // namespace velorin
