// The help tells of every control: whatever a tool tip or a screen reader names stands in it.
#include "program/Form1.h"
#include "program/Program.h"
#include "resources/HelpPages.h"
#include "resources/Look.h"
#include "shell/Menus.h"
#include "support/ScriptedPlatform.h"

#include <gtest/gtest.h>

#include <QApplication>
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
            continue; // arrows that Qt keeps for tabs without room
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
    applyLook(*qApp);
    scripted::ScriptedPlatform host;
    Program program(host.platform);
    ASSERT_TRUE(program.start());
    const QString help = wholeHelp();
    for (const char* const name : {"Form1", "Form2", "Form3", "Record", "Wiz"}) {
        const QWidget* const window = program.window(QString::fromLatin1(name), true);
        if (window == nullptr)
            continue; // a window that is not built has no controls
        for (const QString& control : namesIn(*window))
            EXPECT_TRUE(help.contains(control, Qt::CaseInsensitive))
                << name << ": " << control.toStdString();
    }
    program.Command3_Click();
}
