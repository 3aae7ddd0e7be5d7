// The help: its links, its search, its keys, and its window.
#include "windows/help/HelpHitPainter.h"
#include "windows/help/HelpWindow.h"

#include <gtest/gtest.h>

#include <QListWidget>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTest>
#include <QWindow>

#include <algorithm>

using namespace velorin;

namespace {

const HelpBook& book() {
    static const HelpBook whole(helpPages());
    return whole;
}

QStringList captured(const QString& html, const char* pattern) {
    QStringList found;
    for (auto match = QRegularExpression(pattern).globalMatch(html); match.hasNext();)
        found << match.next().captured(1);
    return found;
}

bool hits(const char* text, const char* file) {
    const auto found = book().search(QString::fromLatin1(text));
    return std::any_of(found.begin(), found.end(),
                       [file](const HelpHit& hit) { return hit.file == file; });
}

} // namespace

TEST(HelpTest, EveryPageIsThereAndHasATitle) {
    EXPECT_EQ(book().pages().size(), 19U);
    for (const HelpPage& page : book().pages()) {
        EXPECT_FALSE(page.title.isEmpty()) << page.file.toStdString();
        EXPECT_TRUE(page.html.contains("<h1>" + page.title + "</h1>")) << page.file.toStdString();
    }
}

TEST(HelpTest, EveryLinkLeadsToAPlaceInTheHelp) {
    for (const HelpPage& page : book().pages())
        for (const QString& link : captured(page.html, "href=\"([^\"]*)\"")) {
            const QStringList parts = link.split('#');
            const HelpPage* const target = parts[0].isEmpty() ? &page : book().page(parts[0]);
            ASSERT_NE(target, nullptr) << page.file.toStdString() << ": " << link.toStdString();
            if (parts.size() > 1) {
                EXPECT_TRUE(target->html.contains("<a name=\"" + parts[1] + "\">"))
                    << page.file.toStdString() << ": " << link.toStdString();
            }
        }
}

TEST(HelpTest, EveryPageCanBeReachedFromTheFirst) {
    const QStringList links = captured(book().pages().front().html, "href=\"([^\"#]*)");
    for (std::size_t i = 1; i < book().pages().size(); ++i)
        EXPECT_TRUE(links.contains(book().pages()[i].file)) << book().pages()[i].file.toStdString();
}

TEST(HelpTest, SearchFindsPagesThatHaveAllWords) {
    EXPECT_TRUE(hits("soundfont", "no-sound.html"));
    EXPECT_TRUE(hits("STRUMMING", "chords.html"));
    EXPECT_TRUE(hits("paste  marker", "editing.html"));
    EXPECT_FALSE(hits("paste soundfont", "editing.html"));
    EXPECT_TRUE(book().search("  ").empty());
    EXPECT_TRUE(book().search("qwertz").empty());
}

TEST(HelpTest, LineOfAHitHasWholeWords) {
    const HelpBook small(
        {{"a.html", "Title",
          "<h1>Title</h1><p>One two three four five six seven eight nine ten eleven "
          "twelve thirteen fourteen unbreakable fifteen sixteen seventeen eighteen "
          "nineteen twenty twentyone twentytwo twentythree</p>"},
         {"b.html", "Other", "<h1>Other</h1><p>Short and unbreakable.</p>"}});
    const auto found = small.search("BREAK");
    ASSERT_EQ(found.size(), 2U);
    // At most 60 letters before the letters found and 60 after them.
    EXPECT_EQ(found[0].line,
              "...six seven eight nine ten eleven twelve thirteen fourteen unbreakable "
              "fifteen sixteen seventeen eighteen nineteen twenty...");
    EXPECT_EQ(found[1].line, "Short and unbreakable.");
}

