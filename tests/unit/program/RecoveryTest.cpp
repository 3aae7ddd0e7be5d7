// The score that the next start recovers after each way in which the program can end.
#include "model/ScoreWriter.h"
#include "platform/Text.h"
#include "program/Program.h"
#include "support/ScriptedHistory.h"
#include "support/ScriptedPlatform.h"
#include "windows/frame/Look.h"
#include "windows/main/Form1.h"

#include <gmock/gmock.h>

#include <QApplication>
#include <QLabel>
#include <QTest>
#include <QToolButton>

#include <fstream>
#include <optional>

using namespace velorin;

namespace {

class RecoveryTest : public testing::Test {
protected:
    RecoveryTest() { host.platform.history = &state; }
    void SetUp() override { applyLook(*qApp); }

    void startAndDraw(Program& program) {
        ASSERT_TRUE(program.start());
        program.studio().score.NoteArray.write(0, 4, 60);
        asItStood = exactText(program.studio().score);
    }

    [[nodiscard]] std::string songs() const { return host.folder.path().string() + "/Songs"; }

    scripted::ScriptedPlatform host;
    scripted::ScriptedHistory state;
    std::string asItStood;
};

} // namespace

TEST_F(RecoveryTest, ExitCommandKeepsAScoreThatIsNotSaved) {
    Program program(host.platform);
    startAndDraw(program);
    program.Command3_Click();
    EXPECT_EQ(state.toRecover(), asItStood);
    EXPECT_EQ(program.exitStatus(), 0);
}

TEST_F(RecoveryTest, CloseButtonKeepsAScoreThatIsNotSaved) {
    Program program(host.platform);
    startAndDraw(program);
    program.form1().close();
    EXPECT_TRUE(program.hasEnded());
    EXPECT_EQ(state.toRecover(), asItStood);
}

TEST_F(RecoveryTest, ExitCommandLeavesNothingOfASavedScore) {
    Program program(host.platform);
    startAndDraw(program);
    program.session.files.SaveScoreFile(songs() + "\\waltz.sng");
    program.Command3_Click();
    EXPECT_EQ(state.toRecover(), std::nullopt);
}

TEST_F(RecoveryTest, ExitCommandLeavesNothingOfAScoreThatWasOpenedAndNotChanged) {
    Program program(host.platform);
    startAndDraw(program);
    program.session.files.SaveScoreFile(songs() + "\\waltz.sng");
    program.session.files.OpenPoliFile(songs() + "\\waltz.sng");
    program.Command3_Click();
    EXPECT_EQ(state.toRecover(), std::nullopt);
}

TEST_F(RecoveryTest, ExitCommandKeepsWhatWasChangedAfterASave) {
    Program program(host.platform);
    startAndDraw(program);
    program.session.files.SaveScoreFile(songs() + "\\waltz.sng");
    program.studio().score.NoteArray.write(0, 5, 62);
    asItStood = exactText(program.studio().score);
    program.Command3_Click();
    EXPECT_EQ(state.toRecover(), asItStood);
}

TEST_F(RecoveryTest, ExitCommandKeepsAScoreWhoseSaveFailed) {
    Program program(host.platform);
    startAndDraw(program);
    program.session.files.SaveScoreFile(songs() + "\\no such folder\\waltz.sng");
    program.Command3_Click();
    EXPECT_EQ(state.toRecover(), asItStood);
}

TEST_F(RecoveryTest, MidiExportDoesNotSaveTheScore) {
    Program program(host.platform);
    startAndDraw(program);
    program.session.files.ExportMidiFile(songs() + "\\waltz.mid");
    program.Command3_Click();
    EXPECT_EQ(state.toRecover(), asItStood);
}

TEST_F(RecoveryTest, ExitCommandLeavesNothingOfAScoreWithoutNotes) {
    Program program(host.platform);
    startAndDraw(program);
    program.studio().score.ClearNoteArrays();
    program.Command3_Click();
    EXPECT_EQ(state.toRecover(), std::nullopt);
}

TEST_F(RecoveryTest, ErrorPutsTheScoreAsideBeforeItIsTold) {
    Program program(host.platform);
    startAndDraw(program);
    program.endWithError("That cannot be.");
    EXPECT_EQ(state.toRecover(), asItStood);
    EXPECT_EQ(program.exitStatus(), 1);
}

TEST_F(RecoveryTest, ErrorPutsASavedScoreAsideToo) {
    Program program(host.platform);
    startAndDraw(program);
    program.session.files.SaveScoreFile(songs() + "\\waltz.sng");
    program.endWithError("That cannot be.");
    EXPECT_EQ(state.toRecover(), asItStood);
}

TEST_F(RecoveryTest, EndSavesTheSettingsAndIsAnnounced) {
    Program program(host.platform);
    startAndDraw(program);
    EXPECT_FALSE(host.desktop.isEndAnnounced);
    program.Command3_Click();
    EXPECT_TRUE(host.desktop.isEndAnnounced);
    EXPECT_TRUE(host.settings.find("Settings", "form1 left").has_value());
}

