// The lists of instruments of the Setup Toolbar, opened: search, cursor, pointer and sound.
#include "windows/lists/InstrumentList.h"

#include "support/ToolStage.h"
#include "windows/frame/Look.h"
#include "windows/lists/InstrumentPopup.h"
#include "windows/lists/InstrumentRows.h"

#include <gmock/gmock.h>

#include <QAccessible>
#include <QApplication>
#include <QScrollBar>
#include <QTest>

using testing::ElementsAre;
using testing::IsEmpty;

namespace velorin {
namespace {

using Lines = std::vector<std::string>;

struct InstrumentListTest : testing::Test, scripted::ToolStage {
    static void SetUpTestSuite() { applyLook(*qApp); }

    InstrumentListTest() {
        session.sounding.openDevice(0);
        for (const Instrument& instrument : melodicInstruments())
            list.addItem(instrument.entry());
        list.setCurrentIndex(24);
        QObject::connect(&list, &QComboBox::currentIndexChanged,
                         [this](int index) { changes.push_back(index); });
        window.resize(400, 300);
        list.setGeometry(20, 20, 194, 26);
        window.show();
        host.midi.log.clear();
    }

    InstrumentPopup& opened() {
        list.showPopup();
        return list.popup();
    }
    /// The middle of an entry in the rows.
    static QPoint middleOf(InstrumentPopup& popup, int place) {
        const QModelIndex index = popup.model.index(popup.model.rowOf(place), 0);
        popup.rows->scrollTo(index);
        const QRect rect = popup.rows->visualRect(index);
        return {rect.center().x(), rect.bottom() - 11};
    }
    static void point(InstrumentPopup& popup, QPoint place) {
        QWidget* const viewport = popup.rows->viewport();
        QMouseEvent move(QEvent::MouseMove, place, viewport->mapToGlobal(place), Qt::NoButton,
                         Qt::NoButton, Qt::NoModifier);
        QApplication::sendEvent(viewport, &move);
    }
    void pass(double seconds) {
        host.time.pass(
            static_cast<scripted::Nanoseconds>(seconds * scripted::nanosecondsPerSecond));
    }
    /// The instruments and drums that began to sound since the last call: "program 26".
    Lines heard() {
        Lines notes;
        for (const std::string& line : std::exchange(host.midi.log, {})) {
            const std::string what = line.substr(6);
            if (what.starts_with("CF"))
                notes.push_back("program " +
                                std::to_string(std::stoi(what.substr(3), nullptr, 16)));
            else if (what.starts_with("8F"))
                notes.emplace_back("end");
        }
        return notes;
    }

