// The handlers of the main window's toolbar, title, handles and hints.
#include "drawing/CellGrid.h"
#include "platform/Desktop.h"
#include "session/Session.h"
#include "windows/frame/ToolWindows.h"
#include "windows/help/frminfo.h"
#include "windows/main/Form1.h"
#include "windows/strip/StateWatch.h"
#include "windows/texts/ButtonNumbers.h"
#include "windows/texts/ControlTable.h"

#include <QGuiApplication>
#include <QScreen>
#include <QTimer>
#include <QWindow>

#include <array>
#include <utility>

namespace velorin {

namespace {

/// After this time a window manager has carried out a request.
constexpr int windowManagerMs = 200;

constexpr int hintBelow = 44; ///< below the top of a toolbar button, pixels
constexpr int hintBeside = 32;

} // namespace

// Rule: Clear deletes all notes but only the chord marks in view, and makes the percussion strip
// one line high again. Held by shell/main_toolbar.
void Form1::Cmd2_Click(int index) {
    if (studio_.run.LoadingMain.isSet())
        return;
    switch (index) {
    case mainButton::clear:
        desk.setBeatboxHeight(cellPx);
        session.commands.Command4_Click();
        session.commands.Comm2_Click();
        poly.DrawPolyTableau();
        break;
    case mainButton::open:
        windows_.HideToolbars();
        session.files.Command33_Click();
        windows_.ShowToolbars();
        break;
    case mainButton::save:
        windows_.HideToolbars();
        session.files.mSaveAs_Click();
        windows_.ShowToolbars();
        break;
    case mainButton::rightClick:
        menus.Command5_Click();
        break;
    case mainButton::rewind:
        session.sequencer.RewindBut_Click();
        break;
    case mainButton::play:
        session.sequencer.PlayAndStop_Click(0);
        break;
    case mainButton::stop:
        session.sequencer.PlayAndStop_Click(1);
        break;
    case mainButton::stopAll:
        session.sounding.Command32_Click();
        break;
    case mainButton::whatIsShown:
        menus.Command4_Click();
        break;
    case mainButton::editing:
        windows_.show(Tool::editing);
        break;
    case mainButton::recording:
        windows_.show(Tool::recording);
        break;
    case mainButton::tutorial:
        windows_.show(Tool::tutorial);
        break;
    case mainButton::exit:
        Command3_Click();
        break;
    default: // the help button waits for the release
        break;
    }
}

void Form1::Cmd2_MouseDown(int) {
    hints.unload();
    state->beginPress();
}

// Rule: the help button opens its menu at each release of any mouse button, also outside the
// button; the other buttons act on the click. Held by shell/help_button_releases.
void Form1::Cmd2_MouseUp(int index) {
    if (index == mainButton::help && !studio_.run.LoadingMain.isSet())
        menus.Command3_Click();
}

void Form1::Cmd2_MouseMove(int index, int button) {
    if (button == leftButton || Check3->isChecked() || index < 1 || index > mainButton::last)
        return;
    QWidget& control = *toolbMenu->Cmd2[index];
    Getinfo(control, QLatin1String(controlHint(control.objectName().toStdString())), 0, hintBelow);
}

void Form1::PicX_MouseMove(int button) {
    if (button != leftButton && !Check3->isChecked())
        Getinfo(*area->PicX, QLatin1String(controlHint("PicX")), hintBeside, 0);
}

void Form1::TopBar_MouseMove(int button) {
    if (button != leftButton && !Check3->isChecked())
        Getinfo(*area->TopBarOverlay, QLatin1String(controlHint("TopBarOverlay")), hintBeside,
                hintBeside);
}

void Form1::Getinfo(QWidget& control, const QString& text, int offsetX, int offsetY) {
    control.setToolTip({});
    const QPoint corner = control.mapToGlobal(QPoint(0, 0));
    hints.showHint(&control, text.toStdString(), corner + QPoint(offsetX, offsetY));
}

void Form1::Check3_Click() {
    toolbMenu->showRightClickMode(studio_.run.RightClickMode);
}

void Form1::nameMaxRestore(const char* face) {
    imgTitleMaxRestore->setAccessibleName(QString::fromStdString(controlName("Form1", face)));
}

// The window system keeps the rectangle that restoring needs.
//
// Rule: on a minimised window it does not maximise but restores. Held by shell/frame_states.
void Form1::ToggleMaximize() {
    if (isMinimized() &&
        !isMinimised()) // no window manager has hidden it, so only its state says minimised
        setWindowState(windowState() & ~Qt::WindowMinimized);
    if (windowState() != Qt::WindowNoState) {
        const bool wasResizable = windows_.frames.WindowResizable == 1;
        restoring_ = true;
        setWindowState(Qt::WindowNoState);
        if (beforeFilling_.isValid())
            setGeometry(std::exchange(beforeFilling_, QRect()));
        imgTitleMaxRestore->setPicture("title-maximise");
        nameMaxRestore("imgTitleMaxRestore");
        frame.SkinMainWindow(wasResizable ? flagSet : flagClear);
    } else {
        setWindowState(Qt::WindowMaximized);
        imgTitleMaxRestore->setPicture("title-restore");
        nameMaxRestore("imgTitleRestore");
        frame.SkinMainWindow(flagClear);
        QTimer::singleShot(windowManagerMs, this, [this] { fillScreenYourself(); });
    }
}

/// Without a window manager nothing resizes a maximised window. Then the window does it itself and
/// keeps the rectangle for restoring.
void Form1::fillScreenYourself() {
    if (QGuiApplication::platformName() != "xcb" || !isMaximized() || screen() == nullptr)
        return;
    const QRect whole = screen()->availableGeometry();
    if (size() == whole.size())
        return;
    beforeFilling_ = geometry();
    setGeometry(whole);
    // Setting the rectangle made the state normal again.
    setWindowState(Qt::WindowMaximized);
    frame.SkinMainWindow(flagClear);
}

void Form1::imgTitleClose_Click() {
    Command3_Click();
}

void Form1::imgTitleMinimize_Click() {
    setWindowState(windowState() | Qt::WindowMinimized);
}

void Form1::imgTitleMaxRestore_Click() {
    ToggleMaximize();
}

void Form1::imgTitleRestore_Click() {
    setWindowState(Qt::WindowMaximized);
    layout.Form_Resize();
}

void Form1::imgTitleHelp_Click() {
    Cmdhelp_Click();
}

void Form1::Resizer_MouseDown(int) {
    const platform::PointPx pointer = studio_.platform.desktop.GetCursorPos();
    handlePressedAt_ = QPoint(pointer.x, pointer.y);
}

// Rule: a handle changes the window only once, at the release. Held by shell/frame.
void Form1::Resizer_MouseUp(int handle) {
    const platform::PointPx pointer = studio_.platform.desktop.GetCursorPos();
    frame.ResizeByHandle(place, QPoint(pointer.x, pointer.y) - handlePressedAt_, handle);
}

void Form1::Cmdhelp_Click() {
    studio_.platform.desktop.HtmlHelpA(studio_.platform.programFolder + "\\velorin.chm");
}

void Form1::Command3_Click() {
    onExit();
}

// Rule: this clears the flag and stops neither the recording nor the song. Called by its name in
// transcripts only. Held by recording/stopped_by_hand.
void Form1::cmdStop_Click() {
    studio_.run.RecordingFlag = flagClear;
}

// TableauDesk: the toolbar, the word mark and the menus, for the tableaux.

/// Without a window manager a window whose state is minimised stays visible; it is not minimised.
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
    layOutStrip();
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

} // namespace velorin
