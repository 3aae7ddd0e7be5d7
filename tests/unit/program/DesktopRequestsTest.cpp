// What the desktop asks: when it is carried out, and what becomes of several files.
#include "program/DesktopRequests.h"

#include "WholeProgram.h"
#include "model/ScoreWriter.h"

#include <gmock/gmock.h>

#include <QDialog>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QTimer>

#include <fstream>
#include <memory>
#include <string>

using namespace velorin;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class TheDesktopsRequests : public testing::Test {
protected:
    TheDesktopsRequests() {
        requests.activateWindow = [this](QWidget&, const std::string& token) {
            tokens.push_back(token);
        };
    }

    /// A score with one note of that pitch at the beginning.
    std::string score(const std::string& name, int pitch) {
        const auto file = host.folder.path() / name;
        Score made;
        made.NoteArray.write(0, 0, static_cast<std::int16_t>(pitch));
        std::ofstream(file) << scoreText(made);
        return file.string();
    }

    int firstPitch() { return program.studio().score.NoteArray.read(0, 0).value_or(-2); }

    void start() {
        ASSERT_TRUE(whole.isStarted);
        requests.begin();
    }

    static void processEvents() { QCoreApplication::processEvents(); }

    /// Runs the loop, which sleeps in between, until the score begins with that pitch.
    bool becomes(int pitch) {
        QElapsedTimer time;
        time.start();
        while (firstPitch() != pitch && time.elapsed() < 10'000) {
            QEventLoop loop;
            QTimer::singleShot(5, &loop, &QEventLoop::quit);
            loop.exec();
        }
        return firstPitch() == pitch;
    }

    WholeProgram whole;
    scripted::ScriptedPlatform& host = whole.host;
    Program& program = whole.program;
    DesktopRequests requests{program};
    std::vector<std::string> tokens;
};

} // namespace

TEST_F(TheDesktopsRequests, WaitForTheStart) {
    requests.open({score("a.sng", 60)}, "token");
    processEvents();
    EXPECT_EQ(firstPitch(), -1);
    start();
    processEvents();
    EXPECT_EQ(firstPitch(), 60);
    EXPECT_THAT(tokens, ElementsAre("token"));
}

TEST_F(TheDesktopsRequests, AreCarriedOutInOrder) {
    start();
    requests.open({score("a.sng", 60)}, "1");
    requests.activate("2");
    requests.open({score("b.sng", 62)}, "3");
    EXPECT_THAT(tokens, IsEmpty()) << "the caller has its answer first";
    processEvents();
    EXPECT_THAT(tokens, ElementsAre("1", "2", "3"));
    EXPECT_EQ(firstPitch(), 62);
}

TEST_F(TheDesktopsRequests, WaitForTheEndOfADialog) {
    start();
    auto dialog = std::make_unique<QDialog>();
    dialog->setModal(true);
    dialog->show();
    requests.open({score("a.sng", 60)}, "");
    processEvents();
    EXPECT_EQ(firstPitch(), -1);
    dialog.reset();
    EXPECT_TRUE(becomes(60));
}

TEST_F(TheDesktopsRequests, WaitForTheEndOfADrag) {
    start();
    program.studio().drag.MouseHeld = flagSet;
    requests.open({score("a.sng", 60)}, "");
    processEvents();
    EXPECT_EQ(firstPitch(), -1);
    program.studio().drag.MouseHeld = flagClear;
    EXPECT_TRUE(becomes(60));
}

TEST_F(TheDesktopsRequests, DoNotWaitForTheSong) {
    start();
    program.studio().run.IsPlaying = flagSet;
    requests.open({score("a.sng", 60)}, "");
    processEvents();
    EXPECT_EQ(firstPitch(), 60);
    program.studio().run.IsPlaying = flagClear;
}

TEST_F(TheDesktopsRequests, AreDroppedAtTheEnd) {
    start();
    requests.open({score("a.sng", 60)}, "");
    program.Command3_Click();
    processEvents();
    EXPECT_THAT(tokens, IsEmpty());
    EXPECT_EQ(firstPitch(), -1);
}

TEST_F(TheDesktopsRequests, BringBackAMinimisedWindow) {
    start();
    program.form1().setWindowState(Qt::WindowMinimized);
    requests.activate("");
    processEvents();
    EXPECT_FALSE(program.form1().isMinimized());
}

TEST_F(TheDesktopsRequests, KeepTheReplacedScoreInTheHistory) {
    start();
    program.studio().score.NoteArray.write(0, 0, 64);
    requests.open({score("a.sng", 60)}, "");
    processEvents();
    EXPECT_EQ(firstPitch(), 60);
    program.history.changeFinished();
    EXPECT_EQ(program.history.undo(), HistoryStep::done);
    EXPECT_EQ(firstPitch(), 64);
}

TEST_F(TheDesktopsRequests, OpenTheFirstScoreOfSeveralFiles) {
    start();
    requests.open({score("notes.txt", 59), score("A.SNG", 60), score("b.sng", 62)}, "");
    processEvents();
    EXPECT_EQ(firstPitch(), 60);
    EXPECT_EQ(program.shortHint.text(),
              "\"notes.txt\" and 1 more were not opened: only one file can be open.");
    requests.open({score("b.sng", 62), score("c.sng", 64)}, "");
    processEvents();
    EXPECT_EQ(firstPitch(), 62);
    EXPECT_EQ(program.shortHint.text(), "\"c.sng\" was not opened: only one file can be open.");
    EXPECT_THAT(host.notices.posted, IsEmpty());
}

TEST_F(TheDesktopsRequests, ReportAMissingScoreAndOpenTheNext) {
    start();
    requests.open({"/no/such/a.sng", score("b.sng", 62)}, "");
    processEvents();
    EXPECT_EQ(firstPitch(), 62);
    ASSERT_EQ(host.notices.posted.size(), 1U);
    EXPECT_EQ(host.notices.posted[0].text,
              "\"a.sng\" is not there any more, or not on this computer.");
}

TEST_F(TheDesktopsRequests, LeaveTheScoreIfThereIsNothingToOpen) {
    start();
    program.studio().score.NoteArray.write(0, 0, 64);
    requests.open({"smb://server/waltz.sng"}, "");
    requests.open({score("notes.txt", 59)}, "");
    processEvents();
    EXPECT_EQ(firstPitch(), 64);
    EXPECT_EQ(host.notices.posted.size(), 1U);
    EXPECT_EQ(program.shortHint.text(),
              "\"notes.txt\" cannot be opened. Velorin opens scores (.sng), MIDI files (.mid), "
              "and WAV and MP3 files.");
}
