// A power cut while the settings are written.
#include "DiskStage.h"
#include "host/desktop/QtSettings.h"
#include "host/files/HostSystemFiles.h"

#include <gtest/gtest.h>

#include <QCoreApplication>

namespace velorin::disk {
namespace {

class SettingsOnTheDisk : public testing::Test {
protected:
    void writeSetting(const std::string& value) const {
        host::QtSettings settings(QString::fromStdString(stage.at("velorin/velorin.ini")));
        settings.SaveSetting("Settings", "Tempo", value);
        settings.SaveSetting("Settings", "main left", "1500");
    }

    int argc = 1;
    char name[8] = "velorin";
    char* argv[2] = {name, nullptr};
    QCoreApplication application{argc, argv};
    DiskStage stage;
};

TEST_F(SettingsOnTheDisk, AreTheOlderOrTheNewerOnes) {
    writeSetting("100");
    const std::string older = stage.content("velorin/velorin.ini");
    const auto log = recorded(stage.path(), [this](DiskRecorder& recorder) {
        writeSetting("120");
        recorder.mark(saved);
    });
    const Promise promise{"velorin/velorin.ini", older, stage.content("velorin/velorin.ini")};
    EXPECT_NE(promise.after, older);
    expectNoBadState("the settings", log,
                     [&promise](const DiskState& state) { return broken(state, promise); });
    EXPECT_EQ(stage.names(), std::vector<std::string>{"velorin/velorin.ini"});
}

// Their folder is created with them.
TEST_F(SettingsOnTheDisk, OfAFirstRunAreThereWholeOrNotAtAll) {
    const auto log = recorded(stage.path(), [this](DiskRecorder& recorder) {
        writeSetting("120");
        recorder.mark(saved);
    });
    const Promise promise{"velorin/velorin.ini", {}, stage.content("velorin/velorin.ini")};
    expectNoBadState("the settings of a first run", log,
                     [&promise](const DiskState& state) { return broken(state, promise); });
}

TEST_F(SettingsOnTheDisk, OfTheSystemAreTheOlderOrTheNewerOnes) {
    const std::string older = "[drivers]\r\nwave=x\r\n";
    stage.put("system.ini", older);
    host::HostSystemFiles files(stage.path());
    const auto log = recorded(stage.path(), [&](DiskRecorder& recorder) {
        EXPECT_TRUE(files.WritePrivateProfileStringA("MCI", "MPEGVideo", "mciqtz.drv",
                                                     stage.at("system.ini")));
        recorder.mark(saved);
    });
    const Promise promise{"system.ini", older, stage.content("system.ini")};
    EXPECT_EQ(promise.after, older + "[MCI]\r\nMPEGVideo=mciqtz.drv\r\n");
    expectNoBadState("system.ini", log,
                     [&promise](const DiskState& state) { return broken(state, promise); });
    EXPECT_EQ(stage.names(), std::vector<std::string>{"system.ini"});
}

} // namespace
} // namespace velorin::disk