TEST(HelpTest, TitleOfAHitIsBold) {
    // The same word as a title and as a line: bold strokes cover more.
    QListWidget list;
    list.setStyleSheet("QListWidget { background: #000000; }");
    list.setItemDelegate(new HelpHitPainter(&list));
    list.resize(200, 100);
    list.addItem("Recording\nRecording");
    list.show();
    const QImage shown = list.viewport()->grab().toImage();
    const QRect row = list.visualRect(list.model()->index(0, 0));
    const auto inkOf = [&shown, &row](int top, int end) {
        int ink = 0;
        for (int y = top; y < end; ++y)
            for (int x = row.left(); x < row.right(); ++x)
                ink += shown.pixelColor(x, y).lightness();
        return ink;
    };
    const int middle = row.top() + row.height() / 2;
    EXPECT_GT(inkOf(middle, row.bottom()), 0);
    EXPECT_GT(inkOf(row.top(), middle), inkOf(middle, row.bottom()) * 11 / 10);
}

TEST(HelpTest, PageThatHasTheWordInItsTitleComesFirst) {
    ASSERT_FALSE(book().search("recording toolbar").empty());
    EXPECT_EQ(book().search("recording toolbar").front().file, "recording-toolbar.html");
    EXPECT_EQ(book().search("keys").front().file, "keys.html");
}

TEST(HelpTest, WindowOpensAtTheFirstPage) {
    HelpWindow window(helpPages());
    window.openFirstPage();
    EXPECT_TRUE(window.isVisible());
    EXPECT_EQ(window.browser->source().fileName(), "contents.html");
    EXPECT_TRUE(window.browser->toPlainText().contains("Your first minute"));
    EXPECT_EQ(window.contents->currentRow(), 0);
}

TEST(HelpTest, PageIsChosenInTheContentsAndLeftWithBack) {
    HelpWindow window(helpPages());
    window.openFirstPage();
    window.contents->setCurrentRow(1);
    EXPECT_EQ(window.browser->source().fileName(), "drawing.html");
    window.back->click();
    EXPECT_EQ(window.browser->source().fileName(), "contents.html");
    EXPECT_EQ(window.contents->currentRow(), 0);
}

TEST(HelpTest, HitsStandInPlaceOfTheContents) {
    HelpWindow window(helpPages());
    window.openFirstPage();
    window.search->setText("soundfont");
    EXPECT_EQ(window.contents->item(0)->data(Qt::UserRole).toString(), "no-sound.html");
    window.search->setText("qwertz");
    EXPECT_EQ(window.contents->item(0)->text(), "Nothing was found.");
    window.search->clear();
    EXPECT_EQ(window.contents->count(), 19);
}

TEST(HelpTest, LinksThatLeadOutOfTheHelpAreNotFollowed) {
    HelpWindow window(helpPages());
    window.openFirstPage();
    window.browser->setSource(QUrl("https://example.org/"));
    EXPECT_EQ(window.browser->source().fileName(), "contents.html");
    window.browser->setSource(QUrl("file:///etc/hostname"));
    EXPECT_EQ(window.browser->source().fileName(), "contents.html");
}

TEST(HelpTest, EscapeClosesTheWindow) {
    HelpWindow window(helpPages());
    window.openFirstPage();
    QTest::keyClick(&window, Qt::Key_Escape);
    EXPECT_FALSE(window.isVisible());
}

TEST(HelpTest, WindowIsAboveTheToolWindowsWhileItIsTheActiveOne) {
    QWidget tool;
    tool.show();
    HelpWindow window(helpPages());
    const auto isAbove = [&window] {
        return window.windowHandle()->flags().testFlag(Qt::WindowStaysOnTopHint);
    };
    window.openFirstPage();
    EXPECT_TRUE(isAbove());
    tool.activateWindow();
    QCoreApplication::processEvents();
    EXPECT_FALSE(isAbove());
    window.openFirstPage();
    EXPECT_TRUE(isAbove());
}

TEST(HelpTest, HelpWithoutPagesOpensNoWindow) {
    HelpWindow window({});
    window.openFirstPage();
    EXPECT_FALSE(window.hasPages());
    EXPECT_FALSE(window.isVisible());
}
