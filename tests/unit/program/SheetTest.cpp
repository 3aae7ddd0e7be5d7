// The sheet of the whole program: the greeting, the lanes after an edit, and chord marks that are
// left.
#include "WholeProgram.h"
#include "windows/sheet/GreetingWidgets.h"
#include "windows/texts/SheetTexts.h"

#include <gtest/gtest.h>

#include <QIcon>
#include <QTest>

using namespace velorin;

namespace {

struct SheetTest : testing::Test {
    WholeProgram whole;
    Program& program = whole.program;
    Score& score = program.session.studio.score;
    Picmain& area = *program.form1().area;

    [[nodiscard]] bool isGreeted() const {
        const auto* const overlay = area.findChild<GreetingOverlay*>();
        return overlay != nullptr && overlay->isVisible();
    }
    /// Starts as the real program does, and lets it paint.
    void begin() {
        program.begin();
        for (int i = 0; i < 3; ++i)
            QCoreApplication::processEvents();
        (void)program.form1().grab();
        QCoreApplication::processEvents();
    }
    void putNoteWithMark() {
        score.NoteArray.write(0, 3, 60);
        score.PolyArray.write(1, 4, 1);
        program.history.changeFinished();
    }
    [[nodiscard]] Colour lane(int column) const {
        return area.Pic1->picture.pixel(column * 12 + 5, 3);
    }
};

} // namespace

TEST_F(SheetTest, AnEmptySheetIsGreetedAfterTheFirstPaint) {
    EXPECT_FALSE(isGreeted());
    begin();
    EXPECT_TRUE(isGreeted());
}

TEST_F(SheetTest, TheWindowsGetTheIconAfterTheFirstPaint) {
    QGuiApplication::setWindowIcon({});
    begin();
    EXPECT_FALSE(QGuiApplication::windowIcon().isNull());
    EXPECT_FALSE(program.form1().windowIcon().isNull());
}

TEST_F(SheetTest, WithoutTheBeginningThereIsNoGreeting) {
    QCoreApplication::processEvents();
    (void)program.form1().grab();
    QCoreApplication::processEvents();
    EXPECT_FALSE(isGreeted());
}

TEST_F(SheetTest, ASheetWithASongIsNotGreeted) {
    putNoteWithMark();
    begin();
    EXPECT_FALSE(isGreeted());
}

TEST_F(SheetTest, ASongThatBeginsEndsTheGreeting) {
    begin();
    program.form1().desk.enableTableaux(false);
    EXPECT_FALSE(isGreeted());
    program.form1().desk.enableTableaux(true);
}

TEST_F(SheetTest, LanesAreDrawnAgainWhenAnEditIsOver) {
    begin();
    EXPECT_EQ(lane(3), white);
    putNoteWithMark();
    EXPECT_EQ(lane(3), rgb(255, 0, 0));
    EXPECT_FALSE(isGreeted());
}

TEST_F(SheetTest, WithoutTheBeginningLanesStayAsTheEditLeavesThem) {
    putNoteWithMark();
    EXPECT_EQ(lane(3), white);
}

TEST_F(SheetTest, AHintSaysThatMarksAreLeft) {
    begin();
    putNoteWithMark();
    EXPECT_EQ(program.shortHint.text(), "");
    score.ClearNoteArrays();
    program.history.changeFinished();
    EXPECT_NE(program.shortHint.text().find(marksLeft), std::string::npos);
    program.shortHint.hide();
    score.ClearPolies();
    program.history.changeFinished();
    EXPECT_EQ(program.shortHint.text(), "");
}
