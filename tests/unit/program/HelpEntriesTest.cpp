// The help describes every control: every name of a tool tip or a screen reader is in it.
#include "WholeProgram.h"
#include "windows/texts/ControlTable.h"
#include "windows/texts/MenuTable.h"

#include <gtest/gtest.h>

#include <QTabBar>
#include <QTextDocumentFragment>
#include <QToolButton>

using namespace velorin;

namespace {

/// All pages as plain text, with single blanks.
QString wholeHelp() {
    QString text;
    for (const HelpPage& page : helpPages())
        text += QTextDocumentFragment::fromHtml(page.html).toPlainText() + '\n';
    return text.simplified();
}

/// The names of the controls in a window, each once: tool tips, and what a screen reader says.
QStringList namesIn(const QWidget& window) {
    QStringList names;
    for (const QWidget* control : window.findChildren<QWidget*>()) {
        if (qobject_cast<const QTabBar*>(control->parent()) != nullptr)
            continue; // arrows that Qt makes for tabs without room
        if (qobject_cast<const QToolButton*>(control) != nullptr &&
            !control->accessibleName().isEmpty())
            names << control->accessibleName().simplified();
        names << control->toolTip().simplified();
    }
    names.removeDuplicates();
    names.removeAll(QString());
    return names;
}

} // namespace

TEST(HelpEntriesTest, EveryControlOfEveryWindowHasAnEntry) {
    WholeProgram whole;
    const QString help = wholeHelp();
    for (const QWidget* const window : whole.windows())
        for (const QString& control : namesIn(*window))
            EXPECT_TRUE(help.contains(control, Qt::CaseInsensitive))
                << window->objectName().toStdString() << ": " << control.toStdString();
}

TEST(HelpEntriesTest, EveryModeOfTheRightClickHasAnEntry) {
    const QString help = wholeHelp();
    for (int mode = 0; mode < 3; ++mode)
        EXPECT_TRUE(help.contains(rightClickTip(mode))) << rightClickTip(mode);
}

// Except the entry that only closes the menu.
TEST(HelpEntriesTest, EveryEntryOfEveryMenuStandsInTheHelp) {
    const QString help = wholeHelp();
    for (int menu = 1; menu <= 5; ++menu)
        for (const MenuText& entry : menuTexts(menu).entries)
            if (std::string_view(entry.name) != "mnuCancel") {
                EXPECT_TRUE(help.contains(entry.caption, Qt::CaseInsensitive)) << entry.caption;
            }
}
