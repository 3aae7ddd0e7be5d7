// What the ways in which the program can end leave of the score.
#include "platform/KeptState.h"
#include "platform/Text.h"
#include "program/Form1.h"
#include "program/Program.h"
#include "resources/Look.h"
#include "score/ScoreWriter.h"
#include "support/ScriptedPlatform.h"

#include <gmock/gmock.h>

#include <QApplication>
#include <QLabel>
#include <QTest>
#include <QToolButton>

#include <fstream>
#include <optional>

using namespace velorin;

namespace {

class RecordingState final : public platform::KeptState {
public:
    void keep(const std::string& textGiven) override { text = textGiven; }
    void forget() override { text.reset(); }
    std::vector<platform::RecoveredText> recoverInto(const std::string& folderGiven) override {
        folder = folderGiven;
        return recovered;
    }

    std::optional<std::string> text;
    std::string folder;
    std::vector<platform::RecoveredText> recovered;
};

class KeptEndTest : public testing::Test {
protected:
    KeptEndTest() { host.platform.kept = &state; }
    void SetUp() override { applyLook(*qApp); }

    void startAndDraw(Program& program) {
        ASSERT_TRUE(program.start());
        program.studio().score.NoteArray.write(0, 4, 60);
        asItStood = keptText(program.studio().score);
    }

    [[nodiscard]] std::string songs() const { return host.folder.path().string() + "/Songs"; }

    scripted::ScriptedPlatform host;
    RecordingState state;
    std::string asItStood;
};

} // namespace

TEST_F(KeptEndTest, ExitCommandKeepsAScoreThatIsNotSaved) {
    Program program(host.platform);
    startAndDraw(program);
    program.Command3_Click();
    EXPECT_EQ(state.text, asItStood);
    EXPECT_EQ(program.exitStatus(), 0);
}

TEST_F(KeptEndTest, CloseButtonKeepsAScoreThatIsNotSaved) {
    Program program(host.platform);
    startAndDraw(program);
    program.form1().close();
    EXPECT_TRUE(program.hasEnded());
    EXPECT_EQ(state.text, asItStood);
}

TEST_F(KeptEndTest, ExitCommandLeavesNothingOfASavedScore) {
    Program program(host.platform);
    startAndDraw(program);
    program.form1().files.SaveScoreFile(songs() + "\\waltz.sng");
    program.Command3_Click();
    EXPECT_EQ(state.text, std::nullopt);
}

TEST_F(KeptEndTest, ExitCommandLeavesNothingOfAScoreThatWasOpenedAndNotChanged) {
    Program program(host.platform);
    startAndDraw(program);
    program.form1().files.SaveScoreFile(songs() + "\\waltz.sng");
    program.form1().files.OpenPoliFile(songs() + "\\waltz.sng");
    program.Command3_Click();
    EXPECT_EQ(state.text, std::nullopt);
}

TEST_F(KeptEndTest, ExitCommandKeepsWhatWasChangedAfterASave) {
    Program program(host.platform);
    startAndDraw(program);
    program.form1().files.SaveScoreFile(songs() + "\\waltz.sng");
    program.studio().score.NoteArray.write(0, 5, 62);
    asItStood = keptText(program.studio().score);
    program.Command3_Click();
    EXPECT_EQ(state.text, asItStood);
}

TEST_F(KeptEndTest, ExitCommandKeepsAScoreWhoseSaveFailed) {
    Program program(host.platform);
    startAndDraw(program);
    program.form1().files.SaveScoreFile(songs() + "\\no such folder\\waltz.sng");
    program.Command3_Click();
    EXPECT_EQ(state.text, asItStood);
}

TEST_F(KeptEndTest, MidiExportDoesNotSaveTheScore) {
    Program program(host.platform);
    startAndDraw(program);
    program.form1().files.ExportMidiFile(songs() + "\\waltz.mid");
    program.Command3_Click();
    EXPECT_EQ(state.text, asItStood);
}

TEST_F(KeptEndTest, ExitCommandLeavesNothingOfAScoreWithoutNotes) {
    Program program(host.platform);
    startAndDraw(program);
    program.studio().score.ClearNoteArrays();
    program.Command3_Click();
    EXPECT_EQ(state.text, std::nullopt);
}

TEST_F(KeptEndTest, ErrorPutsTheScoreAsideBeforeItIsTold) {
    Program program(host.platform);
    startAndDraw(program);
    program.endWithError("That cannot be.");
    EXPECT_EQ(state.text, asItStood);
    EXPECT_EQ(program.exitStatus(), 1);
}

TEST_F(KeptEndTest, ErrorPutsASavedScoreAsideToo) {
    Program program(host.platform);
    startAndDraw(program);
    program.form1().files.SaveScoreFile(songs() + "\\waltz.sng");
    program.endWithError("That cannot be.");
    EXPECT_EQ(state.text, asItStood);
}

TEST_F(KeptEndTest, EndSavesTheSettingsAndIsAnnounced) {
    Program program(host.platform);
    startAndDraw(program);
    EXPECT_FALSE(host.desktop.isEndAnnounced);
    program.Command3_Click();
    EXPECT_TRUE(host.desktop.isEndAnnounced);
    EXPECT_TRUE(host.settings.find("Settings", "form1 left").has_value());
}

TEST_F(KeptEndTest, ScoreRecoveredAfterACrashIsOfferedAsThat) {
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

TEST_F(KeptEndTest, ScoreThatWasNotSavedBeforeAnEndInOrderIsOfferedAsThat) {
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

TEST_F(KeptEndTest, NoticeOfARecoveredScoreStaysUntilTheUserClosesIt) {
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

TEST_F(KeptEndTest, NoticeOfARecoveredScoreLeavesTheHintWindowAlone) {
    state.recovered = {{"recovered 2026-01-02 03-04-05.sng", false}};
    Program program(host.platform);
    ASSERT_TRUE(program.start());
    host.notices.callback();
    host.time.pass(2'000'000'000);
    EXPECT_FALSE(program.hints.isLoaded());
}

TEST_F(KeptEndTest, ClickOnTheNoticeOfARecoveredScoreOpensItAsTheOpenCommandDoes) {
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

TEST_F(KeptEndTest, CloseButtonOfTheNoticeOpensNothing) {
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

TEST_F(KeptEndTest, RecoveredScoreThatIsGoneByThenIsReported) {
    state.recovered = {{"recovered.sng", false}};
    Program program(host.platform);
    startAndDraw(program);
    host.notices.callback();
    QTest::keyClick(program.notices.window(), Qt::Key_Return);
    EXPECT_EQ(keptText(program.studio().score), asItStood);
    ASSERT_TRUE(program.notices.window()->isVisible());
    EXPECT_THAT(program.notices.window()->findChild<QLabel*>("Label1")->text().toStdString(),
                testing::StartsWith("The score is not there any more."));
}
