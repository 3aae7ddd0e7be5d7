// Names and folders of exports.
#include "windows/export/ExportPlace.h"

#include "support/ScriptedFiles.h"

#include <gtest/gtest.h>

namespace velorin {
namespace {

TEST(ExportPlaceTest, ProposedNameIsThatOfTheScore) {
    EXPECT_EQ(proposedExportName("/home/ann/Songs/Paper-Boat.sng"), "Paper-Boat");
    EXPECT_EQ(proposedExportName("/home/ann\\Songs\\boat.SNG"), "boat");
    EXPECT_EQ(proposedExportName("boat.2.sng"), "boat.2");
    EXPECT_EQ(proposedExportName(""), "Untitled");
    EXPECT_EQ(proposedExportName("/home/ann/ .sng"), "Untitled");
}

TEST(ExportPlaceTest, AFolderInTheHomeFolderIsShownWithoutIt) {
    EXPECT_EQ(shownFolder("/home/ann/Music/Velorin", "/home/ann"), "Music/Velorin");
    EXPECT_EQ(shownFolder("/home/ann", "/home/ann"), "~");
    EXPECT_EQ(shownFolder("/home/anna/Music", "/home/ann"), "/home/anna/Music");
    EXPECT_EQ(shownFolder("/mnt/stick", "/home/ann"), "/mnt/stick");
    EXPECT_EQ(shownFolder("/mnt/stick", "/"), "/mnt/stick");
}

TEST(ExportPlaceTest, AShownFolderIsTheSameFolderWhenItIsTyped) {
    for (const char* const folder : {"/home/ann/Music/Velorin", "/home/ann", "/mnt/stick"})
        EXPECT_EQ(typedFolder(shownFolder(folder, "/home/ann"), "/home/ann"), folder);
    EXPECT_EQ(typedFolder(" ~/Music/ ", "/home/ann"), "/home/ann/Music");
    EXPECT_EQ(typedFolder("", "/home/ann"), "/home/ann");
    EXPECT_EQ(typedFolder("/", "/home/ann"), "/");
}

TEST(ExportPlaceTest, AnEndingThatIsTypedIsNotAddedAgain) {
    EXPECT_EQ(exportTarget("/songs", "boat", ".mp3"), "/songs/boat.mp3");
    EXPECT_EQ(exportTarget("/songs", " boat.MP3 ", ".mp3"), "/songs/boat.MP3");
    EXPECT_EQ(exportTarget("/songs", "boat.mp3", ".wav"), "/songs/boat.mp3.wav");
}

TEST(ExportPlaceTest, APathInTheNameAndAMissingFolderAreSaid) {
    const scripted::TemporaryFolder home;
    EXPECT_EQ(whyNoTarget("boat", home.path(), home.path()), "");
    EXPECT_EQ(whyNoTarget("a/b", home.path(), home.path()),
              "A name cannot have a \"/\" in it; choose the folder below.");
    EXPECT_EQ(whyNoTarget("boat", home.path() / "Music", home.path()),
              "There is no folder \"Music\".");
}

TEST(ExportPlaceTest, AFailureNamesTheFileWithoutItsFolder) {
    EXPECT_EQ(failureSentence("/songs/boat.mp3 cannot be written: No space left on device",
                              "/songs/boat.mp3"),
              "boat.mp3 cannot be written: No space left on device.");
    EXPECT_EQ(failureSentence("There is no SoundFont.", "/songs/boat.mp3"),
              "There is no SoundFont.");
}

} // namespace
} // namespace velorin
