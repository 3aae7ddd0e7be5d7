// The choice of a row, and a session that has no main window.
#include "session/Session.h"

#include "../playback/PlaybackStage.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

namespace velorin {
namespace {

using testing::ElementsAre;

struct ARowChoice : testing::Test, PlaybackStage {};

TEST_F(ARowChoice, MakesAMusicRowCurrentAndDrawsTheNotes) {
    session.TrackSel_Click(3);
    EXPECT_EQ(studio.score.CurrentRow, 3);
    EXPECT_EQ(sounding.SoundRow, 3);
    EXPECT_EQ(studio.view.HoverRow, 4);
    EXPECT_EQ(studio.view.DrawColor, studio.view.ChannelColor[3]);
    EXPECT_THAT(asked(), ElementsAre("0.000 DrawNoteArray"));
}

TEST_F(ARowChoice, MakesAPercussionRowCurrentAndDrawsTheBeats) {
    session.TrackSel_Click(9);
    EXPECT_EQ(studio.score.CurrentRow, 9);
    EXPECT_EQ(studio.view.DrawColor, studio.view.ChannelColor[9]);
    EXPECT_THAT(asked(), ElementsAre("0.000 DrawBeatArray"));
}

TEST_F(ARowChoice, GivesTheRowTheInstrumentInTheBox) {
    desk.instxt = "33";
    session.TrackSel_Click(3);
    EXPECT_EQ(studio.score.RowInstrument[3], 33);
}

TEST_F(ARowChoice, OfNoRowChangesNothing) {
    session.TrackSel_Click(3);
    (void)asked();
    for (const int row : {-1, 13}) {
        session.TrackSel_Click(row);
        EXPECT_EQ(studio.score.CurrentRow, 3) << row;
        EXPECT_EQ(sounding.SoundRow, 3) << row;
        EXPECT_THAT(asked(), ElementsAre()) << row;
    }
}

class ASessionWithoutAMainWindow : public testing::Test {
protected:
    ASessionWithoutAMainWindow() {
        session.studio.score.NoteArray.write(0, 0, 60);
        session.studio.score.NoteArray.write(0, 1, 64);
    }

    scripted::ScriptedPlatform host;
    Session session{host.platform};
    Score& score = session.studio.score;
};

// Index 60 is key 67, hex 43, and index 64 is key 63. A column lasts 0.12 s.
TEST_F(ASessionWithoutAMainWindow, PlaysItsSong) {
    session.sequencer.PlayTimer = session.watch.StopWatchNew();
    session.studio.setup.values.device = 1;
    session.sounding.Device_Click();
    host.midi.log.clear();
    session.sequencer.PlayAndStop_Click(0);
    EXPECT_THAT(host.midi.log, testing::Contains(testing::EndsWith("90 43 7F")));
    EXPECT_THAT(host.midi.log, testing::Contains(testing::EndsWith("90 3F 7F")));
    EXPECT_FALSE(session.studio.run.IsPlaying.isSet());
}

TEST_F(ASessionWithoutAMainWindow, EditsItsScore) {
    score.StartColumn = 0;
    session.edits.InsertColumnBut_Click(); // no window has a number of columns, so none
    EXPECT_EQ(score.NoteArray.at(0, 0), 60);
    score.SelectStart = 0;
    score.SelectEnd = 1;
    session.edits.copyIt();
    score.StartColumn = 5;
    session.edits.PasteBut_Click();
    EXPECT_EQ(score.NoteArray.at(0, 5), 60);
    EXPECT_EQ(score.NoteArray.at(0, 6), 64);
}

TEST_F(ASessionWithoutAMainWindow, SavesAndOpensItsScore) {
    const std::string name = (host.folder.path() / "a.sng").string();
    host.dialogs.answers.push_back(platform::FileDialogAnswer{name, 2});
    session.files.mSaveAs_Click();
    ASSERT_TRUE(std::filesystem::exists(name));
    score.ClearNoteArrays();
    session.files.OpenPoliFile(name);
    EXPECT_EQ(score.NoteArray.at(0, 0), 60);
    EXPECT_EQ(score.NoteArray.at(0, 1), 64);
}

} // namespace
} // namespace velorin
