// The events of the main window: resizing, painting, closing, the mouse on its ground and handles,
// the wheel, and the keys of the main window and the tool windows.
#include "session/Session.h"
#include "windows/editing/EditingToolbar.h"
#include "windows/editing/Form2.h"
#include "windows/frame/ToolFrame.h"
#include "windows/frame/ToolWindows.h"
#include "windows/frame/WindowKeys.h"
#include "windows/help/frminfo.h"
#include "windows/main/Form1.h"
#include "windows/pen/Pen.h"
#include "windows/strip/TitleLabel.h"
#include "windows/texts/ButtonNumbers.h"
#include "windows/texts/DescribedControls.h"
#include "windows/texts/KeyTable.h"

#include <QAbstractButton>
#include <QCloseEvent>
#include <QDropEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QPainter>
#include <QShortcut>
#include <QTimer>
#include <QUrl>
#include <QWheelEvent>
#include <QWindow>

#include <algorithm>
#include <cstdlib>
#include <utility>

namespace velorin {

namespace {

/// The local files of a drag.
std::vector<std::string> pathsOf(const QMimeData& data) {
    std::vector<std::string> paths;
    for (const QUrl& url : data.urls()) {
        if (url.isLocalFile())
            paths.push_back(url.toLocalFile().toStdString());
    }
    return paths;
}

} // namespace

/// The handles follow the edges, whatever resized the window. Those of a maximised window stay as
/// the last call placed them. The window system may restore a size late; `WindowResizable` then
/// keeps the value that `ToggleMaximize` set.
void Form1::resizeEvent(QResizeEvent*) {
    layOutTitle();
    const std::int16_t before = windows_.frames.WindowResizable;
    frame.SkinMainWindow(!isMaximized() || before == 1 ? flagSet : flagClear);
    if (!isMaximized() && std::exchange(restoring_, false))
        windows_.frames.WindowResizable = before;
    layout.Form_Resize();
}

void Form1::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::WindowStateChange) {
        frame.holdHandles();
        showOrHideToolWindows();
    }
}

void Form1::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    windowHandle()->installEventFilter(this); // its expose events show when it is hidden
}

/// Hides the tool windows only when the main window is really hidden. Without a window manager it
/// stays visible, and so do they.
void Form1::showOrHideToolWindows() {
    if (!isMinimized())
        windows_.showWithMain();
    else if (isMinimised())
        windows_.hideWithMain();
}

void Form1::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    frame.paintFrameGround(painter);
}

void Form1::closeEvent(QCloseEvent* event) {
    event->ignore();
    Command3_Click();
}

/// A press on the ground: the left button drags the window. A press that a locked tableau passed on
/// is not on the ground.
///
/// Rule: the right button opens the program's menu only if a right click is set to open menus.
/// Held by shell/frame_states.
void Form1::mousePressEvent(QMouseEvent* event) {
    if (const QWidget* const child = childAt(event->position().toPoint()))
        return sayLocked(*child);
    if (event->button() == Qt::RightButton && studio_.run.RightClickMode == rightClick::menu)
        popupCommand1();
    else
        drag_->DragWindow(event->buttons(), event->globalPosition().toPoint());
}

void Form1::mouseMoveEvent(QMouseEvent* event) {
    drag_->move(*event);
}

void Form1::mouseReleaseEvent(QMouseEvent* event) {
    drag_->release(*event);
}

/// The wheel over the tableaux moves the scroll bars: three lines, or three columns with Shift. A
/// finger on a touchpad never moves quite straight, so the direction of the longer way counts.
void Form1::wheelEvent(QWheelEvent* event) {
    event->accept();
    const QPoint turned = event->angleDelta();
    const bool isAcross = std::abs(turned.x()) > std::abs(turned.y());
    const bool sideways = isAcross || event->modifiers().testFlag(Qt::ShiftModifier);
    QScrollBar* bar = sideways ? area->HScroll1 : area->VScroll1;
    if (!bar->isEnabled())
        return;
    WheelTurn& turn = sideways ? columnsTurned_ : linesTurned_;
    const int steps = turn.steps(3 * (isAcross ? turned.x() : turned.y()));
    if (steps != 0)
        bar->setValue(bar->value() - steps);
}