    QWidget window;
    InstrumentList list{&window, melodicInstruments(), studio, session.sounding};
    std::vector<int> changes;
};

TEST_F(InstrumentListTest, OpensWithTheCurrentEntryInTheMiddleAndTheKeyboardInTheSearch) {
    InstrumentPopup& popup = opened();
    EXPECT_TRUE(popup.isVisible());
    EXPECT_EQ(popup.width(), 296);
    const int rows = (popup.height() - 64) / 24;
    EXPECT_EQ(popup.height(), 64 + 24 * rows);
    EXPECT_GE(rows, 16);
    EXPECT_LE(rows, 20);
    EXPECT_EQ(popup.rows->cursor(), 24);
    const QRect current = popup.rows->visualRect(popup.model.index(24, 0));
    EXPECT_EQ(current.bottom() + 1, ((rows - 1) / 2 + 1) * 24) << "18 rows: the ninth";
    EXPECT_EQ(popup.focusWidget(), popup.search);
    EXPECT_EQ(changes, std::vector<int>{});
}

TEST_F(InstrumentListTest, TypingLeavesWhatHasTheLettersAndEnterTakesTheFirst) {
    InstrumentPopup& popup = opened();
    EXPECT_FALSE(popup.clear->isVisible());
    QTest::keyClicks(popup.search, "flu");
    EXPECT_TRUE(popup.clear->isVisible());
    EXPECT_EQ(popup.model.rowCount(), 2);
    EXPECT_EQ(popup.rows->cursor(), 73);
    QTest::keyClick(popup.search, Qt::Key_Return);
    EXPECT_FALSE(popup.isVisible());
    EXPECT_EQ(list.currentIndex(), 73);
    EXPECT_EQ(changes, std::vector<int>{73});
}

TEST_F(InstrumentListTest, ArrowsMoveTheCursorFromTheSearch) {
    InstrumentPopup& popup = opened();
    QTest::keyClick(popup.search, Qt::Key_Down);
    EXPECT_EQ(popup.rows->cursor(), 25);
    QTest::keyClick(popup.search, Qt::Key_Up);
    QTest::keyClick(popup.search, Qt::Key_Up);
    EXPECT_EQ(popup.rows->cursor(), 23) << "a heading is no row";
    QTest::keyClick(popup.search, Qt::Key_End);
    EXPECT_EQ(popup.rows->cursor(), 127);
    QTest::keyClick(popup.search, Qt::Key_Down);
    EXPECT_EQ(popup.rows->cursor(), 127);
    QTest::keyClick(popup.search, Qt::Key_Home);
    EXPECT_EQ(popup.rows->cursor(), 0);
    EXPECT_EQ(popup.rows->verticalScrollBar()->value(), 0) << "the heading is in sight too";
    QTest::keyClick(popup.search, Qt::Key_PageDown);
    EXPECT_EQ(popup.rows->cursor(), popup.rows->rowsOfAPage());
    EXPECT_EQ(changes, std::vector<int>{});
}

TEST_F(InstrumentListTest, EscapeFirstEmptiesTheSearchAndThenCloses) {
    InstrumentPopup& popup = opened();
    QTest::keyClicks(popup.search, "xyz");
    EXPECT_EQ(popup.model.rowCount(), 0);
    QTest::keyClick(popup.search, Qt::Key_Return);
    EXPECT_TRUE(popup.isVisible()) << "there is nothing to take";
    QTest::keyClick(popup.search, Qt::Key_Escape);
    EXPECT_TRUE(popup.isVisible());
    EXPECT_EQ(popup.model.rowCount(), 128);
    EXPECT_EQ(popup.rows->cursor(), 24) << "the current one again";
    QTest::keyClick(popup.search, Qt::Key_Escape);
    EXPECT_FALSE(popup.isVisible());
    EXPECT_EQ(list.currentIndex(), 24);
    EXPECT_EQ(changes, std::vector<int>{});
}

TEST_F(InstrumentListTest, AClickTakesAnEntryOnceAndNoneOnAHeading) {
    InstrumentPopup& popup = opened();
    QWidget* const viewport = popup.rows->viewport();
    const QRect guitars = popup.rows->visualRect(popup.model.index(24, 0));
    QTest::mouseClick(viewport, Qt::LeftButton, {}, {40, guitars.top() + 12});
    EXPECT_TRUE(popup.isVisible());
    QTest::mouseClick(viewport, Qt::LeftButton, {}, middleOf(popup, 26));
    EXPECT_FALSE(popup.isVisible());
    EXPECT_EQ(changes, std::vector<int>{26});
    opened();
    QTest::mouseClick(viewport, Qt::LeftButton, {}, middleOf(popup, 26));
    EXPECT_FALSE(popup.isVisible());
    EXPECT_EQ(changes, std::vector<int>{26}) << "it is the current one already";
}

TEST_F(InstrumentListTest, APressElsewhereOnlyCloses) {
    InstrumentPopup& popup = opened();
    EXPECT_TRUE(popup.testAttribute(Qt::WA_NoMouseReplay)) << "the field would open it again";
    QTest::mousePress(&popup, Qt::LeftButton, {}, {-20, -20});
    EXPECT_FALSE(popup.isVisible());
    EXPECT_EQ(changes, std::vector<int>{});
}

TEST_F(InstrumentListTest, TheReleaseOfThePressThatOpenedItTakesNothing) {
    InstrumentPopup& popup = opened();
    QTest::mouseRelease(popup.rows->viewport(), Qt::LeftButton, {}, middleOf(popup, 26));
    EXPECT_TRUE(popup.isVisible());
    point(popup, middleOf(popup, 30)); // dragged to another entry
    QTest::mouseRelease(popup.rows->viewport(), Qt::LeftButton, {}, middleOf(popup, 30));
    EXPECT_EQ(changes, std::vector<int>{30});
}

TEST_F(InstrumentListTest, AnEntrySoundsWhenThePointerHasRestedOnIt) {
    InstrumentPopup& popup = opened();
    point(popup, middleOf(popup, 26));
    pass(0.2);
    point(popup, middleOf(popup, 26) + QPoint(5, 2)); // still the same entry
    EXPECT_THAT(heard(), IsEmpty());
    pass(0.11);
    EXPECT_THAT(heard(), ElementsAre("program 26"));
    pass(2);
    EXPECT_THAT(heard(), ElementsAre("end")) << "once, although the pointer is still there";
    point(popup, middleOf(popup, 27));
    pass(0.1);
    point(popup, middleOf(popup, 28));
    pass(0.31);
    EXPECT_THAT(heard(), ElementsAre("program 28")) << "the pointer only crossed 27";
    point(popup, middleOf(popup, 29));
    EXPECT_THAT(heard(), ElementsAre("end"));
}

TEST_F(InstrumentListTest, TheCursorIsHeardToo) {
    InstrumentPopup& popup = opened();
    pass(1);
    EXPECT_THAT(heard(), IsEmpty()) << "the current one is known";
    QTest::keyClick(popup.search, Qt::Key_Down);
    QTest::keyClick(popup.search, Qt::Key_Down);
    pass(0.31);
    EXPECT_THAT(heard(), ElementsAre("program 26"));
    QTest::keyClick(popup.search, Qt::Key_Return);
    EXPECT_THAT(heard(), ElementsAre("end")) << "when the list closes";
    pass(2);
    EXPECT_THAT(heard(), IsEmpty());
}

TEST_F(InstrumentListTest, NothingSoundsWhileASongPlaysAndTheHintSaysSo) {
    InstrumentPopup& popup = opened();
    EXPECT_EQ(popup.hint(), "Rest the pointer on a name to hear it");
    studio.run.IsPlaying = flagSet;
    point(popup, middleOf(popup, 26));
    pass(1);
    EXPECT_THAT(heard(), IsEmpty());
    EXPECT_EQ(popup.hint(), "Sound is off while a song plays");
}

TEST_F(InstrumentListTest, ALetterOpensTheClosedListWithASearch) {
    QTest::keyClick(&list, Qt::Key_F);
    EXPECT_TRUE(list.popup().isVisible());
    EXPECT_EQ(list.popup().search->text(), "f");
    QTest::keyClicks(list.popup().search, "lu");
    EXPECT_EQ(list.popup().rows->cursor(), 73);
    list.hidePopup();
    QTest::keyClick(&list, Qt::Key_Down);
    EXPECT_EQ(changes, std::vector<int>{25}) << "arrows change the closed list";
}

TEST_F(InstrumentListTest, TheSearchIsEmptyAtTheNextOpening) {
    QTest::keyClicks(opened().search, "flu");
    list.popup().clear->click();
    EXPECT_EQ(list.popup().model.rowCount(), 128);
    QTest::keyClicks(list.popup().search, "flu");
    list.hidePopup();
    EXPECT_EQ(opened().search->text(), "");
    EXPECT_EQ(list.popup().rows->cursor(), 24);
}

TEST_F(InstrumentListTest, ScreenReadersFindASearchAndEntriesWithNames) {
    InstrumentPopup& popup = opened();
    QAccessibleInterface* const search = QAccessible::queryAccessibleInterface(popup.search);
    EXPECT_EQ(search->text(QAccessible::Name), "Search in all entries");
    QAccessibleInterface* const rows = QAccessible::queryAccessibleInterface(popup.rows);
    EXPECT_EQ(rows->role(), QAccessible::List);
    ASSERT_EQ(rows->childCount(), 128) << "headings are no rows";
    EXPECT_EQ(rows->child(26)->text(QAccessible::Name), "26 Jazz Guitar");
}

} // namespace
} // namespace velorin
