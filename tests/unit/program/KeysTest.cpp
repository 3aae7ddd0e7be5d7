// The keys of the table work in every window for which they are listed.
#include "WholeProgram.h"
#include "windows/texts/KeyTable.h"

#include <gmock/gmock.h>

#include <QAbstractButton>
#include <QKeyEvent>
#include <QLineEdit>
#include <QShortcut>

using namespace velorin;
using testing::ElementsAre;

namespace {

QShortcut* shortcutIn(const QWidget& window, const char* keys) {
    for (QShortcut* shortcut : window.findChildren<QShortcut*>())
        if (shortcut->key() == QKeySequence(QLatin1String(keys)))
            return shortcut;
    return nullptr;
}

/// The last control of a window in the Tab order.
std::string lastStopOf(const QWidget& window) {
    const QWidget* stop = window.previousInFocusChain();
    while (stop != &window && stop->focusPolicy() == Qt::NoFocus)
        stop = stop->previousInFocusChain();
    return stop->objectName().toStdString();
}

struct KeysTest : testing::Test {
    QWidget& window(const char* name) {
        QWidget* const loaded = whole.program.window(QLatin1String(name), true);
        loaded->show();
        return *loaded;
    }

    QWidget& control(const char* window_, const char* name) {
        return *window(window_).findChild<QWidget*>(name);
    }

    /// Sends a key like the window system: to the control with the focus.
    void press(QWidget& control, Qt::Key key, const QString& text = {}) {
        control.setFocus();
        for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
            QKeyEvent event(type, key, Qt::NoModifier, text);
            QApplication::sendEvent(&control, &event);
        }
    }

    WholeProgram whole;
};

} // namespace

TEST_F(KeysTest, EveryKeyOfTheTableIsAKeyOfTheMainWindow) {
    std::vector<Key> all(mainKeys.begin(), mainKeys.end());
    all.insert(all.end(), editKeys.begin(), editKeys.end());
    for (const FileKey& key : fileKeys)
        all.push_back(key.key);
    for (const HistoryKey& key : historyKeys)
        all.push_back(key.key);
    for (const KeyboardKey& key : keyboardKeys)
        all.push_back(key.key);
    for (const HearingKey& key : hearingKeys)
        all.push_back(key.key);
    all.insert(all.end(), {nextWindowKey, previousWindowKey, arrangeKey, menuKey, helpKey});
    for (const Key& key : all)
        EXPECT_NE(shortcutIn(window("Form1"), key.keys), nullptr) << key.keys;
    EXPECT_EQ(window("Form1").findChildren<QShortcut*>().size(),
              static_cast<qsizetype>(all.size()));
}

TEST_F(KeysTest, TheWindowKeyReachesEveryWindow) {
    QWidget* const first = &window("Form1");
    std::vector<std::string> reached;
    for (const char* const name : {"Form3", "Form2", "Record", "Wiz", "History", "Export"})
        window(name);
    QWidget* active = first;
    do {
        shortcutIn(*active, nextWindowKey.keys)->activated();
        QCoreApplication::processEvents();
        active = QApplication::activeWindow();
        ASSERT_NE(active, nullptr);
        reached.push_back(active->objectName().toStdString());
    } while (active != first && reached.size() < 20);
    EXPECT_THAT(reached,
                ElementsAre("Form3", "Form2", "Record", "Wiz", "History", "Export", "Form1"));
}

TEST_F(KeysTest, ToolWindowsHaveTheSameKeysButThoseOfWriting) {
    for (const char* const name : {"Form2", "Form3", "Record", "Wiz", "History", "Export"}) {
        for (const HistoryKey& key : historyKeys)
            EXPECT_NE(shortcutIn(window(name), key.key.keys), nullptr) << name << key.key.keys;
        for (const std::span<const Key> keys :
             {std::span<const Key>(mainKeys), std::span<const Key>(editKeys)})
            for (const Key& key : keys)
                EXPECT_EQ(shortcutIn(window(name), key.keys) == nullptr, key.isTyped())
                    << name << " " << key.keys;
    }
}

TEST_F(KeysTest, KeyOfWritingThatNoControlTakesIsTheMainWindows) {
    press(window("Wiz"), Qt::Key_P, "p");
    EXPECT_EQ(whole.program.studio().run.PauseFlag, flagSet);
}

TEST_F(KeysTest, TextBoxTakesTheKeysOfWriting) {
    auto& volume = static_cast<QLineEdit&>(control("Form3", "vol(0)"));
    press(volume, Qt::Key_P, "p");
    press(volume, Qt::Key_Space, " ");
    EXPECT_EQ(volume.text(), "127p ");
    EXPECT_EQ(whole.program.studio().run.PauseFlag, flagClear);
}

TEST_F(KeysTest, EnterPressesTheButtonThatHasTheFrame) {
    window("Form1");
    press(control("Form1", "Cmd2(4)"), Qt::Key_Return);
    EXPECT_THAT(whole.host.menus.log, ElementsAre("mnupopup5;*Erase on Right-click;Menu on "
                                                  "Right-Click;Set Polynotes on Right-Click"));
    press(control("Form2", "Cmd2(11)"), Qt::Key_Enter);
    EXPECT_EQ(whole.program.studio().run.EditMode, 2);
}

TEST_F(KeysTest, EnterLeavesABoxAlone) {
    auto& box = static_cast<QAbstractButton&>(control("Form3", "Chkstrum(0)"));
    press(box, Qt::Key_Return);
    EXPECT_FALSE(box.isChecked());
    press(box, Qt::Key_Space, " ");
    EXPECT_TRUE(box.isChecked());
}

TEST_F(KeysTest, MenuKeyOpensTheMenuOfTheMode) {
    QShortcut* const menu = shortcutIn(window("Form1"), menuKey.keys);
    Q_EMIT menu->activated();
    whole.program.studio().run.EditMode = 2;
    Q_EMIT menu->activated();
    ASSERT_EQ(whole.host.menus.log.size(), 2U);
    EXPECT_TRUE(whole.host.menus.log[0].starts_with("mnupopup2;Clear All;File"));
    EXPECT_TRUE(whole.host.menus.log[1].starts_with("mnupopup;Clear All;-;Cut selection"));
}

TEST_F(KeysTest, HelpKeyOpensTheHelpFromEveryWindow) {
    for (const char* const name : {"Form1", "Form2", "Form3", "Record", "Wiz"}) {
        QShortcut* const keys = shortcutIn(window(name), helpKey.keys);
        ASSERT_NE(keys, nullptr) << name;
        whole.host.desktop.programs.clear();
        Q_EMIT keys->activated();
        EXPECT_EQ(whole.host.desktop.programs.size(), 1U) << name;
    }
}

TEST_F(KeysTest, CloseButtonOfAToolWindowComesLastWithTab) {
    for (const char* const name : {"Form2", "Form3", "Record", "Wiz"})
        EXPECT_EQ(lastStopOf(window(name)), "imgTitleClose") << name;
}