bool Form1::eventFilter(QObject* watched, QEvent* event) {
    if (watched == windowHandle()) {
        if (event->type() == QEvent::Expose)
            showOrHideToolWindows();
        return false;
    }
    if (watched == area->Beatbox)
        return chooseStripByKey(*event);
    if (event->type() == QEvent::ToolTip)
        return qobject_cast<PictureButton*>(watched) != nullptr &&
               static_cast<QWidget*>(watched)->isEnabled(); // its hint begins with the tip
    if (event->type() == QEvent::Leave &&
        (watched == area->PicX || watched == area->TopBarOverlay)) {
        hints.unload();
        return false;
    }
    const bool isPress = event->type() == QEvent::MouseButtonPress;
    if (!isPress && event->type() != QEvent::MouseButtonRelease)
        return false;
    for (int i = 0; i < frame.Resizer.size(); ++i) {
        if (watched != frame.Resizer[i])
            continue;
        if (isPress)
            Resizer_MouseDown(i);
        else
            Resizer_MouseUp(i);
        return true;
    }
    return false;
}

void Form1::dragEnterEvent(QDragEnterEvent* event) {
    const std::vector<std::string> paths = pathsOf(*event->mimeData());
    if (canDrop && std::any_of(paths.begin(), paths.end(), canDrop))
        event->acceptProposedAction();
}

/// The program from which the files come waits until this returns, so they are opened afterwards.
void Form1::dropEvent(QDropEvent* event) {
    event->acceptProposedAction();
    openDropped(pathsOf(*event->mimeData()), 0);
}

/// Waits until the start is over.
void Form1::openDropped(const std::vector<std::string>& paths, int afterMs) {
    constexpr int waitMs = 50;
    QTimer::singleShot(afterMs, this, [this, paths] {
        if (studio_.run.LoadingMain.isSet())
            openDropped(paths, waitMs);
        else if (onDrop)
            onDrop(paths);
    });
}

/// A held key acts once.
void Form1::addShortcuts(QWidget& window, bool typedToo) {
    const auto add = [&](const Key& key, void (Form1::*press)(const Key&)) {
        if (key.isTyped() && !typedToo)
            return;
        auto* const shortcut = new QShortcut(QKeySequence(QLatin1String(key.keys)), &window);
        shortcut->setAutoRepeat(false);
        connect(shortcut, &QShortcut::activated, this,
                [this, &key, press] { (this->*press)(key); });
    };
    for (const Key& key : mainKeys)
        add(key, &Form1::pressMainKey);
    for (const Key& key : editKeys)
        add(key, &Form1::pressEditKey);
    for (const FileKey& key : fileKeys) {
        auto* const shortcut = new QShortcut(QKeySequence(QLatin1String(key.key.keys)), &window);
        shortcut->setAutoRepeat(false);
        connect(shortcut, &QShortcut::activated, this,
                [this, &key] { runFileCommand(key.command); });
    }
    for (const KeyboardKey& key : keyboardKeys) {
        auto* const shortcut = new QShortcut(QKeySequence(QLatin1String(key.key.keys)), &window);
        shortcut->setAutoRepeat(false);
        connect(shortcut, &QShortcut::activated, this, [this, &key] { runKeyboardCommand(key); });
    }
    for (const HearingKey& key : hearingKeys) {
        auto* const shortcut = new QShortcut(QKeySequence(QLatin1String(key.key.keys)), &window);
        shortcut->setAutoRepeat(false);
        connect(shortcut, &QShortcut::activated, this,
                [this, &key] { runHearingCommand(key.command); });
    }
    for (const HistoryKey& key : historyKeys) {
        auto* const shortcut = new QShortcut(QKeySequence(QLatin1String(key.key.keys)), &window);
        connect(shortcut, &QShortcut::activated, this,
                [this, &window, &key] { pressHistoryKey(window, key.command); });
    }
    add(menuKey, &Form1::openMenuByKey);
    add(helpKey, &Form1::openHelpByKey);
}

/// In Qt's titles "[*]" is the place of a mark; a name that has it doubles it.
void Form1::showTitle(const std::string& file, bool isUnsaved) {
    QString name = QString::fromStdString(file);
    name = name.mid(std::max(name.lastIndexOf('/'), name.lastIndexOf('\\')) + 1);
    if (name.endsWith(QLatin1String(".sng"), Qt::CaseInsensitive))
        name.chop(4);
    if (name.isEmpty() && isUnsaved)
        name = QStringLiteral("Untitled");
    lblTitle->showScore(name, isUnsaved);
    setWindowTitle(TitleLabel::titleOf(name, isUnsaved)
                       .replace(QLatin1String("[*]"), QLatin1String("[*][*]")));
}