TEST_F(RecoveryTest, ScoreRecoveredAfterACrashIsOfferedAsThat) {
    state.recovered = {{"recovered 2026-01-02 03-04-05.sng", false}};
    Program program(host.platform);
    ASSERT_TRUE(program.start());
    EXPECT_EQ(state.folder, songs());
    ASSERT_EQ(host.notices.posted.size(), 1U);
    EXPECT_EQ(host.notices.posted[0].text,
              "Velorin did not end in order the last time. Nothing is lost: the score is in "
              "\"Songs\" as\r\n\"recovered 2026-01-02 03-04-05.sng\". Click here to open it.");
    EXPECT_EQ(host.notices.posted[0].scoreToOpen, songs() + "\\recovered 2026-01-02 03-04-05.sng");
}

TEST_F(RecoveryTest, ScoreThatWasNotSavedBeforeAnEndInOrderIsOfferedAsThat) {
    state.recovered = {{"recovered 2026-01-02 03-04-05.sng", true},
                       {"recovered 2026-01-02 03-04-06.sng", false}};
    Program program(host.platform);
    ASSERT_TRUE(program.start());
    ASSERT_EQ(host.notices.posted.size(), 2U) << "one for each";
    EXPECT_EQ(host.notices.posted[0].text,
              "The score that was open when Velorin ended was not saved. It is in \"Songs\" as\r\n"
              "\"recovered 2026-01-02 03-04-05.sng\". Click here to open it.");
    EXPECT_EQ(host.notices.posted[1].scoreToOpen, songs() + "\\recovered 2026-01-02 03-04-06.sng");
}

TEST_F(RecoveryTest, NoticeOfARecoveredScoreStaysUntilTheUserClosesIt) {
    state.recovered = {{"recovered.sng", false}};
    Program program(host.platform);
    ASSERT_TRUE(program.start());
    host.notices.callback();
    const QWidget* notice = program.notices.window();
    ASSERT_NE(notice, nullptr);
    host.time.pass(3600'000'000'000);
    EXPECT_TRUE(notice->isVisible());
    program.Command3_Click();
    EXPECT_FALSE(notice->isVisible());
}

TEST_F(RecoveryTest, NoticeOfARecoveredScoreLeavesTheHintWindowAlone) {
    state.recovered = {{"recovered 2026-01-02 03-04-05.sng", false}};
    Program program(host.platform);
    ASSERT_TRUE(program.start());
    host.notices.callback();
    host.time.pass(2'000'000'000);
    EXPECT_FALSE(program.hints.isLoaded());
}

TEST_F(RecoveryTest, ClickOnTheNoticeOfARecoveredScoreOpensItAsTheOpenCommandDoes) {
    state.recovered = {{"Recovered.sng", false}};
    Program program(host.platform);
    ASSERT_TRUE(program.start());
    Score drawn;
    drawn.NoteArray.write(0, 0, 60);
    std::ofstream(host.folder.path() / "Songs" / "Recovered.sng") << keptText(drawn);
    host.notices.callback();
    QTest::mouseClick(program.notices.window(), Qt::LeftButton, {}, {30, 20});
    EXPECT_FALSE(program.notices.window()->isVisible());
    EXPECT_EQ(program.studio().score.NoteArray.read(0, 0), 60);
    EXPECT_EQ(program.studio().score.CurrentFileName,
              platform::lowerCase(songs() + "\\Recovered.sng"));
}

TEST_F(RecoveryTest, CloseButtonOfTheNoticeOpensNothing) {
    state.recovered = {{"recovered.sng", false}};
    Program program(host.platform);
    ASSERT_TRUE(program.start());
    std::ofstream(host.folder.path() / "Songs" / "recovered.sng") << "60\r\n";
    host.notices.callback();
    program.notices.window()->findChild<QToolButton*>("imgTitleClose")->click();
    EXPECT_FALSE(program.notices.window()->isVisible());
    EXPECT_EQ(program.studio().score.NoteArray.read(0, 0), -1);
    EXPECT_EQ(program.studio().score.CurrentFileName, "");
}

TEST_F(RecoveryTest, RecoveredScoreThatIsGoneByThenIsReported) {
    state.recovered = {{"recovered.sng", false}};
    Program program(host.platform);
    startAndDraw(program);
    host.notices.callback();
    QTest::keyClick(program.notices.window(), Qt::Key_Return);
    EXPECT_EQ(exactText(program.studio().score), asItStood);
    ASSERT_TRUE(program.notices.window()->isVisible());
    EXPECT_THAT(program.notices.window()->findChild<QLabel*>("Label1")->text().toStdString(),
                testing::StartsWith("The score is not there any more."));
}
