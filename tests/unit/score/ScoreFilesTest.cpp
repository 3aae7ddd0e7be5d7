// Opening and saving through the dialogs, and what the windows are told of a load.
#include "score/ScoreFiles.h"

#include "Recorders.h"
#include "ScoreFolder.h"
#include "Songs.h"
#include "platform/Text.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>

using namespace velorin;
using namespace velorin::test;
using testing::ElementsAre;

namespace {

class ScoreFilesTest : public testing::Test, public ScoreFolder {
protected:
    void answer(const std::string& name, int filter = 1) {
        host.dialogs.answers.push_back(platform::FileDialogAnswer{name, filter});
    }

    Log log;
    RecordingDesk desk{log};
    RecordingSetup setup{log};
    Studio studio{host.platform, setup};
    ScoreFiles files{studio, desk};
};

const std::string twelveRows = times(12, "-1\r\n0\r\n");

} // namespace

TEST_F(ScoreFilesTest, OpenShowsItsDialogAndReadsTheFile) {
    put("a.sng", gridLines("60,62", "24,24") + " 70 \r\n");
    answer("  " + at("a.sng") + " ");
    files.Command33_Click();
    EXPECT_THAT(host.dialogs.log,
                ElementsAre("open;Open Score File;Score Files (*.sng) |*.sng|;1004"));
    EXPECT_EQ(cells(studio.score.NoteArray, 0, 0, 1), "60,62");
    EXPECT_EQ(studio.score.CurrentFileName, platform::lowerCase(at("a.sng")));
}

TEST_F(ScoreFilesTest, OpenedNameIsKeptInLowerCaseAndFoundAllTheSame) {
    put("My Song.SNG", gridLines("60", "0"));
    answer(at("My Song.SNG"));
    files.Command33_Click();
    EXPECT_EQ(studio.score.NoteArray.at(0, 0), 60);
    EXPECT_TRUE(studio.score.CurrentFileName.ends_with("/my song.sng"));
    files.OpenFile(studio.score.CurrentFileName);
    EXPECT_EQ(studio.score.NoteArray.at(0, 0), 60);
}

TEST_F(ScoreFilesTest, OfTwoNamesThatDifferInCaseTheChosenOneIsOpened) {
    put("Song.sng", gridLines("60", "0"));
    put("song.sng", gridLines("61", "0"));
    answer(at("Song.sng"));
    files.Command33_Click();
    EXPECT_EQ(studio.score.NoteArray.at(0, 0), 60);
}

TEST_F(ScoreFilesTest, CancelledOpenAndMissingFileChangeNothing) {
    putRow(studio.score, 0, "60", 24);
    studio.score.CurrentFileName = "b.sng";
    host.dialogs.answers.emplace_back(std::nullopt);
    files.Command33_Click();
    answer(at("missing.sng"));
    files.Command33_Click();
    answer("   ");
    files.Command33_Click();
    EXPECT_EQ(studio.score.NoteArray.at(0, 0), 60);
    EXPECT_EQ(studio.score.CurrentFileName, "b.sng");
    EXPECT_TRUE(log.empty());
}

TEST_F(ScoreFilesTest, LoadTellsTheWindowsInItsOrder) {
    put("a.sng", gridLines("60", "24") + " 70 \r\n33,0,0,0,0,0,0,0,0,0,0,0,0\r\n");
    files.OpenPoliFile(at("a.sng"));
    EXPECT_THAT(log,
                ElementsAre("DrawPolyTableau", "main Combo1 33", "Combo1 33", "tempo label 70",
                            "tempo bar 70", "DrawNoteArray", "DrawBeatArray", "DrawPolyTableau"));
    log.clear();
    files.OpenFile(at("a.sng"));
    EXPECT_THAT(log, ElementsAre("main Combo1 33", "Combo1 33", "tempo label 70", "tempo bar 70",
                                 "DrawNoteArray", "DrawBeatArray"));
}

TEST_F(ScoreFilesTest, LoadedInstrumentIsTheOneThatStays) {
    const auto takeOn = [this] {
        studio.score.RowInstrument[0] = static_cast<std::int16_t>(setup.Combo1());
    };
    desk.onMainCombo1 = takeOn;
    setup.onCombo1 = takeOn;
    put("a.sng", gridLines("60", "33"));
    files.OpenFile(at("a.sng"));
    EXPECT_EQ(studio.score.RowInstrument[0], 33);
    EXPECT_EQ(setup.Combo1(), 33);
}

