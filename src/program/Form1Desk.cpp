// What the main window does for the tableaux, the sequencer and the block edits: each a line or two
// to whoever does it.
#include "program/Form1.h"
#include "program/Program.h"
#include "score/Studio.h"

#include <QGuiApplication>
#include <QWindow>

namespace velorin {

void Form1::DrawNoteArray() {
    music.DrawNoteArray();
}

void Form1::DrawBeatArray() {
    percussion.DrawBeatArray();
}

void Form1::DrawPolyTableau() {
    poly.DrawPolyTableau();
}

void Form1::focusMusicBox() {
    program_.focus.give(area->MusicBox);
}

void Form1::focusBeatbox() {
    program_.focus.give(area->Beatbox);
}

void Form1::setBeatboxHeight(int heightPx) {
    PictureBox* box = area->Beatbox;
    box->place(box->x(), box->y(), box->width(), heightPx);
}

int Form1::HScroll1Min() {
    return area->HScroll1->minimum();
}

void Form1::setHScroll1(int value) {
    QScrollBar* bar = area->HScroll1;
    if (value >= bar->minimum() && value <= bar->maximum())
        bar->setValue(value);
}

void Form1::setMainCombo1(int index) {
    if (index >= -1 && index < Combo1->count())
        Combo1->setCurrentIndex(index);
}

void Form1::enableMainTrackSel(int row, bool enabled) {
    TrackSel.at(static_cast<std::size_t>(row))->setEnabled(enabled);
}

void Form1::setMainTrackSel(int row, bool selected) {
    TrackSel.at(static_cast<std::size_t>(row))->setChecked(selected);
}

void Form1::ChangeInstrument(int instrument, int row) {
    sounding.ChangeInstrument(instrument, row);
}

void Form1::leaveTopMost() {
    for (const char* name : {"Record", "Wiz"})
        if (QWidget* window = program_.window(name, false))
            SetTopMost(*window, false);
}

void Form1::returnToTopMost() {
    for (const char* name : {"Record", "Wiz"})
        if (QWidget* window = program_.window(name, false))
            SetTopMost(*window, true);
}

void Form1::clearMusicBox() {
    area->MusicBox->picture.Cls();
}

unsigned Form1::musicDraws() {
    return music.draws();
}

void Form1::GetColumn(int offset) {
    music.GetColumn(offset);
}

void Form1::PutColumn(int offset) {
    music.PutColumn(offset);
}

void Form1::drawPlayMarker(int offset) {
    music.drawPlayMarker(offset);
}

void Form1::enableTableaux(bool enabled) {
    area->Picture11->setEnabled(enabled);
    for (QWidget* locked :
         {static_cast<QWidget*>(area->MusicBox), static_cast<QWidget*>(area->Beatbox),
          static_cast<QWidget*>(area->HScroll1), static_cast<QWidget*>(area->VScroll1)})
        program_.focus.enable(*locked, enabled);
}

void Form1::enableWizard(bool enabled) {
    if (QWidget* wizard = program_.window("Wiz", false))
        program_.focus.enable(*wizard, enabled);
}

void Form1::enableToolbars() {
    for (const char* name : {"Form2", "Form3", "Record"})
        if (QWidget* window = program_.window(name, false))
            window->setEnabled(true);
}

std::string Form1::Instxt() {
    return InstxtBox->text().toStdString();
}

void Form1::setInstxt(const std::string& text) {
    InstxtBox->setText(QString::fromStdString(text));
}

/// A window that counts as minimised stays where it is if no window manager takes it away.
bool Form1::isMinimised() {
    const QWindow* const handle = windowHandle();
    const bool mayStay = QGuiApplication::platformName() == "xcb" && handle != nullptr;
    return isMinimized() && !(mayStay && handle->isExposed());
}

int Form1::innerWidth() {
    return width();
}

int Form1::innerHeight() {
    return height();
}

void Form1::placeToolbMenu(int left, int top, int widthPx) {
    if (widthPx >= 0)
        toolbMenu->setGeometry(left, top, widthPx, toolbMenu->height());
}

int Form1::toolbMenuHeight() {
    return toolbMenu->height();
}

void Form1::setPicture2Left(int left) {
    Picture2->move(left, Picture2->y());
    // In a narrow window the buttons of the toolbar need its place.
    constexpr int rightOfButtons = 26 + 550 + 36;
    Picture2->setVisible(left > rightOfButtons);
}

int Form1::picture2Width() {
    return Picture2->width();
}

void Form1::popupCommand1() {
    menus.Command1_Click();
}

void Form1::popupCommand2() {
    menus.Command2_Click();
}

std::string Form1::Combo1Entry(int index) {
    return Combo1->itemText(index).toStdString();
}

std::string Form1::Combo5Entry(int index) {
    return Combo5->itemText(index).toStdString();
}

std::string Form1::Text3() {
    return Text3Box->text().toStdString();
}

std::string Form1::Text4() {
    return Text4Box->text().toStdString();
}

std::string Form1::Text5() {
    return Text5Box->text().toStdString();
}

std::string Form1::Form2Text1() {
    const QWidget* toolbar = program_.window("Form2", true);
    const auto* box = toolbar != nullptr ? toolbar->findChild<QLineEdit*>("Text1") : nullptr;
    return box != nullptr ? box->text().toStdString() : "1";
}

void Form1::showHint(const std::string& line) {
    program_.hints.showHint(this, line, mapToGlobal(QPoint(60, 80)));
}

} // namespace velorin
