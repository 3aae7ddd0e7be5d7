// The lessons' calls on the Recording Toolbar.
#include "program/Program.h"
#include "recording/Record.h"
#include "recording/RecordingToolbar.h"
#include "windows/WizardCalls.h"

namespace velorin {

Record& WizardCalls::record() {
    return recording_.form();
}

void WizardCalls::showRecord() {
    program_.showWindow("Record");
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

// The procedures load the window by their first look at a control, at the latest; here it is there
// before them.
void WizardCalls::Cmdrecord_Click() {
    (void)record();
    recording_.capture.Cmdrecord_Click();
}

void WizardCalls::C4_Click() {
    (void)record();
    recording_.player.C4_Click();
}

void WizardCalls::Record_Command4_Click(int index) {
    (void)record();
    recording_.player.Command4_Click(index);
}

} // namespace velorin
