// Every window of the studio is used with the Tab key alone.
#include "WholeProgram.h"
#include "support/walk/TabWalkChecks.h"
#include "windows/help/HintPanel.h"
#include "windows/help/Veil.h"
#include "windows/setup/Form3.h"
#include "windows/strip/StripTools.h"

#include <gmock/gmock.h>

#include <QAction>
#include <QMenu>
#include <QTabWidget>
#include <QTest>

using namespace velorin;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

namespace {

/// What a mouse can press and Tab does not reach, each with its other way: the edges for which the
/// window manager has keys; the note names, which only show a hint; the bar numbers, which put the
/// marker where a press on the tableau in select mode puts it.
const std::vector<std::string> mouseOnly{"edge", "grip", "PicX", "TopBarOverlay"};

struct TabWalkTest : testing::Test {
    TabWalkTest() {
        for (QWidget* const window : QApplication::topLevelWidgets())
            window->hide();
    }

    QWidget& alone(QWidget& window) {
        for (QWidget* const other : QApplication::topLevelWidgets())
            other->setVisible(other == &window);
        QCoreApplication::processEvents();
        return window;
    }
    QWidget& window(const char* name) {
        return alone(*whole.program.window(QLatin1String(name), true));
    }
    /// Walks through each page of a tool window.
    void walkPages(const char* name) {
        QWidget& shown = window(name);
        auto* const pages = shown.findChild<QTabWidget*>("SSTab1");
        for (int page = 0; page < pages->count(); ++page) {
            SCOPED_TRACE(pages->tabText(page).toStdString());
            pages->setCurrentIndex(page);
            expectWalk(shown);
        }
    }
    Form1& mainWindow() { return static_cast<Form1&>(window("Form1")); }

    WholeProgram whole;
};

} // namespace

TEST_F(TabWalkTest, MainWindow) {
    mainWindow().resize(1280, 800);
    expectWalk(mainWindow(), mouseOnly);
}

TEST_F(TabWalkTest, MainWindowAtEachWidthIncludingTheArrowOfTheStrip) {
    for (const int width : {1024, 800, 640, 560}) {
        SCOPED_TRACE(width);
        Form1& form = mainWindow();
        form.resize(width, 600);
        form.layout.Form_Resize();
        expectWalk(form, mouseOnly);
    }
}

TEST_F(TabWalkTest, MainWindowWithTheGreetingAndItsButton) {
    mainWindow().resize(1280, 800);
    whole.program.begin();
    for (int i = 0; i < 3; ++i)
        QCoreApplication::processEvents();
    (void)mainWindow().grab();
    QCoreApplication::processEvents();
    EXPECT_THAT(walkByTab(mainWindow()).names(), testing::Contains("OpenSong"));
    expectWalk(mainWindow(), mouseOnly);
}

TEST_F(TabWalkTest, MainWindowWithStepsToTakeBack) {
    mainWindow().resize(1280, 800);
    for (const int column : {4, 8}) {
        whole.program.studio().score.NoteArray.write(0, column, 60);
        whole.program.history.changeFinished();
    }
    whole.program.form1().strip->button(StripCommand::undo).click();
    EXPECT_THAT(walkByTab(mainWindow()).names(), testing::IsSupersetOf({"stripUndo", "stripRedo"}));
    expectWalk(mainWindow(), mouseOnly);
}

TEST_F(TabWalkTest, EditingToolbarInBothModes) {
    const std::vector<std::string> arrows{"VScroll2", "VScroll3", "VScroll4"};
    QWidget& editing = window("Form2");
    expectWalk(editing);
    editing.findChild<QAbstractButton*>("Cmd2(11)")->click();
    expectWalk(editing, arrows); // of the boxes beside them, which take the numbers
    EXPECT_THAT(walkByTab(editing).names(), testing::IsSupersetOf({"Cmd2(12)", "Text5", "Check2"}));
}

TEST_F(TabWalkTest, SetupToolbar) {
    walkPages("Form3");
}

TEST_F(TabWalkTest, RecordingToolbar) {
    walkPages("Record");
}

TEST_F(TabWalkTest, TutorialWizard) {
    walkPages("Wiz");
}

TEST_F(TabWalkTest, History) {
    whole.program.studio().score.NoteArray.write(0, 4, 60);
    whole.program.history.changeFinished();
    expectWalk(alone(whole.program.historyTool.form()), mouseOnly);
}

