// The keys of the main window and of the tool windows.
#include "controls/DescribedControls.h"
#include "controls/KeyTable.h"
#include "program/Form1.h"
#include "program/Program.h"
#include "score/Studio.h"
#include "shell/ToolFrame.h"
#include "shell/WindowKeys.h"

#include <QAbstractButton>
#include <QKeyEvent>
#include <QShortcut>

#include <algorithm>

namespace velorin {

/// Each is pressed once, however long it is held.
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
    add(menuKey, &Form1::openMenuByKey);
    add(helpKey, &Form1::openHelpByKey);
}

void Form1::addKeys(ToolFrame& window) {
    program_.noteMade(window);
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
    Cmd2_Click(studio_.run.IsPlaying != flagClear ? key.buttonInPlay : key.button);
}

void Form1::pressEditKey(const Key& key) {
    pressEditButton(key.button);
}

/// The menus of the right mouse button.
void Form1::openMenuByKey(const Key&) {
    if (studio_.run.LoadingMain != flagClear)
        return;
    if (studio_.run.EditMode == editMode::select)
        popupCommand2();
    else
        popupCommand1();
}

void Form1::openHelpByKey(const Key&) {
    if (studio_.run.LoadingMain == flagClear)
        Cmdhelp_Click();
}

/// Enter or Space on the strip that the Tab key has come to chooses a percussion row, where a press
/// of Space would play otherwise.
bool Form1::chooseStripByKey(QEvent& event) {
    if (event.type() != QEvent::ShortcutOverride && event.type() != QEvent::KeyPress)
        return false;
    const int key = static_cast<QKeyEvent&>(event).key();
    if ((key != Qt::Key_Space && key != Qt::Key_Return && key != Qt::Key_Enter) ||
        !program_.focus.isWaiting(area->Beatbox) || percussion.isRowChosen())
        return false;
    if (event.type() == QEvent::KeyPress)
        program_.focus.choose(area->Beatbox);
    event.accept();
    return true;
}

void Form1::keyPressEvent(QKeyEvent* event) {
    if (!pressButtonByEnter(*this, *event))
        QWidget::keyPressEvent(event);
}

/// What the editing menu offers works without the toolbar too. The mode and Duplicate's numbers are
/// the toolbar's own, so that its buttons are pressed; the mode shows the toolbar first.
void Form1::pressEditButton(int button) {
    switch (button) {
    case 6:
        studio_.run.PauseFlag = flagSet;
        return;
    case 12:
        return copyIt();
    case 13:
        return CutBut_Click();
    case 14:
        return PasteBut_Click();
    case 15:
        return PasteIntoBut_Click();
    default:
        break;
    }
    constexpr int modeButton = 11;
    if (button == modeButton && studio_.run.Form2Open == flagClear)
        showToolbar("Form2");
    const QWidget* toolbar = program_.window("Form2", false);
    const QString name = elementName("Cmd2", button);
    auto* pressed = toolbar != nullptr ? toolbar->findChild<QAbstractButton*>(name) : nullptr;
    if (pressed != nullptr)
        pressed->click();
}

} // namespace velorin
