// What the lessons do to windows, done to the windows of the program.
#include "program/WizardCalls.h"

#include "program/Program.h"
#include "windows/editing/EditingToolbar.h"
#include "windows/editing/Form2.h"
#include "windows/main/Form1.h"
#include "windows/recording/Record.h"
#include "windows/recording/RecordingToolbar.h"
#include "windows/setup/Form3.h"
#include "windows/setup/SetupToolbar.h"
#include "windows/texts/ButtonNumbers.h"

#include <QGuiApplication>

namespace velorin {

namespace {

/// Sets a list and runs its handler once. Qt does not run it for the entry that is shown already.
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
    return program_.setup.form();
}

Form2& WizardCalls::form2() {
    return program_.editing.form();
}

Record& WizardCalls::record() {
    return program_.recording.form();
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

void WizardCalls::setForm3Tab(int index) {
    form3().SSTab1->setCurrentIndex(index);
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

void WizardCalls::showForm2() {
    program_.windows.show(Tool::editing);
}

void WizardCalls::bringForm2ToFront() {
    form2().raise();
}

void WizardCalls::toggleEditMode() {
    form2().Cmd2_Click(editButton::mode);
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

void WizardCalls::showRecord() {
    program_.windows.show(Tool::recording);
}

void WizardCalls::setRecordTab(int index) {
    record().SSTab1->setCurrentIndex(index);
}

void WizardCalls::setRecordCheck2(bool set) {
    record().Check2->setChecked(set);
}

void WizardCalls::setRecordCheck3(bool set) {
    record().Check3->setChecked(set);
}

void WizardCalls::setRecordCheck4(bool set) {
    record().Check4->setChecked(set);
}

void WizardCalls::setRecordText6(const std::string& text) {
    record().Text6->setText(QString::fromStdString(text));
}

void WizardCalls::setOptsourcesng() {
    record().Optsourcesng->setChecked(true);
}

void WizardCalls::setOptsourcemid() {
    record().Optsourcemid->setChecked(true);
}

// `Capture` and the player load the window at their first use of a control. These calls load it
// before that.
void WizardCalls::Cmdrecord_Click() {
    (void)record();
    program_.recording.capture.Cmdrecord_Click();
}

void WizardCalls::C4_Click() {
    (void)record();
    program_.recording.player.C4_Click();
}

void WizardCalls::Record_Command4_Click(int index) {
    (void)record();
    program_.recording.player.Command4_Click(index);
}

void WizardCalls::leaveTopMost() {
    setTopMost(false);
}

void WizardCalls::returnToTopMost() {
    setTopMost(true);
}

void WizardCalls::setTopMost(bool topmost) {
    if (QWidget* wizard = program_.windows.window(Tool::tutorial))
        SetTopMost(*wizard, topmost);
}

void WizardCalls::showHourglass(bool shown) {
    if (shown)
        QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    else
        QGuiApplication::restoreOverrideCursor();
}

} // namespace velorin
