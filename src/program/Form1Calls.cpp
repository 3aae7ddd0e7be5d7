// What the tool windows and the menus ask of the main window: each a line or two to whoever does
// it.
#include "program/Form1.h"
#include "program/Program.h"

namespace velorin {

void Form1::mNew_Click() {
    commands.mNew_Click();
}

void Form1::mSaveAs_Click() {
    files.mSaveAs_Click();
}

void Form1::PlaySelection() {
    program_.runHandler(nullptr, [this] { sequencer.PlaySelection(); });
}

void Form1::InsertColumnBut_Click() {
    edits.InsertColumnBut_Click();
}

void Form1::CopyNotes(int firstRow, int lastRow) {
    duplicate.CopyNotes(firstRow, lastRow);
}

void Form1::FunctionBut_Click(int index) {
    musicMouse.FunctionBut_Click(index);
}

void Form1::setText3(const std::string& text) {
    Text3Box->setText(QString::fromStdString(text));
}

void Form1::setText4(const std::string& text) {
    Text4Box->setText(QString::fromStdString(text));
}

void Form1::setText5(const std::string& text) {
    Text5Box->setText(QString::fromStdString(text));
}

void Form1::CutBut_Click() {
    edits.CutBut_Click();
}

void Form1::copyIt() {
    edits.copyIt();
}

void Form1::PasteIntoBut_Click() {
    edits.PasteIntoBut_Click();
}

void Form1::PasteBut_Click() {
    edits.PasteBut_Click();
}

void Form1::Command33_Click() {
    files.Command33_Click();
}

void Form1::Command34_Click() {
    files.Command34_Click();
}

void Form1::RewindBut_Click() {
    sequencer.RewindBut_Click();
}

void Form1::PlayAndStop_Click(int index) {
    program_.runHandler(nullptr, [this, index] { sequencer.PlayAndStop_Click(index); });
}

void Form1::Command32_Click() {
    sounding.Command32_Click();
}

void Form1::Form_Resize() {
    layout.Form_Resize();
}

void Form1::showToolbar(const char* name) {
    program_.showWindow(name);
}

void Form1::unloadToolbar(const char* name) {
    program_.unloadWindow(name);
}

bool Form1::isBeatboxVisible() {
    return !area->Beatbox->isHidden();
}

void Form1::setBeatboxVisible(bool visible) {
    area->Beatbox->setVisible(visible);
}

void Form1::Combo1_Click() {
    sounding.Combo1_Click();
}

void Form1::Combo5_Click() {
    sounding.Combo5_Click();
}

void Form1::Combo2_Click() {
    sounding.Combo2_Click();
}

void Form1::Device_Click() {
    sounding.Device_Click();
}

void Form1::noteActiveToolbar(const char* name) {
    program_.activeToolbar = name;
    program_.group.noteHighest(QLatin1String(name));
}

FrameState& Form1::frames() {
    return program_.frames;
}

void Form1::destroyLater(std::unique_ptr<QWidget> window) {
    program_.destroyLater(std::move(window));
}

void Form1::runHandler(const QWidget& window, const std::function<void()>& handler) {
    program_.runHandler(&window, handler);
}

void Form1::endWithError(const std::string& text) {
    program_.endWithError(text);
}

} // namespace velorin
