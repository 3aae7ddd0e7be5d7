// What the buttons of the main window do: the toolbar, the title, the handles and the hints.
#include "controls/ControlTable.h"
#include "platform/Desktop.h"
#include "program/Form1.h"
#include "program/Program.h"
#include "score/Studio.h"
#include "tableaux/CellGrid.h"

#include <QGuiApplication>
#include <QScreen>
#include <QTimer>

#include <array>
#include <utility>

namespace velorin {

namespace {

struct OpenWindow {
    const char* name;
    Flag Run::*isOpen;
};
constexpr std::array<OpenWindow, 4> toolWindows{{{"Form2", &Run::Form2Open},
                                                 {"Form3", &Run::Form3Open},
                                                 {"Record", &Run::RecordToolbarOpen},
                                                 {"Wiz", &Run::WizOpen}}};

/// By then a window manager has done what it was asked.
constexpr int windowManagerMs = 200;

constexpr int hintBelow = 44; ///< of a toolbar button's top, pixels
constexpr int hintBeside = 32;

} // namespace

void Form1::Cmd2_Click(int index) {
    if (studio_.run.LoadingMain != flagClear)
        return;
    switch (index) {
    case 1:
        setBeatboxHeight(cellPx);
        commands.Command4_Click();
        commands.Comm2_Click();
        DrawPolyTableau();
        break;
    case 2:
        HideToolbars();
        files.Command33_Click();
        ShowToolbars();
        break;
    case 3:
        HideToolbars();
        files.mSaveAs_Click();
        ShowToolbars();
        break;
    case 4:
        menus.Command5_Click();
        break;
    case 5:
        RewindBut_Click();
        break;
    case 6:
        PlayAndStop_Click(0);
        break;
    case 7:
        PlayAndStop_Click(1);
        break;
    case 8:
        Command32_Click();
        break;
    case 9:
        menus.Command4_Click();
        break;
    case 10:
        showToolbar("Form2");
        break;
    case 11:
        showToolbar("Record");
        break;
    case 12:
        showToolbar("Wiz");
        break;
    case 14:
        Command3_Click();
        break;
    default:
        break;
    }
}

void Form1::Cmd2_MouseDown(int) {
    program_.hints.unload();
}

void Form1::Cmd2_MouseUp(int index) {
    constexpr int helpButton = 13; // the one that waits for the release
    if (index == helpButton && studio_.run.LoadingMain == flagClear)
        menus.Command3_Click();
}

void Form1::Cmd2_MouseMove(int index, int button) {
    if (button == leftButton || Check3->isChecked() || index < 1 || index > toolbarButtons)
        return;
    QWidget& control = *toolbMenu->Cmd2[static_cast<std::size_t>(index)];
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
    program_.hints.showHint(&control, text.toStdString(), corner + QPoint(offsetX, offsetY));
}

void Form1::Check3_Click() {
    toolbMenu->showRightClickMode(studio_.run.RightClickMode);
}

void Form1::HideToolbars() {
    for (const OpenWindow& window : toolWindows)
        if (studio_.run.*window.isOpen != flagClear)
            if (QWidget* shown = program_.window(window.name, false))
                shown->hide();
}

/// The one that lay above the others comes last.
void Form1::ShowToolbars() {
    const QStringList order = program_.group.order();
    for (const QString& name : order)
        for (const OpenWindow& window : toolWindows)
            if (name == QLatin1String(window.name) && studio_.run.*window.isOpen != flagClear)
                program_.showWindow(name);
}

void Form1::nameMaxRestore(const char* face) {
    imgTitleMaxRestore->setAccessibleName(QString::fromStdString(controlName("Form1", face)));
}

// No rectangle is kept here: restoring gives back what the window system kept.
void Form1::ToggleMaximize() {
    if (isMinimized() && !isMinimised()) // nobody has taken it away, and it only counts as that
        setWindowState(windowState() & ~Qt::WindowMinimized);
    if (windowState() != Qt::WindowNoState) {
        const bool wasResizable = program_.frames.WindowResizable == 1;
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

/// On a bare X server nobody resizes a maximised window, so that it does it itself and keeps the
/// rectangle to go back to.
void Form1::fillScreenYourself() {
    if (QGuiApplication::platformName() != "xcb" || !isMaximized() || screen() == nullptr)
        return;
    const QRect whole = screen()->availableGeometry();
    if (size() == whole.size())
        return;
    beforeFilling_ = geometry();
    setGeometry(whole);
    // A window that is given a rectangle counts as a normal one again.
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
    Form_Resize();
}

void Form1::imgTitleHelp_Click() {
    Cmdhelp_Click();
}

void Form1::Resizer_MouseDown(int) {
    const platform::PointPx pointer = studio_.platform.desktop.GetCursorPos();
    handlePressedAt_ = QPoint(pointer.x, pointer.y);
}

// The window changes once, at the release.
void Form1::Resizer_MouseUp(int handle) {
    const platform::PointPx pointer = studio_.platform.desktop.GetCursorPos();
    frame.ResizeByHandle(place, QPoint(pointer.x, pointer.y) - handlePressedAt_, handle);
}

void Form1::Cmdhelp_Click() {
    studio_.platform.desktop.HtmlHelpA(studio_.platform.programFolder + "\\velorin.chm");
}

void Form1::Command3_Click() {
    program_.Command3_Click();
}

void Form1::TrackSel_Click(int row) {
    if (row < 0 || row >= scoreRows)
        return;
    studio_.score.CurrentRow = static_cast<std::int16_t>(row);
    sounding.SoundRow = studio_.score.CurrentRow;
    studio_.view.HoverRow = static_cast<std::int16_t>(row + 1);
    studio_.view.DrawColor = studio_.view.ChannelColor[static_cast<std::size_t>(row)];
    if (isMusicRow(row))
        DrawNoteArray();
    else
        DrawBeatArray();
    sounding.Command9_Click();
}

} // namespace velorin
