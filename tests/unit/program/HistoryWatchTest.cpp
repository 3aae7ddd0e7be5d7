// When the message loop lets the history look for a change.
#include "program/HistoryWatch.h"

#include "history/History.h"
#include "session/Session.h"
#include "support/ScriptedPlatform.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QEventLoop>
#include <QTest>
#include <QTimer>
#include <QWidget>

using namespace velorin;

namespace {

/// Writes a cell of row 0 at each press and each move of the mouse, as a drag does.
class DrawingWidget : public QWidget {
public:
    explicit DrawingWidget(Score& score) : score_(score) { resize(200, 50); }

protected:
    void mousePressEvent(QMouseEvent*) override { draw(); }
    void mouseMoveEvent(QMouseEvent*) override { draw(); }

private:
    void draw() { score_.NoteArray.write(0, column_++, 60); }
    Score& score_;
    int column_ = 0;
};

/// Runs the loop until it has nothing to do and sleeps.
void letLoopRest() {
    QEventLoop loop;
    QTimer::singleShot(5, &loop, &QEventLoop::quit);
    loop.exec();
}

class HistoryWatchTest : public testing::Test {
protected:
    HistoryWatchTest() {
        history.begin();
        watch.start();
    }
    ~HistoryWatchTest() override { watch.stop(); }

    Score& score() { return session.studio.score; }

    scripted::ScriptedPlatform host;
    Session session{host.platform};
    History history{session.studio, session.files, nullptr};
    HistoryWatch watch{history};
};

} // namespace

TEST_F(HistoryWatchTest, DragIsOneChangeAndIsKeptWhenTheLoopComesToRest) {
    DrawingWidget widget(score());
    widget.show();
    QTest::mousePress(widget.windowHandle(), Qt::LeftButton, {}, QPoint(5, 5));
    letLoopRest();
    for (int x = 10; x < 60; x += 10)
        QTest::mouseMove(widget.windowHandle(), QPoint(x, 5));
    letLoopRest();
    EXPECT_TRUE(history.entries().empty());
    QTest::mouseRelease(widget.windowHandle(), Qt::LeftButton, {}, QPoint(60, 5));
    letLoopRest();
    EXPECT_EQ(history.entries().size(), 1U);
}

TEST_F(HistoryWatchTest, ChangeIsKeptBeforeTheNextPress) {
    DrawingWidget widget(score());
    widget.show();
    score().NoteArray.write(5, 5, 60);
    QTest::mousePress(&widget, Qt::LeftButton, {}, QPoint(5, 5));
    ASSERT_EQ(history.entries().size(), 1U);
    Score before;
    ASSERT_TRUE(history.read(history.entries()[0].state, before));
    EXPECT_EQ(before.NoteArray.read(0, 0), emptyCell);
    QTest::mouseRelease(&widget, Qt::LeftButton, {}, QPoint(5, 5));
}

TEST_F(HistoryWatchTest, SecondButtonDuringADragEndsNoChange) {
    DrawingWidget widget(score());
    widget.show();
    QTest::mousePress(widget.windowHandle(), Qt::LeftButton, {}, QPoint(5, 5));
    QTest::mousePress(widget.windowHandle(), Qt::RightButton, {}, QPoint(5, 5));
    EXPECT_TRUE(history.entries().empty());
    QTest::mouseRelease(widget.windowHandle(), Qt::RightButton, {}, QPoint(5, 5));
    QTest::mouseRelease(widget.windowHandle(), Qt::LeftButton, {}, QPoint(5, 5));
    letLoopRest();
    EXPECT_EQ(history.entries().size(), 1U);
}

TEST_F(HistoryWatchTest, ChangeIsKeptBeforeTheNextKey) {
    QWidget widget;
    widget.show();
    score().NoteArray.write(5, 5, 60);
    QTest::keyClick(&widget, Qt::Key_A);
    EXPECT_EQ(history.entries().size(), 1U);
}

TEST_F(HistoryWatchTest, NothingIsKeptAfterItIsStopped) {
    watch.stop();
    score().NoteArray.write(5, 5, 60);
    letLoopRest();
    EXPECT_TRUE(history.entries().empty());
}
