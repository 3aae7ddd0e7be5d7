// A save or an export that fails changes no file and is reported to the user.
#include "studio/SaveFailure.h"
#include "studio/ScoreFiles.h"

#include "../model/Songs.h"
#include "Recorders.h"
#include "ScoreFolder.h"

#include <gtest/gtest.h>

#include <filesystem>

using namespace velorin;
using namespace velorin::test;
using platform::WriteError;

namespace {

class FailedSaveTest : public testing::Test, public ScoreFolder {
protected:
    FailedSaveTest() { studio.desk = &desk; }

    /// The text of the only notice since the last call.
    std::string notice() {
        EXPECT_EQ(host.notices.posted.size(), 1U);
        const auto posted = host.notices.take();
        return posted ? posted->text : "no notice";
    }

    Log log;
    RecordingDesk desk{log};
    Studio studio{host.platform};
    RecordingSetup setupView{studio.setup, log};
    velorin::Setup& setup = studio.setup;
    ScoreFiles files{studio};
};

} // namespace

TEST_F(FailedSaveTest, FullDiskKeepsTheOldFileAndIsReported) {
    put("a.sng", "old");
    host.files.writeError = WriteError::diskFull;
    files.SaveScoreFile(at("a.sng"));
    EXPECT_EQ(content("a.sng"), "old");
    EXPECT_EQ(notice(), "\"a.sng\" was not saved: the disk is full. Make room and save again.");
    EXPECT_TRUE(studio.score.CurrentFileName.ends_with("a.sng"));
}

TEST_F(FailedSaveTest, FullDiskKeepsTheOldExportAndIsReported) {
    put("a.mid", std::string(300, 'x'));
    host.files.writeError = WriteError::diskFull;
    files.ExportMidiFile(at("a.mid"));
    EXPECT_EQ(content("a.mid"), std::string(300, 'x'));
    EXPECT_EQ(notice(), "\"a.mid\" was not saved: the disk is full. Make room and save again.");
}

TEST_F(FailedSaveTest, NewNameLeavesNoFile) {
    host.files.writeError = WriteError::diskFull;
    files.SaveScoreFile(at("a.sng"));
    files.ExportMidiFile(at("a.mid"));
    EXPECT_TRUE(std::filesystem::is_empty(host.folder.path()));
}

TEST_F(FailedSaveTest, MissingFolderIsReported) {
    files.SaveScoreFile(at("gone/a.sng"));
    EXPECT_EQ(notice(),
              "\"a.sng\" was not saved: its folder is not there. Save it in another folder.");
    files.ExportMidiFile(at("gone\\a.mid"));
    EXPECT_EQ(notice(),
              "\"a.mid\" was not saved: its folder is not there. Save it in another folder.");
}

TEST_F(FailedSaveTest, ReadOnlyFileStaysAndIsReported) {
    put("a.sng", "old");
    host.files.makeReadOnly(at("a.sng"));
    files.SaveScoreFile(at("a.sng"));
    EXPECT_EQ(content("a.sng"), "old");
    EXPECT_EQ(notice(), "\"a.sng\" was not saved: the file or its disk is read-only. Save it under "
                        "another name or in another folder.");
}

TEST_F(FailedSaveTest, FolderOfTheNameIsReported) {
    std::filesystem::create_directory(at("a.sng"));
    files.SaveScoreFile(at("a.sng"));
    EXPECT_EQ(notice(),
              "\"a.sng\" was not saved: a folder or a device has this name. Save it under another "
              "name.");
}

TEST_F(FailedSaveTest, EveryOtherReasonHasItsSentence) {
    EXPECT_EQ(saveFailureText("a.sng", WriteError::notAllowed),
              "\"a.sng\" was not saved: you may not write to its folder. Save it in another "
              "folder.");
    EXPECT_EQ(saveFailureText("a.sng", WriteError::nameTooLong),
              "\"a.sng\" was not saved: the name is too long. Save it under a shorter name.");
    EXPECT_EQ(saveFailureText("a.sng", WriteError::damaged),
              "\"a.sng\" was not saved: the disk failed, and the file that was there is damaged. "
              "Save it in another folder before you go on.");
    EXPECT_EQ(saveFailureText("a.sng", WriteError::other),
              "\"a.sng\" was not saved: the disk reported an error. Save it in another folder.");
}

TEST_F(FailedSaveTest, SaveThatSucceedsSaysNothing) {
    files.SaveScoreFile(at("a.sng"));
    files.ExportMidiFile(at("a.mid"));
    EXPECT_TRUE(host.notices.posted.empty());
}

TEST_F(FailedSaveTest, FilesOfTheUserBesideTheScoreStay) {
    put("a.sng", "old");
    put("a.sng.bak", "of the user");
    put("a.sng.bak.part", "of the user too");
    put("a.mid", "old");
    put("a.mid.bak", "of the user");
    files.SaveScoreFile(at("a.sng"));
    files.ExportMidiFile(at("a.mid"));
    host.files.writeError = WriteError::diskFull;
    files.SaveScoreFile(at("a.sng"));
    EXPECT_EQ(content("a.sng.bak"), "of the user");
    EXPECT_EQ(content("a.sng.bak.part"), "of the user too");
    EXPECT_EQ(content("a.mid.bak"), "of the user");
}
