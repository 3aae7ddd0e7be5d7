// Opening and saving through the dialogs, and the calls to the windows after a load.
#include "studio/ScoreFiles.h"

#include "../model/Songs.h"
#include "Recorders.h"
#include "ScoreFolder.h"
#include "platform/Text.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <utility>

using namespace velorin;
using namespace velorin::test;
using testing::ElementsAre;

namespace {

class ScoreFilesTest : public testing::Test, public ScoreFolder {
protected:
    ScoreFilesTest() { studio.desk = &desk; }

    void answer(const std::string& name, int filter = 1) {
        host.dialogs.answers.push_back(platform::FileDialogAnswer{name, filter});
    }

    Log log;
    RecordingDesk desk{log};
    Studio studio{host.platform};
    RecordingSetup setupView{studio.setup, log};
    velorin::Setup& setup = studio.setup;
    ScoreFiles files{studio};
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

TEST_F(ScoreFilesTest, OpenedNameIsStoredInLowerCaseAndStillFound) {
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

TEST_F(ScoreFilesTest, LoadUpdatesTheWindowsInOrder) {
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
    setupView.onCombo1 = takeOn;
    put("a.sng", gridLines("60", "33"));
    files.OpenFile(at("a.sng"));
    EXPECT_EQ(studio.score.RowInstrument[0], 33);
    EXPECT_EQ(setup.Combo1(), 33);
}

TEST_F(ScoreFilesTest, LoadWithAPercussionRowSelectedLeavesTheListsAlone) {
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
    EXPECT_EQ(std::count(log.begin(), log.end(), "tempo bar 5"), 0);
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
    setup.values.options.rows[4].hidden = true;
    put("a.sng", gridLines("60", "24"));
    files.OpenPoliFile(at("a.sng"));
    EXPECT_EQ(studio.view.FirstColumn, 0);
    EXPECT_EQ(studio.view.LastVisibleColumn, 46);
    EXPECT_EQ(studio.score.StartColumn, 0);
    EXPECT_EQ(studio.score.SelectStart, 3);
    EXPECT_EQ(studio.score.CurrentRow, 2);
    EXPECT_TRUE(setup.TrackHide(4));
}

TEST_F(ScoreFilesTest, PlainLoadStopsAfterTheRowInstruments) {
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

TEST_F(ScoreFilesTest, SavedNameBecomesTheCurrentFileNameAsGiven) {
    answer(at("My Song.sng"), 2);
    files.mSaveAs_Click();
    EXPECT_TRUE(exists("My Song.sng"));
    EXPECT_EQ(studio.score.CurrentFileName, at("My Song.sng"));
}

TEST_F(ScoreFilesTest, ExportKeepsTheCurrentFileName) {
    studio.score.CurrentFileName = "a.sng";
    answer(at("a"), 1);
    files.mSaveAs_Click();
    EXPECT_EQ(studio.score.CurrentFileName, "a.sng");
}

TEST_F(ScoreFilesTest, NewMidiFileIsTestedAndWaitedFor) {
    files.ExportMidiFile(at("a.mid"));
    EXPECT_EQ(content("a.mid").size(), 197U);
    EXPECT_EQ(host.time.now(), 200'000'000) << "0.2 seconds, to the tick";
}

TEST_F(ScoreFilesTest, NoFileExistsDuringTheWait) {
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

TEST_F(ScoreFilesTest, ExportWhoseWaitEndsWithTheProgramIsStillWritten) {
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

TEST_F(ScoreFilesTest, SavingAgainWritesTheFileThatWasOpened) {
    put("My Song.SNG", gridLines("60", "0"));
    answer(at("My Song.SNG"));
    files.Command33_Click();
    studio.score.NoteArray.write(0, 0, 62);
    EXPECT_TRUE(files.saveAgain());
    EXPECT_TRUE(content("My Song.SNG").starts_with("62"));
    EXPECT_FALSE(std::filesystem::exists(at("my song.sng")));
    EXPECT_TRUE(studio.saved.isSaved(studio.score));
}

TEST_F(ScoreFilesTest, SavingAgainNeedsAName) {
    EXPECT_FALSE(files.saveAgain());
    files.SaveScoreFile(at("a.sng"));
    EXPECT_TRUE(files.saveAgain());
    studio.score.CurrentFileName.clear(); // as a new score does
    EXPECT_FALSE(files.saveAgain());
}

TEST_F(ScoreFilesTest, SavingAgainLeavesAFileAloneThatDiffersInCase) {
    put("song.sng", gridLines("60", "0"));
    put("Song.sng", gridLines("61", "0"));
    answer(at("song.sng"));
    files.Command33_Click();
    answer(at("Song.sng"));
    files.Command33_Click();
    EXPECT_FALSE(files.saveAgain()) << "the dialog asks which one";
}

TEST_F(ScoreFilesTest, AScoreWithoutAFileIsShownFromItsStartAtItsMiddlePitch) {
    auto opened = std::make_unique<Score>();
    const int pitches[] = {72, 60, 64, 61, 70}; // the middle one is 64
    for (int column = 0; column < 5; ++column)
        opened->NoteArray.write(column % 2, column, static_cast<std::int16_t>(pitches[column]));
    RowArray<int> volumes{};
    volumes[1] = 90;
    studio.score.StartColumn = 20;
    studio.score.CurrentFileName = "old.sng";
    files.openUnnamed(*opened, volumes, "tune.mid");
    EXPECT_EQ(cells(studio.score.NoteArray, 0, 0, 4), "72,-1,64,-1,70");
    EXPECT_EQ(studio.score.StartColumn, 0);
    EXPECT_EQ(studio.score.CurrentFileName, "");
    EXPECT_EQ(setup.vol(1), "90");
    EXPECT_THAT(desk.views, ElementsAre(std::pair(0, 64)));
}

TEST_F(ScoreFilesTest, AScoreOfDrumsAloneHasNoMiddlePitch) {
    auto opened = std::make_unique<Score>();
    opened->NoteArray.write(8, 0, 57);
    files.openUnnamed(*opened, {}, "drums.mid");
    EXPECT_THAT(desk.views, ElementsAre(std::pair(0, -1)));
}
