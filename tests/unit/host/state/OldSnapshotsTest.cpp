// Scores that the version before the history kept are recovered once.
#include "host/state/OldSnapshots.h"

#include "HistoryStage.h"
#include "host/disk/FileLock.h"

namespace velorin::host::test {
namespace {

namespace fs = std::filesystem;

// Two files of that version.
constexpr char older[] = "59\r\nkept 7 6105490261222360115\r\n";
constexpr char newer[] = "60\r\nkept 8 9432901758445976928\r\n";

class OldSnapshotsTest : public HistoryStage {
protected:
    OldSnapshotsTest() { fs::create_directories(state); }
};

TEST_F(OldSnapshotsTest, LatestWholeTextOfEachRunComesBack) {
    put(state / "1-2-3.score", older);
    put(state / "1-2-3.8.part", newer);
    put(state / "1-2-3.9.part", "60,106");
    put(state / "1-2-3.lock", "");
    put(state / "notes.txt", "mine");
    const auto names = recover();
    ASSERT_EQ(names.size(), 1U);
    EXPECT_EQ(song(names[0]), "60\r\n");
    EXPECT_FALSE(recovered[0].endedCleanly);
    EXPECT_EQ(filesIn(state), 1);
    EXPECT_TRUE(recover().empty());
}

TEST_F(OldSnapshotsTest, OfARunWithoutItsLockEndedCleanly) {
    put(state / "1-2-3.score", newer);
    ASSERT_EQ(recover().size(), 1U);
    EXPECT_TRUE(recovered[0].endedCleanly);
}

TEST_F(OldSnapshotsTest, StayWhileTheFolderForScoresIsMissing) {
    put(state / "1-2-3.score", newer);
    fs::remove(songs);
    EXPECT_TRUE(recover().empty());
    EXPECT_NE(logged, "");
    fs::create_directory(songs);
    ASSERT_EQ(recover().size(), 1U);
    EXPECT_TRUE(recovered[0].endedCleanly);
}

TEST_F(OldSnapshotsTest, OfACopyThatIsRunningStay) {
    put(state / "1-2-3.score", newer);
    const Descriptor lock = lockFile(state / "1-2-3.lock");
    EXPECT_TRUE(recover().empty());
    EXPECT_EQ(filesIn(state), 2);
}

TEST(OldSnapshot, CutOrDamagedIsNotTaken) {
    const std::string bytes = newer;
    const auto whole = decodeOldSnapshot(bytes);
    ASSERT_TRUE(whole);
    EXPECT_EQ(whole->text, "60\r\n");
    EXPECT_EQ(whole->number, 8U);
    for (std::size_t length = 0; length < bytes.size(); ++length)
        EXPECT_FALSE(decodeOldSnapshot(bytes.substr(0, length))) << length;
    EXPECT_FALSE(decodeOldSnapshot("61" + bytes.substr(2)));
    EXPECT_FALSE(decodeOldSnapshot(std::string(4096, '\0')));
    EXPECT_FALSE(decodeOldSnapshot("60\r\nkept 1 2 \r\n"));
    EXPECT_FALSE(decodeOldSnapshot("60\r\nkept\r\n"));
}

} // namespace
} // namespace velorin::host::test
