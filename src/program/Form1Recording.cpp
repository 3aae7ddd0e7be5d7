// What the main window does for the Recording Toolbar, and what it hands on to it.
#include "program/Form1.h"
#include "program/Program.h"
#include "score/Studio.h"
#include "shell/RecordingLink.h"

#include <QDir>

namespace velorin {

void Form1::showProgress(double ratio, const std::string* caption) {
    if (recording != nullptr)
        recording->showProgress(ratio, caption);
}

void Form1::endProgress() {
    if (recording != nullptr)
        recording->endProgress();
}

void Form1::Recordcontrol() {
    if (recording != nullptr)
        recording->Recordcontrol();
}

void Form1::cmdStop_Click() {
    studio_.run.RecordingFlag = flagClear;
}

void Form1::StopallSound() {
    sounding.StopallSound();
}

void Form1::OpenFile(const std::string& name) {
    files.OpenFile(name);
}

void Form1::setCheck1(bool checked) {
    Check1->setChecked(checked);
}

void Form1::setChkgraphics(bool checked) {
    if (studio_.run.Form2Open == flagClear)
        return;
    const QWidget* toolbar = program_.window("Form2", true);
    auto* box = toolbar != nullptr ? toolbar->findChild<QCheckBox*>("chkgraphics") : nullptr;
    if (box != nullptr)
        box->setChecked(checked);
}

void Form1::openMidiOutput(int index) {
    sounding.openDevice(index);
}

bool Form1::changeToProgramFolder() {
    return QDir::setCurrent(QString::fromStdString(studio_.platform.programFolder));
}

} // namespace velorin
