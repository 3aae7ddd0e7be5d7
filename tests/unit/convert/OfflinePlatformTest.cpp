// The host of a conversion: time that jumps, a score in memory, and a user who cancels everything.
#include "convert/OfflinePlatform.h"

#include "support/ScriptedFiles.h"
#include "support/ScriptedMidi.h"
#include "support/VirtualTime.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>

namespace velorin::convert {
namespace {

class AnOfflinePlatform : public testing::Test {
protected:
    [[nodiscard]] std::string textOf(const std::string& name) {
        const auto in = host.files.openForInput(name);
        return in ? std::string(std::istreambuf_iterator<char>(*in), {}) : "no file";
    }

    scripted::VirtualTime time;
    scripted::ScriptedMidi midi{time};
    OfflinePlatform offline{midi};
    platform::Platform& host = offline.platform;
};

TEST_F(AnOfflinePlatform, JumpsToTheEndOfEachWait) {
    host.loop.waitUntil(2'000'000'000);
    EXPECT_EQ(host.clock.QueryPerformanceCounter(), 2'000'000'000);
    EXPECT_EQ(host.clock.QueryPerformanceFrequency(), 1'000'000'000);
    EXPECT_EQ(host.clock.GetTickCount(), 2000U);
    host.clock.hold(5);
    EXPECT_EQ(host.clock.GetTickCount(), 2005U);
}

// Otherwise a loop that waits for a moment that is over would never see the time pass.
TEST_F(AnOfflinePlatform, MovesItsClockAlsoForAMomentThatIsOver) {
    host.loop.waitUntil(1000);
    host.loop.waitUntil(500);
    EXPECT_EQ(host.clock.QueryPerformanceCounter(), 1001);
}

TEST_F(AnOfflinePlatform, ReportsEachJumpAndStandsStillAtItsEnd) {
    int waits = 0;
    offline.loop.onWaited = [&waits] { ++waits; };
    host.loop.waitUntil(1000);
    EXPECT_FALSE(host.loop.isEnding());
    host.loop.end();
    host.loop.waitUntil(5000);
    EXPECT_TRUE(host.loop.isEnding());
    EXPECT_EQ(host.clock.QueryPerformanceCounter(), 1000);
    EXPECT_EQ(waits, 2);
}

TEST_F(AnOfflinePlatform, OpensTheScoreInMemoryUnderItsNameAlone) {
    const scripted::TemporaryFolder folder;
    const std::string file = (folder.path() / "real.sng").string();
    std::ofstream(file) << "on the disk";
    offline.offer("entry 1 of the history", "in memory");
    EXPECT_EQ(textOf("entry 1 of the history"), "in memory");
    EXPECT_EQ(textOf(file), "on the disk");
    offline.offer(file, "");
    EXPECT_EQ(textOf(file), "on the disk") << "an empty text is no score";
}

TEST_F(AnOfflinePlatform, AnswersLikeAUserWhoCancelsEverything) {
    EXPECT_FALSE(host.dialogs.GetOpenFileNameA({}));
    EXPECT_FALSE(host.dialogs.GetSaveFileNameA({}));
    EXPECT_FALSE(host.boxes.ask({}));
    EXPECT_EQ(host.menus.PopupMenu("mnupopup", {}), "");
}

TEST_F(AnOfflinePlatform, KeepsNoSettings) {
    host.settings.SaveSetting("section", "key", "saved");
    EXPECT_EQ(host.settings.GetSetting("section", "key", "usual"), "usual");
    EXPECT_FALSE(host.systemFiles.WritePrivateProfileStringA("section", "key", "saved", "a.ini"));
    EXPECT_EQ(host.systemFiles.GetPrivateProfileStringA("section", "key", "usual", "a.ini"),
              "usual");
    EXPECT_FALSE(std::filesystem::exists("a.ini"));
}

TEST_F(AnOfflinePlatform, HasNoOtherProgramsAndNoEncoder) {
    EXPECT_FALSE(host.desktop.isAnotherCopyRunning());
    EXPECT_FALSE(host.desktop.startProgram("mixer"));
    EXPECT_FALSE(host.desktop.openFile("a.mp3"));
    EXPECT_FALSE(host.desktop.standsWindowsApart());
    EXPECT_FALSE(host.encoder.isPresent("lame_enc.dll"));
    std::uint32_t samples = 0;
    std::uint32_t bytes = 0;
    platform::EncoderStream stream{};
    EXPECT_EQ(host.encoder.beInitStream({}, samples, bytes, stream),
              platform::encoderNoMoreHandles);
    EXPECT_EQ(host.encoder.beEncodeChunk(stream, 0, nullptr, nullptr, bytes),
              platform::encoderInvalidHandle);
    EXPECT_EQ(host.encoder.beDeinitStream(stream, nullptr, bytes), platform::encoderInvalidHandle);
    EXPECT_EQ(host.encoder.beCloseStream(stream), platform::encoderInvalidHandle);
    EXPECT_NE(host.mci.mciSendStringA("open new type waveaudio", nullptr), 0U);
}

} // namespace
} // namespace velorin::convert
