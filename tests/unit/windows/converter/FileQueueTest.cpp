// The list of files and its conversions, on real files.
#include "windows/converter/FileQueue.h"
#include "ConverterStage.h"

#include <gmock/gmock.h>

#include <fstream>

using testing::ElementsAre;
using testing::IsEmpty;

namespace velorin {
namespace {

constexpr int score = 5;

struct FileQueueTest : testing::Test, ConverterStage {
    [[nodiscard]] std::vector<std::string> spoken() const {
        std::vector<std::string> rows;
        for (int row = 0; row < queue.rowCount(); ++row)
            rows.push_back(
                queue.data(queue.index(row), Qt::AccessibleTextRole).toString().toStdString());
        return rows;
    }
    [[nodiscard]] std::vector<FileState> states() const {
        std::vector<FileState> all;
        for (int row = 0; row < queue.rowCount(); ++row)
            all.push_back(queue.file(row)->state);
        return all;
    }
    void run(std::size_t kind, const fs::path& into = {}) {
        queue.start({kind, into});
        processUntil([this] { return !queue.isWorking(); });
    }

    FileQueue queue{{}};
};

TEST_F(FileQueueTest, FileIsInTheListOnce) {
    EXPECT_EQ(queue.add({song("a.sng"), folder / "." / "a.sng", song("b.sng")}), 2);
    EXPECT_EQ(queue.add({folder / "a.sng"}), 0);
    EXPECT_THAT(spoken(), ElementsAre("a.sng, waiting", "b.sng, waiting"));
}

TEST_F(FileQueueTest, EachFileIsMadeBesideItself) {
    queue.add({song("a.sng"), song("sub/b.sng")});
    run(midi);
    EXPECT_TRUE(begins("a.mid", "MThd"));
    EXPECT_TRUE(begins("sub/b.mid", "MThd"));
    EXPECT_THAT(states(), ElementsAre(FileState::done, FileState::done));
    EXPECT_THAT(FileQueue::resultName(*queue.file(0)), "a.mid");
    EXPECT_EQ(queue.total().made, 2);
    EXPECT_EQ(queue.total().share, 1.0);
}

TEST_F(FileQueueTest, OthersAreMadeWhileDamagedFilesFailWithASentence) {
    std::ofstream(folder / "noise.sng") << "no score\n";
    std::ofstream(folder / "cut.sng") << "60\r\n24\r\n-1\r\n0\r\n";
    std::ofstream(folder / "noise.mid") << "no music";
    queue.add({folder / "noise.sng", song("a.sng"), folder / "cut.sng", folder / "noise.mid"});
    run(wav);
    EXPECT_THAT(states(), ElementsAre(FileState::failed, FileState::done, FileState::failed,
                                      FileState::failed));
    EXPECT_EQ(FileQueue::words(*queue.file(0)), "The file is not a score.");
    EXPECT_EQ(FileQueue::words(*queue.file(2)), "The file ends in line 4; a score has 37 lines.");
    EXPECT_EQ(FileQueue::words(*queue.file(3)), "The file is not a MIDI file.");
    EXPECT_EQ(FileQueue::resultName(*queue.file(0)), "not made");
    EXPECT_EQ(queue.total().failed, 3);
    EXPECT_THAT(files(), ElementsAre("a.sng", "a.wav", "cut.sng", "noise.mid", "noise.sng"));
}

TEST_F(FileQueueTest, NothingThatExistsIsOverwritten) {
    std::ofstream(folder / "a.mid") << "mine";
    queue.add({song("a.sng")});
    run(midi);
    EXPECT_TRUE(begins("a.mid", "mine"));
    EXPECT_TRUE(begins("a-2.mid", "MThd"));
    queue.makeAllWait();
    run(midi);
    EXPECT_TRUE(begins("a-3.mid", "MThd"));
}

TEST_F(FileQueueTest, FilesOfOneNameHaveTheirOwnNamesInAFolder) {
    queue.add({song("x/a.sng"), song("y/a.sng")});
    run(midi, folder / "made");
    EXPECT_TRUE(begins("made/a.mid", "MThd"));
    EXPECT_TRUE(begins("made/a-2.mid", "MThd"));
}

TEST_F(FileQueueTest, MidiFileIsReadIntoAScoreAndHasAReport) {
    queue.add({song("a.sng")});
    run(midi);
    queue.clear();
    queue.add({folder / "a.mid"});
    run(wav);
    ASSERT_EQ(queue.file(0)->state, FileState::done);
    EXPECT_TRUE(begins("a.wav", "RIFF"));
    EXPECT_EQ(FileQueue::words(*queue.file(0)), "MIDI file, read into a score first");
    EXPECT_EQ(queue.file(0)->result->report.front().text, "All 4 notes were kept.");
    queue.makeAllWait();
    run(score);
    EXPECT_EQ(FileQueue::resultName(*queue.file(0)), "a-2.sng");
    EXPECT_EQ(FileQueue::words(*queue.file(0)), "MIDI file, read into a score");
}

TEST_F(FileQueueTest, FailedFilesAreTriedAgainAndMadeOnesAreNot) {
    std::ofstream(folder / "b.sng") << "no score\n";
    queue.add({song("a.sng"), folder / "b.sng"});
    run(midi);
    EXPECT_TRUE(queue.canStart());
    song("b.sng");
    run(midi);
    EXPECT_THAT(states(), ElementsAre(FileState::done, FileState::done));
    EXPECT_THAT(files(), ElementsAre("a.mid", "a.sng", "b.mid", "b.sng"));
    EXPECT_FALSE(queue.canStart());
    EXPECT_EQ(queue.total().all, 1);
}

TEST_F(FileQueueTest, WaitingFileLeavesTheListAndOneAtWorkIsStopped) {
    queue.add({longSong("long.sng"), song("a.sng")});
    queue.takeOut(1);
    EXPECT_THAT(spoken(), ElementsAre("long.sng, waiting"));
    queue.start({wav, {}});
    processUntil([this] { return hasPart() && queue.file(0)->share > 0.0; });
    queue.takeOut(0);
    EXPECT_EQ(FileQueue::words(*queue.file(0)), "stopping");
    processUntil([this] { return !queue.isWorking(); });
    EXPECT_EQ(FileQueue::words(*queue.file(0)), "stopped; nothing was left behind");
    EXPECT_THAT(files(), ElementsAre("a.sng", "long.sng"));
    queue.takeOut(0);
    EXPECT_EQ(queue.rowCount(), 0);
}

TEST_F(FileQueueTest, CancelLeavesWhatIsMadeAndNothingElse) {
    for (int i = 0; i < 12; ++i)
        queue.add({longSong("long" + std::to_string(i) + ".sng")});
    queue.start({wav, {}});
    processUntil([this] { return hasPart(); });
    queue.cancel();
    processUntil([this] { return !queue.isWorking(); });
    EXPECT_THAT(states(), testing::Each(FileState::waiting));
    EXPECT_THAT(files(), testing::SizeIs(12));
    EXPECT_TRUE(queue.canStart());
}

TEST_F(FileQueueTest, FilesAddedDuringARunJoinIt) {
    queue.add({longSong("long.sng")});
    queue.start({midi, {}});
    queue.add({song("a.sng")});
    processUntil([this] { return !queue.isWorking(); });
    EXPECT_THAT(states(), testing::Each(FileState::done));
    EXPECT_EQ(queue.total().all, 2);
}

TEST_F(FileQueueTest, DestroyedQueueLeavesNothingHalfMade) {
    {
        FileQueue own({});
        own.add({longSong("long.sng")});
        own.start({wav, {}});
        processUntil([this] { return hasPart(); });
    }
    EXPECT_THAT(files(), ElementsAre("long.sng"));
}

TEST_F(FileQueueTest, LengthIsKnownWhileItWorksAndWhenItIsDone) {
    queue.add({song("a.sng")});
    run(midi);
    EXPECT_THAT(FileQueue::words(*queue.file(0)),
                testing::MatchesRegex("0:0[0-9]  \u00b7  1 KB, 1 second"));
    EXPECT_THAT(spoken()[0], testing::StartsWith("a.sng, done, a.mid, 0:0"));
}

} // namespace
} // namespace velorin
