// The keys of the main window.
#include "program/Form1.h"
#include "program/Program.h"
#include "score/Studio.h"
#include "shell/Shortcuts.h"

#include <QAbstractButton>
#include <QShortcut>

namespace velorin {

void Form1::makeShortcuts() {
    for (const Shortcut& shortcut : shortcuts) {
        auto* keys = new QShortcut(QKeySequence(QLatin1String(shortcut.keys)), this);
        keys->setAutoRepeat(false);
        connect(keys, &QShortcut::activated, this, [this, &shortcut] {
            Cmd2_Click(studio_.run.IsPlaying != flagClear ? shortcut.buttonInPlay
                                                          : shortcut.button);
        });
    }
    for (const Shortcut& shortcut : editShortcuts) {
        auto* keys = new QShortcut(QKeySequence(QLatin1String(shortcut.keys)), this);
        keys->setAutoRepeat(false);
        connect(keys, &QShortcut::activated, this,
                [this, &shortcut] { pressEditButton(shortcut.button); });
    }
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
    const QString name = QStringLiteral("Cmd2(%1)").arg(button);
    auto* pressed = toolbar != nullptr ? toolbar->findChild<QAbstractButton*>(name) : nullptr;
    if (pressed != nullptr)
        pressed->click();
}

} // namespace velorin
