// Recording from a sound card's input: the card is a driver whose input is a file of known samples.
#include "../Sounds.h"
#include "host/capture/CaptureSource.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>
#include <thread>
#include <vector>

namespace velorin::host {
namespace {

namespace fs = std::filesystem;

/// Selects the library's driver that reads a file as its microphone, while this lives.
class FileForACard {
public:
    explicit FileForACard(const std::vector<float>& stereo) {
        std::ofstream(path_, std::ios::binary)
            .write(reinterpret_cast<const char*>(stereo.data()),
                   static_cast<std::streamsize>(stereo.size() * sizeof(float)));
        setenv("SDL_AUDIODRIVER", "disk", 1);
        setenv("SDL_DISKAUDIOFILEIN", path_.c_str(), 1);
        setenv("SDL_DISKAUDIODELAY", "1", 1);
    }
    ~FileForACard() {
        for (const char* name : {"SDL_AUDIODRIVER", "SDL_DISKAUDIOFILEIN", "SDL_DISKAUDIODELAY"})
            unsetenv(name);
        fs::remove(path_);
    }
    FileForACard(const FileForACard&) = delete;
    FileForACard& operator=(const FileForACard&) = delete;

private:
    fs::path path_ =
        fs::path(testing::TempDir()) / ("velorin-card-" + std::to_string(::getpid()) + ".raw");
};

// The left side rises and the right side falls, so that no two samples can be swapped unnoticed.
TEST(ACapturedCard, GivesEverySampleOfBothSidesInOrder) {
    constexpr int frames = 20000;
    std::vector<float> stereo;
    for (int frame = 0; frame < frames; ++frame) {
        const float side = static_cast<float>(frame + 1) / 32768.0F;
        stereo.insert(stereo.end(), {side, -side});
    }
    const FileForACard card(stereo);
    const auto source = captureOfCard();
    ASSERT_TRUE(source) << "a card that is a file can be opened";
    const auto tap = std::make_shared<SoundTap>(60.0);
    ASSERT_TRUE(source->start(tap));

    constexpr int blocks = frames / blockFrames;
    TappedBlock block;
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(60);
    for (int read = 0; read < blocks; ++read) {
        while (!tap->read(block)) {
            ASSERT_LT(std::chrono::steady_clock::now(), end) << "after " << read << " blocks";
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        }
        ASSERT_EQ(block.firstFrame, read * blockFrames);
        for (int i = 0; i < 2 * blockFrames; ++i) {
            ASSERT_EQ(block.sound[static_cast<std::size_t>(i)],
                      stereo[static_cast<std::size_t>(2 * read * blockFrames + i)])
                << "block " << read << ", sample " << i;
        }
    }
    source->stop();
    EXPECT_EQ(tap->lost(), 0);
}

} // namespace
} // namespace velorin::host
