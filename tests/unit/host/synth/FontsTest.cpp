// Which SoundFonts are found, and in which order.
#include "host/synth/SoundFontHeader.h"
#include "host/synth/SoundFonts.h"

#include <gmock/gmock.h>

#include <unistd.h>

#include <cstdint>
#include <fstream>

namespace velorin::host {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;

std::string littleEndian(std::uint32_t value, int bytes) {
    std::string text;
    for (int i = 0; i < bytes; ++i) {
        text += static_cast<char>(value >> (8 * i));
    }
    return text;
}

std::string chunk(const std::string& id, const std::string& content) {
    return id + littleEndian(static_cast<std::uint32_t>(content.size()), 4) + content;
}

// A preset header: a name of 20 bytes, program, bank, and 14 bytes more.
std::string record(int program, int bank) {
    return std::string(20, 'n') + littleEndian(static_cast<std::uint32_t>(program), 2) +
           littleEndian(static_cast<std::uint32_t>(bank), 2) + std::string(14, '\0');
}

std::string fontWith(const std::string& records) {
    return chunk("RIFF", "sfbk" + chunk("LIST", "INFOxx") + chunk("LIST", "sdta1234") +
                             chunk("LIST", "pdta" + chunk("phdr", records + record(0, 0))));
}

std::string generalMidiFont() {
    std::string records = record(0, 128);
    for (int program = 0; program < 128; ++program) {
        records += record(program, 0);
    }
    return fontWith(records);
}

class SoundFonts : public testing::Test {
protected:
    SoundFonts()
        : root_(fs::path(testing::TempDir()) / ("velorin-fonts-" + std::to_string(getpid()))) {
        fs::remove_all(root_);
        fs::create_directories(root_ / "mine");
        fs::create_directories(root_ / "system");
    }
    ~SoundFonts() override { fs::remove_all(root_); }

    void write(const std::string& name, const std::string& content) {
        std::ofstream(root_ / name, std::ios::binary) << content;
    }

    [[nodiscard]] std::vector<std::string> names() const {
        std::vector<std::string> names;
        for (const SoundFont& font : findSoundFonts({root_ / "mine", root_ / "system"})) {
            names.push_back(font.name);
        }
        return names;
    }

    fs::path root_;
};

TEST_F(SoundFonts, AreFoundByTheirContentAndExtension) {
    write("mine/whole.sf2", generalMidiFont());
    write("mine/Loud.SF3", generalMidiFont());
    write("mine/text.sf2", "this is no SoundFont");
    write("mine/empty.sf2", "");
    write("mine/cut.sf2", generalMidiFont().substr(0, 30));
    write("mine/other.wav", generalMidiFont());
    EXPECT_THAT(names(), ElementsAre("Loud", "whole"));
}

TEST_F(SoundFonts, AreListedOnceHoweverManyLinksLeadToThem) {
    write("system/real.sf2", generalMidiFont());
    fs::create_symlink(root_ / "system/real.sf2", root_ / "system/default-GM.sf2");
    fs::create_symlink(root_ / "system/real.sf2", root_ / "mine/copy.sf2");
    EXPECT_THAT(names(), ElementsAre("real"));
}

TEST_F(SoundFonts, WithGeneralMidiComeFirst) {
    write("mine/a piano.sf2", fontWith(record(0, 0)));
    write("system/whole.sf2", generalMidiFont());
    EXPECT_THAT(names(), ElementsAre("whole", "a piano"));
}

TEST_F(SoundFonts, OfTheUserComeBeforeThoseOfTheSystem) {
    write("mine/z.sf2", generalMidiFont());
    write("system/a.sf2", generalMidiFont());
    EXPECT_THAT(names(), ElementsAre("z", "a"));
}

TEST_F(SoundFonts, TheSystemDefaultComesFirstInItsFolder) {
    write("system/a.sf2", generalMidiFont());
    write("system/z.sf2", generalMidiFont());
    fs::create_symlink(root_ / "system/z.sf2", root_ / "system/default-GM.sf2");
    EXPECT_THAT(names(), ElementsAre("z", "a"));
}

TEST_F(SoundFonts, NoFolderGivesNoFont) {
    EXPECT_TRUE(findSoundFonts({root_ / "nowhere"}).empty());
}

TEST(GeneralMidi, NeedsEveryProgramAndAKit) {
    std::vector<Preset> presets;
    for (int program = 0; program < 128; ++program) {
        presets.push_back({0, program});
    }
    EXPECT_FALSE(isGeneralMidi(presets));
    presets.push_back({128, 0});
    EXPECT_TRUE(isGeneralMidi(presets));
    presets.erase(presets.begin() + 40);
    EXPECT_FALSE(isGeneralMidi(presets));
}

} // namespace
} // namespace velorin::host
