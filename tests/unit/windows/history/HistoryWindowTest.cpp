// The History window: what its controls and keys do.
#include "HistoryStage.h"
#include "support/ScriptedFiles.h"
#include "windows/frame/Look.h"

#include <gmock/gmock.h>

#include <QAbstractItemView>
#include <QApplication>
#include <QScrollBar>

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

namespace velorin {
namespace {

struct HistoryWindowTest : testing::Test, HistoryStage {
    static void SetUpTestSuite() { applyLook(*qApp); }

    QRect rowRect(HistoryWindow& window, StateId id) {
        return window.states->visualRect(window.model.index(window.model.rowOf(id), 0));
    }
    void point(HistoryWindow& window, StateId id) {
        QMouseEvent move(QEvent::MouseMove, rowRect(window, id).center(),
                         window.states->viewport()->mapToGlobal(rowRect(window, id).center()),
                         Qt::NoButton, Qt::NoButton, Qt::NoModifier);
        QApplication::sendEvent(window.states->viewport(), &move);
        QCoreApplication::processEvents();
    }
    static QString label(HistoryWindow& window, const char* name) {
        return window.findChild<QLabel*>(name)->text();
    }
};

TEST_F(HistoryWindowTest, OpensAtTheCurrentStateWithTheKeyboardInTheList) {
    draw(0, 0);
    const StateId now = draw(0, 4);
    HistoryWindow& window = shown();
    EXPECT_EQ(window.states->cursorId(), now);
    EXPECT_EQ(windows.focus.current(), window.states);
    EXPECT_EQ(windows.order().back(), Tool::history);
    EXPECT_EQ(label(window, "time"), "Today, 14:00");
    EXPECT_EQ(label(window, "what"), "Note drawn on channel 1, column 5");
    EXPECT_EQ(label(window, "rowsHeading"), "The same as now");
    EXPECT_EQ(label(window, "use"),
              QStringLiteral("2 states since 20 November  \u00b7  12.4 of 200 MiB"));
}

TEST_F(HistoryWindowTest, EnterGoesToTheStateAtTheCursor) {
    const StateId first = draw(0, 0);
    draw(0, 4);
    HistoryWindow& window = shown();
    QTest::keyClick(window.states, Qt::Key_Down);
    EXPECT_EQ(window.states->cursorId(), first);
    EXPECT_TRUE(has(0, 4));
    QTest::keyClick(window.states, Qt::Key_Return);
    EXPECT_FALSE(has(0, 4));
    EXPECT_EQ(history.current(), first);
    EXPECT_EQ(window.states->cursorId(), first);
}

TEST_F(HistoryWindowTest, ADoubleClickGoesToTheStateAndOnADayDoesNothing) {
    const StateId first = draw(0, 0);
    const StateId second = draw(0, 4);
    HistoryWindow& window = shown();
    const QRect day = window.states->visualRect(window.model.index(0, 0));
    QTest::mouseDClick(window.states->viewport(), Qt::LeftButton, {}, day.center());
    EXPECT_EQ(history.current(), second);
    QTest::mouseDClick(window.states->viewport(), Qt::LeftButton, {},
                       rowRect(window, first).center());
    EXPECT_EQ(history.current(), first);
}

TEST_F(HistoryWindowTest, TheButtonGoesBackAndThenForward) {
    const StateId first = draw(0, 0);
    const StateId second = draw(0, 4);
    HistoryWindow& window = shown();
    window.states->setCursorTo(first);
    window.panel->goBack->click();
    EXPECT_FALSE(has(0, 4));
    window.states->setCursorTo(second);
    window.panel->goBack->click();
    EXPECT_TRUE(has(0, 4));
    EXPECT_THAT(store.all, SizeIs(2)) << "both are on one branch, so no state is new";
}

TEST_F(HistoryWindowTest, ThePanelShowsTheStateUnderThePointerUntilAKeyIsPressed) {
    studio.score.RowInstrument[0] = 10;
    const StateId first = draw(0, 0);
    studio.score.RowInstrument[1] = 46;
    const StateId second = draw(1, 47);
    HistoryWindow& window = shown();
    point(window, first);
    EXPECT_EQ(window.states->shownId(), first);
    EXPECT_EQ(window.states->cursorId(), second);
    EXPECT_EQ(label(window, "rowsHeading"), "Rows that change");
    EXPECT_EQ(label(window, "figures"),
              QStringLiteral("0 columns  \u00b7  0:00  \u00b7  tempo 100"))
        << "a note in the first column alone has no length";
    QTest::keyClick(window.states, Qt::Key_End);
    QTest::keyClick(window.states, Qt::Key_Home);
    EXPECT_EQ(window.states->shownId(), second);
    QCoreApplication::processEvents();
    EXPECT_EQ(label(window, "figures"),
              QStringLiteral("48 columns  \u00b7  0:06  \u00b7  tempo 100"));
}

TEST_F(HistoryWindowTest, TheFirstTwoRowsThatChangeAreNamedOrOneAndTheNumberOfOthers) {
    const StateId blank = draw(0, 0);
    studio.score.RowInstrument[1] = 46;
    draw(1, 1);
    HistoryWindow& window = shown();
    window.states->setCursorTo(blank);
    QCoreApplication::processEvents();
    EXPECT_EQ(label(window, "rowName(0)"),
              "0 Acoustic Grand Piano"); // the instrument in that state
    EXPECT_EQ(label(window, "rowName(1)"), "");
    draw(2, 1);
    draw(8, 1);
    window.states->setCursorTo(blank);
    QCoreApplication::processEvents();
    EXPECT_EQ(label(window, "rowName(1)"), "and 2 more");
}

TEST_F(HistoryWindowTest, AnotherTempoAloneIsSaid) {
    const StateId slow = draw(0, 0);
    studio.score.Tempo = 66;
    history.changeFinished();
    HistoryWindow& window = shown();
    window.states->setCursorTo(slow);
    QCoreApplication::processEvents();
    EXPECT_EQ(label(window, "rowsHeading"), "Rows that change");
    EXPECT_EQ(label(window, "rowName(0)"), "None: only the tempo");
}

TEST_F(HistoryWindowTest, WhileASongPlaysNobodyGoesBack) {
    const StateId first = draw(0, 0);
    draw(0, 4);
    HistoryWindow& window = shown();
    studio.run.IsPlaying = flagSet;
    tool.lockChanged();
    EXPECT_FALSE(window.panel->goBack->isEnabled());
    EXPECT_TRUE(window.panel->save->isEnabled());
    window.states->setCursorTo(first);
    QTest::keyClick(window.states, Qt::Key_Return);
    window.goBack();
    EXPECT_TRUE(has(0, 4));
    studio.run.IsPlaying = flagClear;
    tool.lockChanged();
    EXPECT_TRUE(window.panel->goBack->isEnabled());
}

TEST_F(HistoryWindowTest, LettersGoIntoTheFilterAndEscClearsIt) {
    draw(0, 0);
    const StateId second = draw(1, 4);
    draw(0, 8);
    HistoryWindow& window = shown();
    QTest::keyClicks(window.states, "L");
    EXPECT_EQ(window.filter->text(), "L");
    EXPECT_EQ(windows.focus.current(), window.filter);
    window.filter->clear();
    QTest::keyClicks(window.filter, "channel 2");
    EXPECT_EQ(window.model.rowCount(), 2);
    EXPECT_EQ(window.states->cursorId(), second) << "the first that is left";
    QTest::keyClick(window.filter, Qt::Key_Return);
    EXPECT_EQ(history.current(), second);
    QTest::keyClick(window.filter, Qt::Key_Escape);
    EXPECT_EQ(window.filter->text(), "");
    EXPECT_EQ(window.model.rowCount(), 4);
    EXPECT_EQ(window.states->cursorId(), second);
}

TEST_F(HistoryWindowTest, ArrowKeysMoveInTheListFromTheFilterToo) {
    const StateId first = draw(0, 0);
    const StateId second = draw(0, 4);
    HistoryWindow& window = shown();
    window.filter->setFocus();
    QTest::keyClick(window.filter, Qt::Key_Down);
    EXPECT_EQ(window.states->cursorId(), first);
    QTest::keyClick(window.filter, Qt::Key_Up);
    EXPECT_EQ(window.states->cursorId(), second);
}

TEST_F(HistoryWindowTest, TheCursorSkipsDaysAndStopsAtTheEnds) {
    store.setTime(today.addDays(-2), 9, 0);
    const StateId first = draw(0, 0);
    store.setTime(today.addDays(-1), 9, 0);
    const StateId second = draw(0, 1);
    at(9, 0);
    const StateId third = draw(0, 2);
    HistoryWindow& window = shown();
    const auto after = [&](Qt::Key key) {
        QTest::keyClick(window.states, key);
        return window.states->cursorId();
    };
    EXPECT_EQ(after(Qt::Key_Up), third);
    EXPECT_EQ(after(Qt::Key_Down), second);
    EXPECT_EQ(after(Qt::Key_Down), first);
    EXPECT_EQ(after(Qt::Key_Down), first);
    EXPECT_EQ(after(Qt::Key_Up), second);
    EXPECT_EQ(after(Qt::Key_Home), third);
    EXPECT_EQ(after(Qt::Key_End), first);
    EXPECT_EQ(after(Qt::Key_PageUp), third);
    EXPECT_EQ(after(Qt::Key_PageDown), first);
}

TEST_F(HistoryWindowTest, TheCursorGoesAlongWithTheCurrentState) {
    const StateId first = draw(0, 0);
    HistoryWindow& window = shown();
    const StateId second = draw(0, 1);
    EXPECT_EQ(window.states->cursorId(), second);
    history.undo();
    EXPECT_EQ(window.states->cursorId(), first);
    history.redo();
    window.states->setCursorTo(first);
    draw(0, 2);
    EXPECT_EQ(window.states->cursorId(), first) << "the user has moved it away";
}

TEST_F(HistoryWindowTest, AStateIsSavedAsAScoreUnderAnotherName) {
    const scripted::TemporaryFolder folder;
    const StateId first = draw(0, 3);
    draw(0, 4);
    studio.score.CurrentFileName = "current.sng";
    HistoryWindow& window = shown();
    window.states->setCursorTo(first);
    host.dialogs.answers.push_back(
        platform::FileDialogAnswer{(folder.path() / " old").string(), 1});
    window.panel->save->click();
    EXPECT_THAT(host.dialogs.log, ElementsAre("save;Save as score;score(*.sng)|*.sng;2006"));
    EXPECT_EQ(studio.score.CurrentFileName, "current.sng");
    EXPECT_TRUE(has(0, 4));
    EXPECT_TRUE(window.isVisible());
    const auto file = host.files.openForInput((folder.path() / " old.sng").string());
    ASSERT_NE(file, nullptr);
    std::string line;
    std::getline(*file, line);
    EXPECT_EQ(line, "-1,-1,-1,60\r");
}

TEST_F(HistoryWindowTest, ASaveThatFailsIsReported) {
    draw(0, 3);
    HistoryWindow& window = shown();
    host.files.writeError = platform::WriteError::diskFull;
    host.dialogs.answers.push_back(platform::FileDialogAnswer{"/tmp/harbour.sng", 1});
    window.panel->save->click();
    ASSERT_THAT(host.notices.posted, SizeIs(1));
    EXPECT_EQ(host.notices.posted[0].text,
              "\"harbour.sng\" was not saved: the disk is full. Make room and save again.");
    window.panel->save->click(); // cancelled
    EXPECT_THAT(host.notices.posted, SizeIs(1));
}

TEST_F(HistoryWindowTest, AStateThatIsLostCannotBeHadAndSaysSo) {
    const StateId first = draw(0, 0);
    draw(0, 4);
    HistoryWindow& window = shown();
    store.scores.erase(first);
    window.states->setCursorTo(first);
    QCoreApplication::processEvents();
    EXPECT_EQ(label(window, "figures"), "This state cannot be read any more.");
    window.goBack();
    EXPECT_TRUE(has(0, 4));
    window.saveAsScore();
    EXPECT_THAT(host.dialogs.log, IsEmpty());
    EXPECT_THAT(host.notices.posted, SizeIs(2));
}

TEST_F(HistoryWindowTest, TheHistoryIsClearedOnlyAfterAQuestion) {
    draw(0, 0);
    studio.score.ClearNoteArrays();
    history.changeFinished();
    HistoryWindow& window = shown();
    window.clear->click();
    ASSERT_THAT(host.boxes.log, SizeIs(1));
    EXPECT_TRUE(host.boxes.log[0].starts_with("question;Clear history;"));
    EXPECT_TRUE(host.boxes.log[0].ends_with(";Clear;Keep"));
    EXPECT_THAT(store.all, SizeIs(2));
    host.boxes.answers.push_back(true);
    window.clear->click();
    EXPECT_THAT(store.all, IsEmpty());
    EXPECT_EQ(window.model.rowCount(), 0);
    EXPECT_EQ(window.states->emptyText, "What you change is kept here.");
    EXPECT_FALSE(window.clear->isEnabled());
    EXPECT_FALSE(window.panel->goBack->isEnabled());
}

TEST_F(HistoryWindowTest, TheScoresOpenedOrSavedLastAreListedAndOpenAgain) {
    const scripted::TemporaryFolder folder;
    const std::string one = (folder.path() / "one.sng").string();
    const std::string two = (folder.path() / "two.sng").string();
    draw(0, 0);
    save(one);
    draw(0, 1);
    save(two);
    save(one);
    HistoryWindow& window = shown();
    EXPECT_THAT(window.opened->scores(), ElementsAre(one, two));
    QTest::keyClick(window.opened, Qt::Key_Down);
    EXPECT_TRUE(window.opened->view()->isVisible()) << "an arrow key opens the list, no score";
    window.opened->hidePopup();
    draw(0, 9);
    Q_EMIT window.opened->activated(1);
    EXPECT_FALSE(has(0, 9));
    EXPECT_EQ(window.opened->currentIndex(), -1);
    std::filesystem::remove(one);
    Q_EMIT window.opened->activated(0);
    EXPECT_THAT(host.notices.posted, SizeIs(1));
}

TEST_F(HistoryWindowTest, AMomentOfSavingLeadsToTheStateThatWasSaved) {
    const scripted::TemporaryFolder folder;
    const StateId saved = draw(0, 0);
    at(14, 31);
    save((folder.path() / "paper-boat.sng").string());
    draw(0, 4);
    HistoryWindow& window = shown();
    EXPECT_EQ(rowsOf(window.model)[2], "14:31, Saved, paper-boat.sng");
    QTest::keyClick(window.states, Qt::Key_Down);
    EXPECT_EQ(label(window, "what"), "Saved as paper-boat.sng");
    QTest::keyClick(window.states, Qt::Key_Enter);
    EXPECT_EQ(history.current(), saved);
}

TEST_F(HistoryWindowTest, PlaceAndSizeAreKeptAndTheListTakesWhatIsAdded) {
    HistoryWindow& window = shown();
    EXPECT_EQ(window.size(), QSize(672, 456));
    EXPECT_EQ(window.states->geometry(), QRect(8, 70, 396, 338));
    EXPECT_EQ(window.panel->geometry(), QRect(412, 36, 252, 372));
    EXPECT_EQ(window.clear->geometry(), QRect(542, 420, 122, 28));
    window.resize(772, 556);
    EXPECT_EQ(window.states->geometry(), QRect(8, 70, 496, 438));
    EXPECT_EQ(window.panel->width(), 252);
    window.move(50, 40);
    tool.unload();
    HistoryWindow& again = shown();
    EXPECT_EQ(again.geometry(), QRect(50, 40, 772, 556));
    again.resize(100, 100);
    EXPECT_EQ(again.size(), QSize(560, 360));
    EXPECT_GT(again.panel->goBack->y(), again.findChild<QLabel*>("rowName(1)")->y());
}

TEST_F(HistoryWindowTest, TheLowerCornerResizesTheWindow) {
    HistoryWindow& window = shown();
    auto* const grip = window.findChild<QWidget*>("grip");
    QTest::mousePress(grip, Qt::LeftButton, {}, QPoint(12, 12));
    QMouseEvent move(QEvent::MouseMove, QPointF(52, 42), grip->mapToGlobal(QPoint(52, 42)),
                     Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(grip, &move);
    EXPECT_EQ(window.size(), QSize(712, 486));
    QTest::mouseRelease(grip, Qt::LeftButton, {}, QPoint(12, 12));
}

TEST_F(HistoryWindowTest, AHiddenWindowReadsTheHistoryWhenItIsShownAgain) {
    HistoryWindow& window = shown();
    window.hide();
    draw(0, 0);
    EXPECT_EQ(window.model.rowCount(), 0);
    windows.ShowToolbars();
    EXPECT_EQ(window.model.rowCount(), 2);
}

TEST_F(HistoryWindowTest, TenThousandStatesKeepTheirPlaceWhenOneIsAdded) {
    for (int i = 0; i < 10'000; ++i) {
        platform::HistoryEntry entry;
        entry.kind = changeKind::notes;
        entry.text = "Note drawn on channel 1, column " + std::to_string(i % 1000 + 1);
        store.now += 60'000'000;
        store.add(entry, "x");
    }
    HistoryWindow& window = shown();
    EXPECT_GT(window.model.rowCount(), 10'000);
    QTest::keyClick(window.states, Qt::Key_Home);
    QTest::keyClick(window.states, Qt::Key_End);
    EXPECT_EQ(window.states->cursorId(), store.all.front().id);
    QScrollBar& bar = *window.states->verticalScrollBar();
    EXPECT_EQ(bar.value(), bar.maximum());
    bar.setValue(120'000);
    const QModelIndex top = window.states->indexAt(QPoint(100, 10));
    const auto topId = window.model.line(top.row())->id;
    const QRect before = rowRect(window, topId);
    draw(0, 0);
    EXPECT_EQ(rowRect(window, topId), before);
}

} // namespace
} // namespace velorin
