// The ways to stop sound that only the whole program has: windows, mouse, recording, file player,
// tutorial and exit. Notes that stay without a note-off are listed case by case.
#include "program/Program.h"
#include "support/NoteLedger.h"
#include "support/ScriptedPlatform.h"
#include "windows/frame/Look.h"
#include "windows/main/Form1.h"
#include "windows/setup/Form3.h"

#include <gtest/gtest.h>

#include <QApplication>

#include <functional>

namespace velorin {
namespace {

using Lines = std::vector<std::string>;
const Lines none;

constexpr int left = 1;
constexpr int right = 2;

/// A program that has started, with a view that begins at column 0 and pitch index 55. A column
/// lasts 0.12 s.
struct SilenceOfTheProgram : testing::Test {
    void SetUp() override {
        applyLook(*qApp);
        ASSERT_TRUE(program.start());
        program.form1().resize(640, 480);
        studio().view.TopPitch = 55;
        host.midi.log.clear();
    }

    void TearDown() override {
        host.time.dropPlanned();
        program.Command3_Click();
    }

    Studio& studio() { return program.studio(); }
    Form1& form1() { return program.form1(); }

    /// A note of `length` columns: pitch index 60 is key 67.
    void write(int row, int column, int pitch, int length, int instrument = 0) {
        for (int c = column; c < column + length; ++c) {
            const int cell = c == column ? pitch : heldCell(pitch);
            studio().score.NoteArray.write(row, c, static_cast<std::int16_t>(cell));
            studio().score.InstrumentArray.write(row, c, static_cast<std::int16_t>(instrument));
        }
    }

    void at(double seconds, std::function<void()> run) {
        host.time.plan(static_cast<scripted::Nanoseconds>(seconds * 1e9), std::move(run));
    }

    Lines sounding() {
        ledger.read(host.midi.log);
        return ledger.left();
    }

    /// Plays a note of ten columns on row 0, does something during it, and returns the notes that
    /// still sound when the song is over.
    Lines leftByPlaying(std::function<void()> within) {
        write(0, 0, 60, 10);
        at(0.40, std::move(within));
        program.session.sequencer.PlayAndStop_Click(0);
        return sounding();
    }

    scripted::ScriptedPlatform host;
    Program program{host.platform};
    scripted::NoteLedger ledger;
};

TEST_F(SilenceOfTheProgram, IsCompleteAfterEachButtonAndMenuEntryThatStops) {
    EXPECT_EQ(leftByPlaying([this] { form1().Cmd2_Click(7); }), none);
    EXPECT_EQ(leftByPlaying([this] { form1().Cmd2_Click(8); }), none);
    EXPECT_EQ(leftByPlaying([this] { form1().pressEditButton(7); }), none);
    EXPECT_EQ(leftByPlaying([this] { form1().Cmd2_Click(1); }), none) << "clear";
    EXPECT_GE(ledger.begun(), 4);
}

TEST_F(SilenceOfTheProgram, IsCompleteAfterTheExitThoughTheSongIsBrokenOff) {
    EXPECT_EQ(leftByPlaying([this] { program.Command3_Click(); }), none);
    EXPECT_EQ(ledger.begun(), 1);
    host.time.pass(10 * scripted::nanosecondsPerSecond);
    EXPECT_EQ(sounding(), none);
    EXPECT_EQ(ledger.begun(), 1);
}

TEST_F(SilenceOfTheProgram, IsCompleteAfterAnEndByAnError) {
    EXPECT_EQ(leftByPlaying([this] { program.endWithError("That cannot be."); }), none);
    EXPECT_EQ(ledger.begun(), 1);
}

TEST_F(SilenceOfTheProgram, IsCompleteAfterTheMainWindowIsClosed) {
    EXPECT_EQ(leftByPlaying([this] { form1().close(); }), none);
    EXPECT_TRUE(program.hasEnded());
}

TEST_F(SilenceOfTheProgram, IsCompleteWhicheverToolWindowIsClosedWhileASongPlays) {
    for (const Tool tool : {Tool::editing, Tool::recording, Tool::tutorial, Tool::setup}) {
        program.windows.show(tool);
        EXPECT_EQ(leftByPlaying([this, tool] { program.windows.unload(tool); }), none)
            << static_cast<int>(tool);
    }
}

// The next note loads the Setup Toolbar again, which opens the device again.
TEST_F(SilenceOfTheProgram, IsBroughtByAClosedSetupToolbarBeforeTheSongEnds) {
    write(0, 0, 60, 10);
    at(0.40, [this] { program.windows.unload(Tool::setup); });
    at(0.55, [this] { EXPECT_EQ(sounding(), none); });
    program.session.sequencer.PlayAndStop_Click(0);
    EXPECT_EQ(sounding(), none);
}

TEST_F(SilenceOfTheProgram, LacksTheNoteOfARowThatIsHiddenWithItsBox) {
    EXPECT_EQ(leftByPlaying([this] { program.setup.form().TrackHide[0]->setChecked(true); }),
              (Lines{"0:67"}));
}

TEST_F(SilenceOfTheProgram, IsCompleteAfterAHiddenRowIsShownAgain) {
    EXPECT_EQ(leftByPlaying([this] {
                  program.setup.form().TrackHide[0]->setChecked(true);
                  at(0.30, [this] { program.setup.form().TrackHide[0]->setChecked(false); });
              }),
              none);
}

TEST_F(SilenceOfTheProgram, LacksWhatAPauseLeavesUntilTheDeviceIsOpenedAnew) {
    EXPECT_EQ(leftByPlaying([this] { form1().pressEditButton(6); }), (Lines{"0:67"}));
    studio().setup.setCombo2(2); // another device
    EXPECT_EQ(sounding(), none);
}

TEST_F(SilenceOfTheProgram, IsCompleteAfterAScoreIsOpenedWhileAnotherPlays) {
    EXPECT_EQ(leftByPlaying([this] { program.tutorial.tutorial.loadSample("\\media\\101.sng"); }),
              none);
}

struct SilenceOfTheMouse : SilenceOfTheProgram {
    void SetUp() override {
        SilenceOfTheProgram::SetUp();
        write(1, 2, 62, 1);      // key 65
        write(8, 2, 57, 1, 130); // key 37
    }