TEST_F(ScoreFilesTest, PercussionRowInHandLeavesTheListsAlone) {
    studio.score.CurrentRow = 8;
    put("a.sng", times(8, "-1\r\n0\r\n") + "60\r\n130\r\n");
    files.OpenFile(at("a.sng"));
    EXPECT_EQ(studio.score.RowInstrument[8], 130);
    EXPECT_EQ(setup.Combo1(), 24) << "the list has no entry 130";
}

TEST_F(ScoreFilesTest, TempoBelowTheBarsRangeStaysAndTheBarKeepsItsPlace) {
    put("a.sng", gridLines("60", "24") + " 5 \r\n");
    files.OpenFile(at("a.sng"));
    EXPECT_EQ(studio.score.Tempo, 5);
    EXPECT_EQ(setup.plain.tempo, 100);
}

TEST_F(ScoreFilesTest, FileWithPercussionMakesTheStripSmall) {
    put("a.sng", times(8, "-1\r\n0\r\n") + "60\r\n130\r\n");
    files.OpenFile(at("a.sng"));
    EXPECT_EQ(log.front(), "Beatbox 36");
}

TEST_F(ScoreFilesTest, LoadResetsTheViewAndLeavesSelectionRowAndBar) {
    studio.view.FirstColumn = 30;
    studio.view.VisibleColumns = 46;
    studio.view.LastVisibleColumn = 76;
    studio.score.StartColumn = 12;
    studio.score.SelectStart = 3;
    studio.score.CurrentRow = 2;
    setup.plain.row[4].hidden = true;
    put("a.sng", gridLines("60", "24"));
    files.OpenPoliFile(at("a.sng"));
    EXPECT_EQ(studio.view.FirstColumn, 0);
    EXPECT_EQ(studio.view.LastVisibleColumn, 46);
    EXPECT_EQ(studio.score.StartColumn, 0);
    EXPECT_EQ(studio.score.SelectStart, 3);
    EXPECT_EQ(studio.score.CurrentRow, 2);
    EXPECT_TRUE(setup.TrackHide(4));
}

TEST_F(ScoreFilesTest, PlainLoadStopsBehindTheRowInstruments) {
    studio.score.PolyArray.write(1, 0, 5);
    put("a.sng", gridLines("60", "24") + " 70 \r\n33,0\r\nPolyphonics\r\n" + times(8, "1\r\n"));
    files.OpenFile(at("a.sng"));
    EXPECT_EQ(studio.score.PolyArray.at(1, 0), 5);
    files.OpenPoliFile(at("a.sng"));
    EXPECT_EQ(studio.score.PolyArray.at(1, 0), 1);
}

TEST_F(ScoreFilesTest, FileThatCannotBeOpenedCountsAsAnEmptyOne) {
    putRow(studio.score, 0, "60", 24);
    studio.score.RowInstrument.fill(9);
    std::filesystem::create_directory(at("folder.sng"));
    files.OpenPoliFile(at("folder.sng"));
    EXPECT_EQ(studio.score.NoteArray.at(0, 0), -1);
    EXPECT_EQ(studio.score.RowInstrument[12], 0);
    EXPECT_EQ(setup.Combo1(), 0);
    EXPECT_EQ(log.back(), "DrawPolyTableau");
}

TEST_F(ScoreFilesTest, SaveShowsItsDialogOutsideTheTopMostState) {
    answer(at("a"), 2);
    files.mSaveAs_Click();
    EXPECT_THAT(host.dialogs.log,
                ElementsAre("save;Save music file;Midi(*.mid)|*.mid|score(*.sng)|*.sng;2006"));
    EXPECT_THAT(log, ElementsAre("leave top-most", "return to top-most"));
    EXPECT_TRUE(exists("a.sng"));
}

TEST_F(ScoreFilesTest, CancelledSaveLeavesTheWindowsOutOfTheTopMostState) {
    host.dialogs.answers.emplace_back(std::nullopt);
    files.Command34_Click();
    EXPECT_THAT(log, ElementsAre("leave top-most"));
}