TEST_F(TabWalkTest, ExportWithEachKind) {
    QWidget& exporting = alone(whole.program.exportTool.form());
    for (const char* const kind : {"mp3", "wav", "midi", "page", "picture"}) {
        SCOPED_TRACE(kind);
        exporting.findChild<QAbstractButton*>(kind)->click();
        expectWalk(exporting, mouseOnly);
    }
}

TEST_F(TabWalkTest, HelpAtASecondPage) {
    whole.help.openFirstPage();
    whole.help.openAt("keys.html");
    expectWalk(alone(whole.help), mouseOnly);
    EXPECT_THAT(walkByTab(whole.help).names(),
                testing::ElementsAre("search", "contents", "back", "page", "imgTitleClose"));
}

TEST_F(TabWalkTest, Hints) {
    auto& hint = static_cast<HintPanel&>(window("frminfo"));
    hint.setText("A hint of a button.", false);
    expectWalk(hint);
    hint.setText("A step of a lesson.", true);
    expectWalk(hint);
    whole.program.shortHint.show(mainWindow(), "A hint.");
    expectWalk(alone(*whole.program.shortHint.window()));
}

TEST_F(TabWalkTest, NoticeAbove) {
    mainWindow();
    whole.host.notices.post({"A notice.", {}});
    whole.host.notices.callback();
    expectWalk(alone(*whole.program.notices.window()));
}

// The keyboard stays in the search until Enter chooses or Escape closes, as in every open list.
// Escape also empties the search, as its button does.
TEST_F(TabWalkTest, OpenListOfInstruments) {
    window("Form3");
    InstrumentPopup& list =
        whole.program.setup.form().findChild<InstrumentList*>("Combo1")->popup();
    list.open(0);
    list.search->setText("piano");
    expectWalk(list, {"clear", "rows"});
}

TEST_F(TabWalkTest, MenuOfTheStripIsUsedByKeys) {
    Form1& form = mainWindow();
    form.resize(640, 600);
    form.layout.Form_Resize();
    QWidget* const arrow =
        form.strip->arrow->isVisible() ? form.strip->arrow : form.strip->arrowInTitle;
    ASSERT_TRUE(arrow->isVisible());
    QTest::keyClick(arrow, Qt::Key_Space);
    auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_NE(menu, nullptr);
    std::vector<QAction*> reached;
    for (qsizetype i = 0; i < menu->actions().size(); ++i) {
        QTest::keyClick(menu, Qt::Key_Down);
        reached.push_back(menu->activeAction());
    }
    for (QAction* const action : menu->actions())
        if (action->isEnabled() && !action->isSeparator()) {
            EXPECT_THAT(reached, testing::Contains(action)) << action->text().toStdString();
        }
    QTest::keyClick(menu, Qt::Key_Escape);
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
}

TEST_F(TabWalkTest, VeilTakesNothingFromTheKeyboard) {
    mainWindow().resize(1280, 800);
    const std::vector<std::string> before = walkByTab(mainWindow()).names();
    QWidget bright;
    const Veil veil(bright);
    EXPECT_EQ(walkByTab(mainWindow()).names(), before);
}

// In the main window the fixed sizes of the tableaux leave no more room. The arrows of a number
// need none: the box beside them takes the number.
TEST_F(TabWalkTest, TargetsAreLargeOrApart) {
    mainWindow().resize(1280, 800);
    EXPECT_THAT(crowdedTargets(mainWindow()),
                UnorderedElementsAre("TopBarOverlay", "Beatbox", "HScroll1", "VScroll1"));
    QWidget& editing = window("Form2");
    editing.findChild<QAbstractButton*>("Cmd2(11)")->click();
    EXPECT_THAT(crowdedTargets(editing), UnorderedElementsAre("VScroll2", "VScroll3", "VScroll4"));
    for (const char* const name : {"Form3", "Record", "Wiz"}) {
        auto* const pages = window(name).findChild<QTabWidget*>("SSTab1");
        for (int page = 0; page < pages->count(); ++page) {
            SCOPED_TRACE(name + std::to_string(page));
            pages->setCurrentIndex(page);
            EXPECT_THAT(crowdedTargets(window(name)), IsEmpty());
        }
    }
    EXPECT_THAT(crowdedTargets(alone(whole.program.historyTool.form())),
                ElementsAre("grip")); // between the two edges, which it joins
    EXPECT_THAT(crowdedTargets(alone(whole.program.exportTool.form())), IsEmpty());
}
