// The tables of controls, keys and menus match the windows.
#include "windows/texts/ControlTable.h"
#include "WholeProgram.h"
#include "windows/main/Frmmenu.h"
#include "windows/texts/KeyTable.h"
#include "windows/texts/MenuTable.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QRegularExpression>
#include <QTabBar>

using namespace velorin;

namespace {

/// Pictures share a widget with their button, and so do the two faces of one button.
bool isPicture(std::string_view control) {
    return control.starts_with("ImgPic") || control == "imgTitleRestore";
}

/// The control of a row; of an array its first element.
const QWidget* controlOf(const QWidget& window, std::string_view name) {
    const QString exact = QString::fromLatin1(name.data(), static_cast<qsizetype>(name.size()));
    if (!exact.endsWith("()"))
        return window.findChild<QWidget*>(exact);
    return window.findChild<QWidget*>(exact.chopped(1) + "0)");
}

/// The keys as the man page must list them.
std::string keysForManPage() {
    std::string text;
    for (const KeySection& section : keySections()) {
        text += std::string(".SS ") + section.heading + '\n';
        for (const Key& key : section.keys)
            text += std::string(".TP\n.B ") + key.keys + '\n' + key.meaning + '\n';
    }
    return text;
}

} // namespace

TEST(ControlTableTest, EveryRowOfTheTableIsAControlOfItsWindow) {
    WholeProgram whole;
    ASSERT_TRUE(whole.isStarted);
    const auto windows = whole.windows();
    ASSERT_EQ(windows.size(), windowTexts().size());
    for (std::size_t i = 0; i < windows.size(); ++i) {
        const WindowTexts& texts = windowTexts()[i];
        ASSERT_EQ(windows[i]->objectName(), texts.window);
        for (const ControlText& row : texts.controls) {
            if (!isPicture(row.control)) {
                EXPECT_NE(controlOf(*windows[i], row.control), nullptr)
                    << texts.window << "." << row.control;
            }
        }
    }
}

TEST(ControlTableTest, EveryToolTipOfEveryWindowIsThatOfTheTable) {
    WholeProgram whole;
    for (const QWidget* const window : whole.windows()) {
        for (const QWidget* const control : window->findChildren<QWidget*>()) {
            if (control->window() != window)
                continue; // an open list has rows of its own
            const std::string expected =
                controlTip(window->objectName().toStdString(), control->objectName().toStdString());
            EXPECT_EQ(control->toolTip().toStdString(), expected)
                << window->objectName().toStdString() << "." << control->objectName().toStdString();
        }
    }
}

TEST(ControlTableTest, PictureOfTheEditingToolbarsPlayButtonHasATipOfItsOwn) {
    WholeProgram whole;
    QWidget* const editing = whole.program.window("Form2", true);
    const auto pictureTip = [editing](const char* button) {
        return editing->findChild<QWidget*>(button)->property("pictureTip").toString();
    };
    EXPECT_EQ(pictureTip("Cmd2(4)"), "Play score");
    EXPECT_EQ(pictureTip("Cmd2(5)"), "Play Selection");
}

TEST(ControlTableTest, ElementOfAnArrayIsNamedAfterItsRow) {
    EXPECT_EQ(controlName("Form3", "TrackHide(0)"), "Hide Channel 1");
    EXPECT_EQ(controlName("Form3", "TrackHide(9)"), "Hide Rythm Channel 4");
    EXPECT_EQ(controlTip("Form3", "TrackHide(12)"), "Hide this channel");
    EXPECT_EQ(controlName("Form1", "Label8(2)"), "Ch 3 Polyphonics");
    EXPECT_EQ(controlName("Form3", "nothing"), "");
    EXPECT_EQ(controlTip("nothing", "Cmd2(1)"), "");
}

TEST(ControlTableTest, EveryButtonHasAHintAndTheirLinesEndInCarriageReturnAndLineFeed) {
    for (int index = 1; index <= 14; ++index) {
        EXPECT_STRNE(controlHint("Cmd2(" + std::to_string(index) + ")"), "") << index;
    }
    EXPECT_STREQ(controlHint("Cmd2(0)"), "");
    EXPECT_STREQ(controlHint("Cmd2(15)"), "");
    EXPECT_STREQ(controlHint("Cmd2(5)"),
                 "Rewinds the staff to the beginning of the composition. If the "
                 "staff has scrolled beyond the first visible section, \r\n"
                 "it scrolls all the way back to Note 1.");
}