TEST_F(ScoreFilesTest, FilterDecidesTheKindOfFile) {
    answer(at("a.sng"), 1);
    files.mSaveAs_Click();
    EXPECT_EQ(content("a.sng.mid").substr(0, 4), "MThd");
    answer(at("b.MID"), 1);
    files.mSaveAs_Click();
    EXPECT_TRUE(exists("b.MID"));
    answer(at("c.mid"), 2);
    files.mSaveAs_Click();
    EXPECT_EQ(content("c.mid.sng").substr(0, 4), "-1\r\n");
    answer(at("d.Sng"), 3);
    files.mSaveAs_Click();
    EXPECT_TRUE(exists("d.Sng"));
}

TEST_F(ScoreFilesTest, SavedNameLosesItsBlanksAndThenItsNul) {
    answer("  " + at("a.sng") + std::string(1, '\0'), 2);
    files.mSaveAs_Click();
    EXPECT_TRUE(exists("a.sng"));
}

TEST_F(ScoreFilesTest, SavedScoreIsTheOneInHandUnderTheNameThatWasGiven) {
    answer(at("My Song.sng"), 2);
    files.mSaveAs_Click();
    EXPECT_TRUE(exists("My Song.sng"));
    EXPECT_EQ(studio.score.CurrentFileName, at("My Song.sng"));
}

TEST_F(ScoreFilesTest, ExportLeavesTheFileInHand) {
    studio.score.CurrentFileName = "a.sng";
    answer(at("a"), 1);
    files.mSaveAs_Click();
    EXPECT_EQ(studio.score.CurrentFileName, "a.sng");
}

TEST_F(ScoreFilesTest, NewMidiFileIsTriedOutAndWaitedFor) {
    files.ExportMidiFile(at("a.mid"));
    EXPECT_EQ(content("a.mid").size(), 197U);
    EXPECT_EQ(host.time.now(), 200'000'000) << "0.2 seconds, to the tick";
}

TEST_F(ScoreFilesTest, NoFileStandsThereDuringTheWait) {
    bool stood = true;
    host.time.plan(100'000'000, [&] { stood = exists("a.mid"); });
    files.ExportMidiFile(at("a.mid"));
    EXPECT_FALSE(stood);
}

TEST_F(ScoreFilesTest, ExistingMidiFileIsNotWaitedForAndKeepsItsTail) {
    put("a.mid", std::string(300, 'x'));
    files.ExportMidiFile(at("a.mid"));
    EXPECT_EQ(host.time.now(), 0);
    EXPECT_EQ(content("a.mid").size(), 300U);
    EXPECT_EQ(content("a.mid").substr(197), std::string(103, 'x'));
}

TEST_F(ScoreFilesTest, ExportThatIsEndedInItsWaitIsWrittenAllTheSame) {
    host.time.plan(0, [this] { host.time.end(); });
    files.ExportMidiFile(at("a.mid"));
    EXPECT_EQ(content("a.mid").size(), 197U);
}

TEST_F(ScoreFilesTest, SavingAnOldFileLoadedWithItsOwnNameKeepsItsBytes) {
    const std::string whole = gridLines("60,1060", "24,24") + " 70 \r\n" +
                              "24,0,0,0,0,0,0,0,0,0,0,0,0\r\nPolyphonics\r\n" + times(8, "0,0\r\n");
    put("a.sng", whole);
    files.OpenPoliFile(at("a.sng"));
    files.SaveScoreFile(at("b.sng"));
    EXPECT_EQ(content("b.sng"), whole);
}

TEST_F(ScoreFilesTest, SavingUnderANameThatDiffersInCaseLeavesTheOtherFileAlone) {
    put("Song.sng", "other");
    files.SaveScoreFile(at("song.sng"));
    EXPECT_EQ(content("Song.sng"), "other");
    EXPECT_EQ(content("song.sng").substr(0, 4), "-1\r\n");
}

TEST_F(ScoreFilesTest, ExportingUnderANameThatDiffersInCaseLeavesTheOtherFileAlone) {
    put("keep.mid", std::string(300, 'x'));
    files.ExportMidiFile(at("KEEP.mid"));
    EXPECT_EQ(content("keep.mid"), std::string(300, 'x'));
    EXPECT_EQ(content("KEEP.mid").size(), 197U);
}