    // In the third column, on the line of pitch index 57, key 70.
    void press() { form1().musicMouse.MusicBox_MouseDown(left, 0, 30, 30); }
    void release(double x = 30) { form1().musicMouse.MusicBox_MouseUp(left, 0, x, 30); }
};

TEST_F(SilenceOfTheMouse, LacksTheOtherRowsOfAColumnThatWasClicked) {
    press();
    EXPECT_EQ(sounding(), (Lines{"0:70", "1:65", "9:37"}));
    release();
    EXPECT_EQ(sounding(), (Lines{"1:65", "9:37"}));
}

TEST_F(SilenceOfTheMouse, IsCompleteAfterADrag) {
    press();
    form1().musicMouse.MusicBox_MouseMove(left, 0, 60, 30);
    release(60);
    EXPECT_EQ(sounding(), none);
}

TEST_F(SilenceOfTheMouse, IsCompleteForAChordOfItsRowsBox) {
    studio().score.NoteArray.write(1, 2, emptyCell);
    studio().score.NoteArray.write(8, 2, emptyCell);
    studio().setup.setCh(0, true);
    press();
    EXPECT_EQ(sounding(), (Lines{"0:70", "0:73", "0:77", "0:82"}));
    release();
    EXPECT_EQ(sounding(), none);
}

// The press uses the mark after the column, the release the one before it.
TEST_F(SilenceOfTheMouse, LacksAChordThatAMarkAloneHasMade) {
    studio().score.NoteArray.write(1, 2, emptyCell);
    studio().score.NoteArray.write(8, 2, emptyCell);
    studio().score.PolyArray.write(1, 3, 1);
    press();
    release();
    EXPECT_EQ(sounding(), (Lines{"0:73", "0:77", "0:82"}));
    program.session.sounding.Command32_Click();
    EXPECT_EQ(sounding(), none);
}

TEST_F(SilenceOfTheMouse, LacksANoteThatWasHeldWhenASongBegan) {
    press();
    write(3, 0, 60, 3);
    at(0.20, [this] { release(); }); // counts for nothing while a song plays
    program.session.sequencer.PlayAndStop_Click(0);
    EXPECT_EQ(sounding(), (Lines{"0:70", "9:37 x2"})) << "the song has ended that of row 1";
}

TEST_F(SilenceOfTheMouse, IsCompleteOnTheStripButForStrokes) {
    PercussionTableau& strip = form1().percussion;
    strip.Beatbox_MouseDown(left, 0, 30, 6); // this press only selects the group
    strip.Beatbox_MouseUp(left, 0, 30, 6);
    program.session.sounding.Combo5_Click();
    host.midi.log.clear();
    strip.Beatbox_MouseDown(left, 0, 30, 6);
    EXPECT_EQ(sounding(), (Lines{"1:65", "9:35"}));
    strip.Beatbox_MouseUp(left, 0, 30, 6);
    EXPECT_EQ(sounding(), (Lines{"9:35"}));
}

TEST_F(SilenceOfTheMouse, IsNotBrokenByAnErasingClick) {
    form1().musicMouse.MusicBox_MouseDown(right, 0, 30, 30);
    form1().musicMouse.MusicBox_MouseUp(right, 0, 30, 30);
    EXPECT_EQ(sounding(), none);
}

struct SilenceOfTheRecordingToolbar : SilenceOfTheProgram {
    void SetUp() override {
        SilenceOfTheProgram::SetUp();
        program.windows.show(Tool::recording);
        host.midi.log.clear();
    }
};

TEST_F(SilenceOfTheRecordingToolbar, IsCompleteAfterARecordingStoppedByHand) {
    write(0, 0, 60, 10);
    at(0.40, [this] { program.recording.capture.Cmdrecord_Click(); });
    program.recording.capture.Cmdrecord_Click();
    EXPECT_EQ(sounding(), none);
    EXPECT_EQ(ledger.begun(), 1);
}

TEST_F(SilenceOfTheRecordingToolbar, IsCompleteAfterARecordingStoppedByItsPicture) {
    write(0, 0, 60, 10);
    at(0.40, [this] {
        studio().run.RecordingFlag = flagClear;
        program.recording.capture.CmdStart_Click();
    });
    program.recording.capture.Cmdrecord_Click();
    EXPECT_EQ(sounding(), none);
    EXPECT_EQ(ledger.begun(), 1);
}

TEST_F(SilenceOfTheRecordingToolbar, IsCompleteAfterARecordingThatEndsWithItsSong) {
    write(0, 0, 60, 3);
    program.recording.capture.Cmdrecord_Click();
    EXPECT_EQ(sounding(), none);
    EXPECT_EQ(ledger.begun(), 1);
}

TEST_F(SilenceOfTheRecordingToolbar, IsCompleteAfterThePlayersStop) {
    program.recording.setText(RecordText::Text6, "a.sng");
    write(0, 0, 60, 10);
    at(0.40, [this] { program.recording.player.Command4_Click(3); });
    program.recording.player.Command4_Click(1);
    EXPECT_EQ(sounding(), none);
    EXPECT_EQ(ledger.begun(), 1);
}

TEST_F(SilenceOfTheRecordingToolbar, IsCompleteWhenAMidFileBegins) {
    const std::string name = (host.folder.path() / "a.mid").string();
    ASSERT_TRUE(host.files.openForOutput(name));
    leftByPlaying([this] { form1().pressEditButton(6); });
    ASSERT_EQ(sounding(), (Lines{"0:67"}));
    program.recording.setText(RecordText::Text6, name);
    at(0.10, [this] { studio().run.SoundFinished = flagSet; });
    program.recording.player.RunMidiFile();
    EXPECT_EQ(sounding(), none);
}

TEST_F(SilenceOfTheProgram, IsCompleteAfterALessonThatPlaysIsStopped) {
    host.settings.SaveSetting("Settings", "Show tips", "0");
    program.windows.show(Tool::tutorial);
    constexpr int composition = 0;
    program.tutorial.performStep(composition, 1); // loads a melody of 37 columns at tempo 70
    host.midi.log.clear();
    at(1.00, [this] { program.session.sequencer.PlayAndStop_Click(1); });
    program.tutorial.performStep(composition, 6); // plays it
    EXPECT_EQ(sounding(), none);
    EXPECT_GT(ledger.begun(), 2);
    EXPECT_EQ(studio().run.IsPlaying, flagClear);
}

} // namespace
} // namespace velorin
