// Nothing is lost by a save: what the file held lies beside it until the save has gone well.
#include "score/ScoreFiles.h"

#include "Recorders.h"
#include "ScoreFolder.h"
#include "Songs.h"

#include <gtest/gtest.h>

#include <ostream>
#include <streambuf>

using namespace velorin;
using namespace velorin::test;

namespace {

/// Real files on a disk that is full when told so.
class FullDisk final : public platform::Files {
public:
    explicit FullDisk(platform::Files& files) : files_(files) {}

    std::unique_ptr<std::istream> openForInput(const std::string& name) override {
        return files_.openForInput(name);
    }
    std::unique_ptr<std::ostream> openForOutput(const std::string& name) override {
        auto file = files_.openForOutput(name);
        return isFull && !givesRoomBack ? full(*file, 10) : std::move(file);
    }
    std::unique_ptr<std::ostream> openForBinary(const std::string& name) override {
        auto file = files_.openForBinary(name);
        return isFull ? full(*file, 10) : std::move(file);
    }
    std::unique_ptr<std::iostream> openForUpdate(const std::string& name) override {
        return files_.openForUpdate(name);
    }
    bool canRead(const std::string& name) override { return files_.canRead(name); }
    bool remove(const std::string& name) override { return files_.remove(name); }
    bool rename(const std::string& a, const std::string& b) override { return files_.rename(a, b); }
    bool copy(const std::string& a, const std::string& b) override {
        return takesCopies && files_.copy(a, b);
    }
    bool createFolder(const std::string& name) override { return files_.createFolder(name); }

    bool isFull = false;
    bool givesRoomBack = false; ///< a file that is emptied can be filled again
    bool takesCopies = true;

private:
    class Refusal final : public std::streambuf {};
    class RefusingStream final : public std::ostream {
    public:
        RefusingStream() : std::ostream(&refusal_) {}

    private:
        Refusal refusal_;
    };

    /// Some bytes reach the file, and no more.
    static std::unique_ptr<std::ostream> full(std::ostream& file, int bytes) {
        file << std::string(static_cast<std::size_t>(bytes), '#') << std::flush;
        return std::make_unique<RefusingStream>();
    }

    platform::Files& files_;
};

class KeptCopyTest : public testing::Test, public ScoreFolder {
protected:
    FullDisk disk{host.files};
    platform::Platform platform{host.platform.clock,
                                host.platform.loop,
                                host.platform.midi,
                                host.platform.mci,
                                host.platform.dialogs,
                                host.platform.boxes,
                                disk,
                                host.platform.settings,
                                host.platform.desktop,
                                host.platform.menus,
                                host.platform.timers,
                                host.platform.systemFiles,
                                host.platform.encoder,
                                host.platform.programFolder};
    Log log;
    RecordingDesk desk{log};
    RecordingSetup setup{log};
    Studio studio{platform, setup};
    ScoreFiles files{studio, desk};
};

} // namespace

TEST_F(KeptCopyTest, GoodSaveLeavesNoCopy) {
    put("a.sng", "old");
    files.SaveScoreFile(at("a.sng"));
    EXPECT_EQ(content("a.sng").substr(0, 4), "-1\r\n");
    EXPECT_EQ(content("a.sng.bak"), "no such file");
}

TEST_F(KeptCopyTest, FullDiskLeavesAPartialFileAndTheOldContentBesideIt) {
    put("a.sng", "old");
    disk.isFull = true;
    files.SaveScoreFile(at("a.sng"));
    EXPECT_EQ(content("a.sng"), "##########");
    EXPECT_EQ(content("a.sng.bak"), "old");
    EXPECT_TRUE(studio.score.CurrentFileName.ends_with("a.sng"));
}

TEST_F(KeptCopyTest, SecondFailedSaveDoesNotReplaceTheGoodCopyByThePartialFile) {
    put("a.sng", "old");
    disk.isFull = true;
    files.SaveScoreFile(at("a.sng"));
    files.SaveScoreFile(at("a.sng"));
    EXPECT_EQ(content("a.sng.bak"), "old");
}

TEST_F(KeptCopyTest, CopyOfAFailedSaveGoesWithTheNextGoodOne) {
    put("a.sng", "old");
    disk.isFull = true;
    files.SaveScoreFile(at("a.sng"));
    disk.isFull = false;
    files.SaveScoreFile(at("a.sng"));
    EXPECT_EQ(content("a.sng").substr(0, 4), "-1\r\n");
    EXPECT_EQ(content("a.sng.bak"), "no such file");
}

TEST_F(KeptCopyTest, WriteProtectedFileStaysAndSoDoesItsCopy) {
    put("a.sng", "old");
    host.files.makeReadOnly(at("a.sng"));
    files.SaveScoreFile(at("a.sng"));
    EXPECT_EQ(content("a.sng"), "old");
    EXPECT_EQ(content("a.sng.bak"), "old");
}

TEST_F(KeptCopyTest, LockedFolderLosesNothing) {
    put("a.sng", "old");
    host.files.makeReadOnly(host.folder.path().string());
    files.SaveScoreFile(at("a.sng"));
    EXPECT_EQ(content("a.sng"), "old");
}

TEST_F(KeptCopyTest, WhereNoCopyCanBePutTheOldContentGoesBackAfterAFailedExport) {
    put("a.mid", "old");
    disk.takesCopies = false;
    disk.isFull = true;
    disk.givesRoomBack = true;
    files.ExportMidiFile(at("a.mid"));
    EXPECT_EQ(content("a.mid"), "old");
}

TEST_F(KeptCopyTest, ExportOverALongerFileKeepsACopyUntilItHasGoneWell) {
    put("a.mid", "old");
    disk.isFull = true;
    files.ExportMidiFile(at("a.mid"));
    EXPECT_EQ(content("a.mid.bak"), "old");
    disk.isFull = false;
    files.ExportMidiFile(at("a.mid"));
    EXPECT_EQ(content("a.mid.bak"), "no such file");
}

TEST_F(KeptCopyTest, NewFileNeedsNoCopyAndTouchesNoFileOfThatName) {
    put("a.sng.bak", "of the user");
    files.SaveScoreFile(at("a.sng"));
    EXPECT_EQ(content("a.sng.bak"), "of the user");
}
