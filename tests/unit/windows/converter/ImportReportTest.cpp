// The report of an import in plain words.
#include "windows/converter/ImportReport.h"

#include "importing/MidiImport.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

using testing::ElementsAre;

namespace velorin {
namespace {

struct ImportReportTest : testing::Test {
    ImportReportTest() {
        import.pieces.resize(1);
        for (int row = 0; row < scoreRows; ++row)
            import.pieces[0].volumes[row] = 127;
        import.account.notes = 1510;
        import.account.exact = 1510;
    }
    [[nodiscard]] std::vector<std::string> lines(bool losesVolumes = false) const {
        constexpr const char* marks[] = {"kept: ", "moved: ", "left out: ", "joined: "};
        std::vector<std::string> texts;
        for (const ReportLine& line : importReport(import, losesVolumes))
            texts.push_back(marks[static_cast<int>(line.mark)] + line.text);
        return texts;
    }

    importing::Import import;
};

TEST_F(ImportReportTest, SaysThatAllNotesWereKept) {
    EXPECT_THAT(lines(), ElementsAre("kept: All 1,510 notes were kept."));
}

TEST_F(ImportReportTest, SaysWhatMovedWhatWasLeftOutAndWhatWasJoined) {
    import.account.exact = 1270;
    import.account.moved = 212;
    import.account.largestMoveMs = 31.4;
    import.account.crowded = 20;
    import.account.unknownDrums = 8;
    import.account.merged = 1;
    import.leftOut.bends = 12;
    import.leftOut.exclusive = 1;
    EXPECT_THAT(
        lines(),
        ElementsAre("kept: 1,482 of 1,510 notes were kept.",
                    "moved: 212 of them moved to the next column, by 31 ms at most.",
                    "left out: 28 notes were left out: 20 because more than eight begin at once "
                    "and 8 because there is no such drum.",
                    "left out: A score has no place for 12 pitch bends and 1 message for a "
                    "certain device.",
                    "joined: 1 note sounds as one with an equal note."));
}

TEST_F(ImportReportTest, ScoreFileLosesTheVolumes) {
    EXPECT_THAT(lines(true), testing::SizeIs(1));
    import.pieces[0].volumes[3] = 90;
    EXPECT_THAT(lines(false), testing::SizeIs(1));
    EXPECT_THAT(lines(true)[1],
                "left out: A score file has no volumes; all channels play at full volume.");
}

TEST_F(ImportReportTest, SaysThatAFileIsDamagedAndThatASongBecameSeveralScores) {
    import.isWhole = false;
    import.pieces.resize(3);
    EXPECT_THAT(lines(), ElementsAre("kept: All 1,510 notes were kept.",
                                     "left out: The file is damaged; what comes after the damage "
                                     "is missing.",
                                     "joined: The music is too long for one score, so it became "
                                     "3."));
}

} // namespace
} // namespace velorin
