// The program's start and end in their order, on a scripted host.
#include "program/Program.h"
#include "support/ScriptedPlatform.h"
#include "windows/frame/Look.h"
#include "windows/main/Form1.h"

#include <gmock/gmock.h>

#include <QApplication>
#include <QTimer>

#include <filesystem>
#include <fstream>

using testing::ElementsAre;
using testing::IsEmpty;

namespace velorin {
namespace {

struct ProgramTest : testing::Test {
    void SetUp() override { applyLook(*qApp); }

    std::string setting(const std::string& key) {
        return host.settings.find("Settings", key).value_or("none");
    }

    bool exists(const std::string& name) {
        return std::filesystem::exists(host.folder.path() / name);
    }

    scripted::ScriptedPlatform host;
    Program program{host.platform};
};

constexpr scripted::Nanoseconds seconds(double s) {
    return static_cast<scripted::Nanoseconds>(s * 1e9);
}

TEST_F(ProgramTest, AFirstStartHoldsTheValuesOfTheTable) {
    ASSERT_TRUE(program.start());
    Studio& studio = program.studio();
    EXPECT_EQ(studio.score.Tempo, 100);
    EXPECT_EQ(studio.score.CurrentRow, 0);
    EXPECT_EQ(program.session.sounding.SoundRow, 0);
    EXPECT_EQ(program.session.sounding.Velocity, 127);
    EXPECT_EQ(studio.score.RowInstrument[0], 24);
    EXPECT_EQ(studio.setup.Combo5(), 0);
    EXPECT_EQ(studio.score.StartColumn, 0);
    EXPECT_EQ(studio.view.TopPitch, 55);
    EXPECT_EQ(studio.score.SelectStart, -1);
    EXPECT_EQ(studio.score.SelectEnd, -1);
    EXPECT_EQ(studio.run.ShowNotePosition, flagSet);
    EXPECT_EQ(studio.run.LoadingMain, flagClear);
    EXPECT_EQ(program.session.sequencer.PlayTimer, 1);
    EXPECT_EQ(program.form1().desk.text(MainText::Instxt), "24");
}

TEST_F(ProgramTest, AFirstStartShowsTheMainWindowAndTheSetupToolbar) {
    ASSERT_TRUE(program.start());
    EXPECT_TRUE(program.form1().isVisible());
    EXPECT_TRUE(program.window("Form3", false)->isVisible());
    EXPECT_EQ(program.window("openerF", false), nullptr);
    EXPECT_FLOAT_EQ(program.form1().place.Left(), 100.0F);
    EXPECT_FLOAT_EQ(program.form1().place.Top(), 200.0F);
    EXPECT_FLOAT_EQ(program.form1().place.Width(), 1024 * 15 - 200);
    EXPECT_FLOAT_EQ(program.form1().place.Height(), 768 * 15 - 400);
    EXPECT_EQ(program.windows.focus.current(), nullptr);
    EXPECT_TRUE(exists("Songs"));
    EXPECT_FALSE(exists("media"));
}

TEST_F(ProgramTest, TheSplashStandsBeforeTheMainWindowIsMade) {
    bool shown = false;
    QTimer::singleShot(0, qApp, [&] { // by the events that paint the splash
        const QWidget* splash = program.window("openerF", false);
        shown =
            splash != nullptr && splash->isVisible() && program.window("Form1", false) == nullptr;
    });
    program.start();
    EXPECT_TRUE(shown);
}

TEST_F(ProgramTest, AnEndDuringTheSplashLeavesTheSettingsAlone) {
    QTimer::singleShot(0, qApp, [this] { program.Command3_Click(); });
    program.start();
    EXPECT_TRUE(program.hasEnded());
    EXPECT_EQ(program.window("Form1", false), nullptr);
    EXPECT_THAT(host.midi.log, IsEmpty());
    EXPECT_EQ(setting("form1 left"), "none");
}

TEST_F(ProgramTest, AnEndAfterTheMainWindowIsMadeLeavesTheSettingsAloneToo) {
    QTimer each;
    QObject::connect(&each, &QTimer::timeout, [this] {
        for (const QWidget* window : QApplication::topLevelWidgets()) {
            if (window->objectName() == "Form1")
                return program.Command3_Click();
        }
    });
    each.start(0);
    program.start();
    EXPECT_TRUE(program.hasEnded());
    EXPECT_EQ(program.window("Form1", false), nullptr);
    EXPECT_THAT(host.midi.log, IsEmpty());
    EXPECT_EQ(setting("form1 left"), "none");
}

// The last of what the start sends: the device reopened, and channel 0 on program 24 (18 hex).
TEST_F(ProgramTest, TheStartOpensTheDeviceAndSelectsTheInstrument) {
    ASSERT_TRUE(program.start());
    ASSERT_GE(host.midi.log.size(), 5U);
    const std::vector<std::string> last(host.midi.log.end() - 5, host.midi.log.end());
    EXPECT_THAT(last, ElementsAre("0.000 close", "0.000 open 0", "0.000 B0 00 00", "0.000 B0 20 00",
                                  "0.000 C0 18"));
}

TEST_F(ProgramTest, ASecondCopySaysSoAndEnds) {
    host.desktop.anotherCopy = true;
    EXPECT_FALSE(program.start());
    EXPECT_TRUE(program.hasEnded());
    EXPECT_THAT(host.boxes.log, ElementsAre("information;Velorin;Velorin is already running."));
    EXPECT_THAT(host.midi.log, IsEmpty());
    EXPECT_EQ(setting("form1 left"), "none");
}

TEST_F(ProgramTest, TheSettingForm3LeavesTheSetupToolbarLoadedAndHidden) {
    host.settings.SaveSetting("Settings", "Form3", "False");
    ASSERT_TRUE(program.start());
    ASSERT_NE(program.window("Form3", false), nullptr);
    EXPECT_FALSE(program.window("Form3", false)->isVisible());
    EXPECT_EQ(program.studio().run.Form3Open, flagSet);
}

TEST_F(ProgramTest, TheSettingsPlaceTheWindowAndHideTheTableaux) {
    host.settings.SaveSetting("Settings", "FORM1 LEFT", "450");
    host.settings.SaveSetting("Settings", "form1 Top", "300");
    host.settings.SaveSetting("Settings", "form1 Width", "9600");
    host.settings.SaveSetting("Settings", "form1 height", "7200");
    host.settings.SaveSetting("Settings", "Percussion", "False");
    host.settings.SaveSetting("Settings", "Polyphonics", "False");
    ASSERT_TRUE(program.start());
    EXPECT_EQ(program.form1().geometry(), QRect(30, 20, 640, 480));
    EXPECT_EQ(program.studio().view.VisibleColumns, 46);
    EXPECT_TRUE(program.form1().area->Beatbox->isHidden());
    EXPECT_EQ(program.studio().view.PolyOpen, flagClear);
}

TEST_F(ProgramTest, AWindowIsNeverPlacedWhereNoScreenShowsIt) {
    host.settings.SaveSetting("Settings", "form1 left", "400000");
    host.settings.SaveSetting("Settings", "form1 top", "no number");
    host.settings.SaveSetting("Settings", "form1 width", "-12");
    ASSERT_TRUE(program.start());
    EXPECT_FLOAT_EQ(program.form1().place.Left(), (1024 - 1011) * 15.0F);
    EXPECT_FLOAT_EQ(program.form1().place.Top(), 200.0F);
    EXPECT_FLOAT_EQ(program.form1().place.Width(), 1024 * 15 - 200);
}

TEST_F(ProgramTest, AMainWindowWhoseTitleNoScreenShowsComesBack) {
    host.settings.SaveSetting("Settings", "form1 left", "-5000"); // shows its right half
    host.settings.SaveSetting("Settings", "form1 top", "-8700");  // pixel -580
    ASSERT_TRUE(program.start());
    EXPECT_EQ(program.form1().pos(), QPoint(0, 0));
}

TEST_F(ProgramTest, APlaceThatNoDesktopHasIsTheFirstOne) {
    host.settings.SaveSetting("Settings", "form1 left", "600000");
    ASSERT_TRUE(program.start());
    EXPECT_FLOAT_EQ(program.form1().place.Left(), 100.0F);
    EXPECT_FLOAT_EQ(program.form1().place.Top(), 200.0F);
}

TEST_F(ProgramTest, TheEndClosesTheDeviceOnceAndSavesTheSettings) {
    ASSERT_TRUE(program.start());
    host.midi.log.clear();
    host.mci.log.clear();
    program.form1().resize(640, 480);
    program.Command3_Click();
    EXPECT_TRUE(program.hasEnded());
    EXPECT_TRUE(host.time.isEnding());
    EXPECT_FALSE(program.form1().isVisible());
    EXPECT_EQ(program.window("Form3", false), nullptr);
    EXPECT_THAT(host.midi.log, ElementsAre("0.000 close"));
    EXPECT_THAT(host.mci.log, ElementsAre("0.000 close all"));
    EXPECT_EQ(setting("form1 left"), "100");
    EXPECT_EQ(setting("form1 width"), "9600");
    EXPECT_EQ(setting("form1 height"), "7200");
    EXPECT_EQ(setting("Percussion"), "True");
    EXPECT_EQ(setting("Polyphonics"), "True");
    EXPECT_EQ(setting("Form3"), "True");
    EXPECT_EQ(setting("Devices"), "0");
    EXPECT_EQ(setting("Playing position"), "none"); // the Editing Toolbar writes it
}

TEST_F(ProgramTest, TheEndRemovesEachSampleFileWithAWait) {
    ASSERT_TRUE(program.start());
    std::filesystem::create_directory(host.folder.path() / "media");
    for (const char* name : {"101.sng", "333.mid", "other.sng"})
        std::ofstream(host.folder.path() / "media" / name) << "x";
    program.Command3_Click();
    EXPECT_FALSE(exists("media/101.sng"));
    EXPECT_FALSE(exists("media/333.mid"));
    EXPECT_TRUE(exists("media/other.sng"));
    EXPECT_EQ(host.time.stamp(), "0.400"); // two files, 0.2 seconds each
}

TEST_F(ProgramTest, TheExitEndsASongThatPlays) {
    ASSERT_TRUE(program.start());
    program.studio().score.NoteArray.write(0, 500, 60);
    host.time.plan(seconds(1.0), [this] { program.form1().Cmd2_Click(14); });
    program.form1().Cmd2_Click(6);
    EXPECT_TRUE(program.hasEnded());
    EXPECT_EQ(host.time.stamp(), "1.000");
}

TEST_F(ProgramTest, TheExitEndsAHintThatWaits) {
    ASSERT_TRUE(program.start());
    program.form1().Cmd2_MouseMove(6, 0);
    program.Command3_Click();
    EXPECT_TRUE(program.hasEnded());
    EXPECT_FALSE(program.hints.isLoaded());
}

TEST_F(ProgramTest, AnErrorThatEndsTheRunIsSaidAndReturned) {
    ASSERT_TRUE(program.start());
    program.endWithError("The volume box is missing.");
    EXPECT_THAT(host.boxes.log, ElementsAre("critical;Velorin;The volume box is missing."));
    EXPECT_TRUE(program.hasEnded());
    EXPECT_EQ(program.exitStatus(), 1);
    EXPECT_EQ(setting("form1 left"), "100");
}

} // namespace
} // namespace velorin
