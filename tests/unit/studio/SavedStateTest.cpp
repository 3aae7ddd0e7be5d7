// Which scores count as saved.
#include "studio/SavedState.h"

#include "../model/Songs.h"
#include "Recorders.h"
#include "ScoreFolder.h"
#include "platform/Text.h"
#include "studio/ScoreFiles.h"

#include <gtest/gtest.h>

using namespace velorin;
using namespace velorin::test;

namespace {

class SavedStateTest : public testing::Test, public ScoreFolder {
protected:
    SavedStateTest() { studio.desk = &desk; }

    [[nodiscard]] bool isSaved() const { return studio.saved.isSaved(studio.score); }

    Log log;
    RecordingDesk desk{log};
    Studio studio{host.platform};
    RecordingSetup setupView{studio.setup, log};
    velorin::Setup& setup = studio.setup;
    ScoreFiles files{studio};
};

} // namespace

TEST_F(SavedStateTest, NewScoreIsInNoFile) {
    EXPECT_FALSE(isSaved());
    putRow(studio.score, 0, "60", 24);
    EXPECT_FALSE(isSaved());
}

TEST_F(SavedStateTest, SavedScoreIsSavedUntilItChanges) {
    putRow(studio.score, 0, "60,1060", 24);
    files.SaveScoreFile(at("a.sng"));
    EXPECT_TRUE(isSaved());
    studio.score.NoteArray.write(0, 5, 62);
    EXPECT_FALSE(isSaved());
    studio.score.NoteArray.write(0, 5, -1);
    EXPECT_TRUE(isSaved()) << "the change was taken back";
    files.SaveScoreFile(at("a.sng"));
    studio.score.Tempo = 70;
    EXPECT_FALSE(isSaved());
    studio.score.Tempo = 100;
    studio.score.PolyArray.write(1, 1, 1);
    EXPECT_FALSE(isSaved());
}

TEST_F(SavedStateTest, SelectingAChannelLeavesTheScoreSaved) {
    putRow(studio.score, 0, "60", 24);
    files.SaveScoreFile(at("a.sng"));
    studio.score.RowInstrument[3] = 9; // as a click on the channel does
    EXPECT_TRUE(isSaved());
}

TEST_F(SavedStateTest, FailedSaveSavesNothing) {
    putRow(studio.score, 0, "60", 24);
    host.files.makeReadOnly(at("a.sng"));
    files.SaveScoreFile(at("a.sng"));
    EXPECT_FALSE(isSaved());
}

TEST_F(SavedStateTest, ExportSavesNoScore) {
    putRow(studio.score, 0, "60", 24);
    files.ExportMidiFile(at("a.mid"));
    EXPECT_FALSE(isSaved());
}

TEST_F(SavedStateTest, OpenedScoreIsSavedUntilItChanges) {
    put("a.sng", gridLines("60,62", "24,24") + " 70 \r\n");
    files.OpenPoliFile(at("a.sng"));
    EXPECT_TRUE(isSaved());
    studio.score.NoteArray.write(0, 0, 61);
    EXPECT_FALSE(isSaved());
    files.OpenFile(at("a.sng"));
    EXPECT_TRUE(isSaved());
}

TEST_F(SavedStateTest, FileThatCannotBeReadSavesNothing) {
    files.OpenPoliFile(at("missing.sng"));
    EXPECT_FALSE(isSaved());
}

TEST_F(SavedStateTest, KnowsTheFileAlsoOfAScoreThatIsSavedTwice) {
    putRow(studio.score, 0, "60", 24);
    files.SaveScoreFile(at("Song.SNG"));
    files.SaveScoreFile(at("Song.SNG"));
    EXPECT_EQ(studio.saved.fileNamed(platform::lowerCase(at("Song.SNG"))), at("Song.SNG"));
}

TEST_F(SavedStateTest, KnowsTheFileOfAScoreByItsNameInLowerCase) {
    EXPECT_EQ(studio.saved.fileNamed(""), "");
    files.SaveScoreFile(at("Song.SNG"));
    EXPECT_EQ(studio.saved.fileNamed(platform::lowerCase(at("Song.SNG"))), at("Song.SNG"));
    EXPECT_EQ(studio.saved.fileNamed(at("other.sng")), "");
    files.SaveScoreFile(at("song.sng"));
    EXPECT_EQ(studio.saved.fileNamed(at("song.sng")), "") << "there are two such files";
}
