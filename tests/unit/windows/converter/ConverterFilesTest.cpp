// What the converter takes, what it makes of each, and the names that it gives.
#include "windows/converter/ConverterKinds.h"
#include "windows/converter/UsableFiles.h"
#include "windows/converter/Workshop.h"

#include "support/ScriptedPlatform.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

using testing::ElementsAre;
using testing::IsEmpty;

namespace velorin {
namespace {

namespace fs = std::filesystem;
using convert::Kind;

struct ConverterFilesTest : testing::Test {
    void write(const fs::path& name) const {
        fs::create_directories((folder / name).parent_path());
        std::ofstream(folder / name) << "x";
    }
    [[nodiscard]] std::vector<std::string> found(const std::vector<fs::path>& names) const {
        std::vector<fs::path> paths;
        for (const fs::path& name : names)
            paths.push_back(folder / name);
        std::vector<std::string> files;
        for (const fs::path& file : usableFiles(paths))
            files.push_back(file.lexically_relative(folder).string());
        return files;
    }

    scripted::ScriptedPlatform host;
    fs::path folder = host.folder.path();
};

TEST_F(ConverterFilesTest, FolderStandsForTheFilesInItAndInItsSubfolders) {
    for (const char* const name : {"album/b.mid", "album/a.sng", "album/live/c.WAV",
                                   "album/notes.txt", "album/.hidden.sng", "album/.old/d.sng"})
        write(name);
    EXPECT_THAT(found({"album"}), ElementsAre("album/a.sng", "album/b.mid", "album/live/c.WAV"));
}

TEST_F(ConverterFilesTest, FilesKeepTheirOrderAndWhatIsOfNoUseIsLeftOut) {
    write("b.sng");
    write("a.midi");
    write("a.mp3");
    EXPECT_THAT(found({"b.sng", "a.mp3", "a.midi", "missing.sng"}), ElementsAre("b.sng", "a.midi"));
}

TEST_F(ConverterFilesTest, FolderLooksUsableBeforeItIsSearched) {
    write("empty/notes.txt");
    EXPECT_TRUE(isUsable(folder / "empty"));
    EXPECT_TRUE(isUsable("song.Sng"));
    EXPECT_FALSE(isUsable("song.mp3"));
    EXPECT_FALSE(isUsable("song"));
    EXPECT_THAT(found({"empty"}), IsEmpty());
}

TEST_F(ConverterFilesTest, NameThatIsThereAlreadyGetsANumber) {
    write("boat.mp3");
    Workshop workshop({});
    EXPECT_EQ(workshop.reserve(folder, "boat", ".mp3"), folder / "boat-2.mp3");
    EXPECT_EQ(workshop.reserve(folder, "boat", ".mp3"), folder / "boat-3.mp3");
    workshop.release(folder / "boat-2.mp3");
    EXPECT_EQ(workshop.reserve(folder, "boat", ".mp3"), folder / "boat-2.mp3");
    EXPECT_EQ(workshop.reserve(folder, "boat", ".wav"), folder / "boat.wav");
}

TEST(ConverterKindsTest, MidiFilesBecomeEverythingButAMidiFile) {
    for (const ConverterKind& kind : converterKinds())
        EXPECT_EQ(whyNotMade("a.mid", kind.kind).empty(), kind.kind != Kind::mid) << kind.words;
}

TEST(ConverterKindsTest, ScoresBecomeEverythingButAScore) {
    for (const ConverterKind& kind : converterKinds())
        EXPECT_EQ(whyNotMade("a.sng", kind.kind).empty(), kind.kind != Kind::sng) << kind.words;
}

TEST(ConverterKindsTest, SoundBecomesAnMp3Only) {
    for (const ConverterKind& kind : converterKinds())
        EXPECT_EQ(whyNotMade("a.wav", kind.kind).empty(), kind.kind == Kind::mp3) << kind.words;
}

TEST(ConverterKindsTest, SettingOfAKindIsFoundAgain) {
    const auto kinds = converterKinds();
    for (std::size_t i = 0; i < kinds.size(); ++i)
        EXPECT_EQ(kindOfSetting(kinds[i].setting), i);
    EXPECT_EQ(kindOfSetting("cassette"), 0U);
}

} // namespace
} // namespace velorin
