// What the ways in which the program can end leave of the score.
#include "platform/KeptState.h"
#include "program/Form1.h"
#include "program/Program.h"
#include "resources/Look.h"
#include "score/ScoreWriter.h"
#include "shell/frminfo.h"
#include "support/ScriptedPlatform.h"

#include <gtest/gtest.h>

#include <QApplication>

#include <optional>

using namespace velorin;

namespace {

class RecordingState final : public platform::KeptState {
public:
    void keep(const std::string& textGiven) override { text = textGiven; }
    void forget() override { text.reset(); }
    std::vector<std::string> recoverInto(const std::string& folderGiven) override {
        folder = folderGiven;
        return recovered;
    }

    std::optional<std::string> text;
    std::string folder;
    std::vector<std::string> recovered;
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

    scripted::ScriptedPlatform host;
    RecordingState state;
    std::string asItStood;
};

} // namespace

TEST_F(KeptEndTest, ExitCommandLeavesNothing) {
    Program program(host.platform);
    startAndDraw(program);
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

TEST_F(KeptEndTest, SignalPutsTheScoreAsideAndEndsInTheUsualOrder) {
    Program program(host.platform);
    startAndDraw(program);
    program.endFromOutside();
    EXPECT_EQ(state.text, asItStood);
    EXPECT_EQ(program.exitStatus(), 0);
    EXPECT_TRUE(host.settings.find("Settings", "form1 left").has_value());
}

TEST_F(KeptEndTest, RecoveredScoreIsToldOfInAHintWindow) {
    state.recovered = {"recovered 2026-01-02 03-04-05.sng"};
    Program program(host.platform);
    ASSERT_TRUE(program.start());
    EXPECT_EQ(state.folder, host.folder.path().string() + "\\Songs");
    host.time.pass(1'500'000'000);
    ASSERT_TRUE(program.hints.isLoaded());
    EXPECT_TRUE(program.hints.window()->isVisible());
    program.Command3_Click();
}