void Form1::addKeys(ToolFrame& window) {
    addShortcuts(window, false);
    window.onKey = [this](const QKeyEvent& event) { return pressTypedKey(event); };
}

bool Form1::pressTypedKey(const QKeyEvent& event) {
    const auto isPressed = [&event](const Key& key) {
        return key.isTyped() &&
               QKeySequence(event.keyCombination()) == QKeySequence(QLatin1String(key.keys));
    };
    const auto mainKey = std::find_if(mainKeys.begin(), mainKeys.end(), isPressed);
    const auto editKey = std::find_if(editKeys.begin(), editKeys.end(), isPressed);
    if (mainKey == mainKeys.end() && editKey == editKeys.end())
        return false;
    if (event.isAutoRepeat())
        return true;
    if (mainKey != mainKeys.end())
        pressMainKey(*mainKey);
    else
        pressEditKey(*editKey);
    return true;
}

void Form1::pressMainKey(const Key& key) {
    Cmd2_Click(studio_.run.IsPlaying.isSet() ? key.buttonInPlay : key.button);
}

void Form1::pressEditKey(const Key& key) {
    pressEditButton(key.button);
}

void Form1::runFileCommand(FileCommand command) {
    if (!studio_.run.LoadingMain.isSet() && onFileKey)
        onFileKey(command);
}

void Form1::runKeyboardCommand(const KeyboardKey& key) {
    if (!studio_.run.LoadingMain.isSet() && onKeyboardKey)
        onKeyboardKey(key);
}

void Form1::runHearingCommand(HearingCommand command) {
    if (!studio_.run.LoadingMain.isSet() && onHearingKey)
        onHearingKey(command);
}

/// A text box that has the keyboard takes back its own typing.
void Form1::pressHistoryKey(QWidget& window, HistoryCommand command) {
    auto* const box = qobject_cast<QLineEdit*>(window.focusWidget());
    if (box != nullptr && box->isEnabled() && command != HistoryCommand::show)
        return command == HistoryCommand::undo ? box->undo() : box->redo();
    if (onHistoryKey)
        onHistoryKey(command);
}

/// Opens the menu that the right mouse button opens.
void Form1::openMenuByKey(const Key&) {
    if (studio_.run.LoadingMain.isSet())
        return;
    if (studio_.run.EditMode == editMode::select)
        popupCommand2();
    else
        popupCommand1();
}

void Form1::openHelpByKey(const Key&) {
    if (!studio_.run.LoadingMain.isSet())
        Cmdhelp_Click();
}

/// After the Tab key has reached the strip, Enter or Space selects a percussion row. Otherwise
/// Space plays the song. The pen presses there as a mouse does.
bool Form1::chooseStripByKey(QEvent& event) {
    if (event.type() != QEvent::ShortcutOverride && event.type() != QEvent::KeyPress)
        return false;
    const int key = static_cast<QKeyEvent&>(event).key();
    if ((key != Qt::Key_Space && key != Qt::Key_Return && key != Qt::Key_Enter) ||
        !windows_.focus.isWaiting(area->Beatbox) || percussion.isRowChosen() ||
        (key != Qt::Key_Space && pen->isShown()))
        return false;
    if (event.type() == QEvent::KeyPress)
        windows_.focus.choose(area->Beatbox);
    event.accept();
    return true;
}

void Form1::keyPressEvent(QKeyEvent* event) {
    if (!pressButtonByEnter(*this, *event))
        QWidget::keyPressEvent(event);
}

/// Copy, Cut, both pastes and Pause also work without the toolbar. The other commands need the
/// toolbar's values, so its button is clicked. The mode button shows the toolbar first.
void Form1::pressEditButton(int button) {
    switch (button) {
    case editButton::pause:
        studio_.run.PauseFlag = flagSet;
        return;
    case editButton::copy:
        return session.edits.copyIt();
    case editButton::cut:
        return session.edits.CutBut_Click();
    case editButton::paste:
        return session.edits.PasteBut_Click();
    case editButton::pasteInto:
        return session.edits.PasteIntoBut_Click();
    default:
        break;
    }
    if (button == editButton::mode && !studio_.run.Form2Open.isSet())
        windows_.show(Tool::editing);
    const bool isButton = button >= 1 && button <= editButton::last;
    if (isButton && windows_.window(Tool::editing) != nullptr)
        editing_.form().Cmd2[button]->click();
}

} // namespace velorin