TEST(ControlTableTest, EveryRightClickModeHasItsTip) {
    EXPECT_STREQ(rightClickTip(0), "Erase note on right-click");
    EXPECT_STREQ(rightClickTip(1), "Menu on right-click");
    EXPECT_STREQ(rightClickTip(2), "Set Polynotes on right-click");
    EXPECT_STREQ(rightClickTip(3), "");
}

TEST(ControlTableTest, EveryEntryOfAMenuDoesSomethingButCancel) {
    for (int menu = 1; menu <= 5; ++menu)
        for (const MenuText& entry : menuTexts(menu).entries) {
            const bool isQuiet = entry.isSeparator() || std::string_view(entry.name) == "mnuCancel";
            EXPECT_EQ(Frmmenu::hasAction(entry.name), !isQuiet) << entry.name;
        }
}

TEST(ControlTableTest, KeysAreAnnouncedWithTheirButtons) {
    WholeProgram whole;
    EXPECT_EQ(keysOf("Form1", "Cmd2(3)"), "Ctrl+S");
    EXPECT_EQ(keysOf("Form1", "Cmd2(7)"), "Space");
    EXPECT_EQ(keysOf("Form2", "Cmd2(3)"), "");
    EXPECT_EQ(keysOf("Form2", "Cmd2(17)"), ""); // Duplicate cuts the song: by its button alone
    const auto windows = whole.windows();
    const auto description = [](const QWidget* window, const char* button) {
        return window->findChild<QWidget*>(button)->accessibleDescription();
    };
    EXPECT_EQ(description(windows[0], "Cmd2(3)"),
              "Save the current composition as a SNG or MID file. Keys: Ctrl+S");
    EXPECT_EQ(description(windows[1], "Cmd2(12)"), "Keys: Ctrl+C");
}

TEST(ControlTableTest, HelpListsTheKeysOfTheTable) {
    WholeProgram whole;
    whole.help.openFirstPage();
    whole.help.openPage("keys.html");
    const QString shown = whole.help.browser->toPlainText();
    for (const KeySection& section : keySections()) {
        EXPECT_TRUE(shown.contains(section.heading)) << section.heading;
        for (const Key& key : section.keys) {
            const QRegularExpression row(QRegularExpression::escape(key.keys) + "\\s+" +
                                         QRegularExpression::escape(key.meaning));
            EXPECT_TRUE(row.match(shown).hasMatch()) << key.keys << ": " << key.meaning;
        }
    }
}

TEST(ControlTableTest, EntriesOfTheHelpNameTheKeysOfTheirButtons) {
    const HelpBook book(helpPages());
    for (const HelpPage& page : book.pages())
        EXPECT_FALSE(page.html.contains("<!-- keys")) << page.file.toStdString();
    EXPECT_TRUE(book.page("main-window.html")->html.contains("Keys: Ctrl+S."));
    EXPECT_TRUE(book.page("editing-toolbar.html")->html.contains("Keys: Ctrl+Shift+V."));
}

// The man page is a plain file. When a key changes, copy the text that the test expects between the
// two marks of the page.
TEST(ControlTableTest, ManPageListsTheKeysOfTheTable) {
    QFile page(VELORIN_MAN_PAGE);
    if (!page.open(QIODevice::ReadOnly))
        GTEST_SKIP() << "there is no man page";
    const std::string text = page.readAll().toStdString();
    const std::string begin = ".\\\" begin of the keys\n";
    const std::size_t from = text.find(begin);
    const std::size_t to = text.find(".\\\" end of the keys\n");
    ASSERT_NE(from, std::string::npos);
    ASSERT_NE(to, std::string::npos);
    const std::size_t first = from + begin.size();
    EXPECT_EQ(text.substr(first, to - first), keysForManPage()) << keysForManPage();
}
