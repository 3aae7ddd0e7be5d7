// The stream: its blocks, its sources and taps, and the clock that pulls it without a sound card.
#include "../Sounds.h"
#include "host/card/SdlCard.h"
#include "host/engine/ClockSink.h"
#include "host/engine/SoundEngine.h"
#include "host/engine/SoundTap.h"
#include "support/ScriptedNotices.h"

#include <SDL.h>

#include <atomic>
#include <cstdlib>
#include <string>
#include <thread>

namespace velorin::host {
namespace {

using test::HandPulled;

// Frame n is n / 1e6 on both sides.
class Counter final : public SoundSource {
public:
    void mix(SoundBlock& block, std::int64_t firstFrame, const StreamClock&) override {
        for (std::size_t i = 0; i < block.size(); ++i) {
            block[i] += static_cast<float>(firstFrame + static_cast<std::int64_t>(i / 2)) / 1e6F;
        }
    }
};

TEST(TheStream, HasNoGapWhateverTheSizeOfAPull) {
    SoundEngine engine;
    engine.add(std::make_shared<Counter>());
    HandPulled stream(engine);
    for (const int frames : {1, 100, 63, 64, 65, 441, 2}) {
        stream.pull(frames);
    }
    for (std::size_t frame = 0; frame < stream.stereo.size() / 2; ++frame) {
        ASSERT_EQ(stream.stereo[2 * frame], static_cast<float>(frame) / 1e6F);
        ASSERT_EQ(stream.stereo[2 * frame + 1], static_cast<float>(frame) / 1e6F);
    }
}

TEST(TheStream, IsTheSumOfItsSources) {
    SoundEngine engine;
    engine.add(std::make_shared<Counter>());
    engine.add(std::make_shared<Counter>());
    HandPulled stream(engine);
    stream.pull(64);
    EXPECT_FLOAT_EQ(stream.stereo[2 * 50], 2 * 50 / 1e6F);
}

TEST(TheStream, IsQuietAfterTenSecondsOfSilence) {
    SoundEngine engine;
    HandPulled stream(engine);
    stream.pull(440'000);
    EXPECT_FALSE(engine.isQuiet());
    stream.pull(2'000);
    EXPECT_TRUE(engine.isQuiet());
    auto source = std::make_shared<Counter>();
    engine.add(source);
    stream.pull(64);
    EXPECT_FALSE(engine.isQuiet()) << "it sounds";
    engine.remove(source.get());
    stream.pull(440'000);
    EXPECT_FALSE(engine.isQuiet());
    stream.pull(2'000);
    EXPECT_TRUE(engine.isQuiet());
}

TEST(TheStream, IsNotQuietWhileATapReadsIt) {
    SoundEngine engine;
    int woken = 0;
    engine.onAdded = [&woken] { ++woken; };
    engine.add(std::make_shared<SoundTap>(0.1));
    EXPECT_EQ(woken, 1);
    HandPulled stream(engine);
    stream.pull(500'000);
    EXPECT_FALSE(engine.isQuiet());
}

TEST(TheStream, ReleasesARemovedSource) {
    SoundEngine engine;
    auto source = std::make_shared<Counter>();
    const std::weak_ptr<Counter> watched = source;
    engine.add(source);
    HandPulled stream(engine);
    stream.pull(64);
    engine.remove(source.get());
    source.reset();
    EXPECT_FALSE(watched.expired()) << "the stream's thread may be using it";
    stream.pull(64);
    EXPECT_EQ(stream.stereo[2 * 100], 0.0F);
    engine.add(std::make_shared<SoundTap>(0.1));
    EXPECT_TRUE(watched.expired());
}

// A stopped stream takes nothing over.
TEST(TheStream, LosesNoneOfManySourcesAddedAndRemovedBetweenTwoPulls) {
    SoundEngine engine;
    HandPulled stream(engine);
    stream.pull(64);
    std::vector<std::shared_ptr<Counter>> stay;
    for (int i = 0; i < 1000; ++i) {
        auto source = std::make_shared<Counter>();
        engine.add(source);
        if (i % 50 == 0)
            stay.push_back(source);
        else
            engine.remove(source.get());
    }
    stream.pull(64);
    EXPECT_NEAR(stream.stereo[2 * 100], 20 * 100 / 1e6, 1e-6) << "twenty of them sound";
    for (const auto& source : stay)
        engine.remove(source.get());
    stream.pull(64);
    EXPECT_EQ(stream.stereo[2 * 150], 0.0F);
    engine.add(std::make_shared<SoundTap>(0.1));
    for (const auto& source : stay)
        EXPECT_EQ(source.use_count(), 1);
}

TEST(TheStream, GoesToItsTapsBlockByBlock) {
    SoundEngine engine;
    engine.add(std::make_shared<Counter>());
    HandPulled stream(engine);
    stream.pull(64);
    const auto tap = std::make_shared<SoundTap>(1.0);
    engine.add(tap);
    stream.pull(128);
    TappedBlock block;
    ASSERT_TRUE(tap->read(block));
    EXPECT_EQ(block.firstFrame, 64);
    EXPECT_EQ(block.sound[2 * 5], static_cast<float>(69) / 1e6F);
    ASSERT_TRUE(tap->read(block));
    EXPECT_EQ(block.firstFrame, 128);
    EXPECT_FALSE(tap->read(block));
    EXPECT_EQ(tap->lost(), 0);
}

TEST(ATap, ThatIsNotReadLosesBlocksWhenItIsFull) {
    SoundTap tap(64.0 / 44100);
    for (int i = 0; i < 5; ++i) {
        test::writeAsStream(tap, {i * 64, {}});
    }
    EXPECT_GT(tap.lost(), 0);
    TappedBlock block;
    ASSERT_TRUE(tap.read(block));
    EXPECT_EQ(block.firstFrame, 0);
}

#ifndef NDEBUG // release builds do not check it
TEST(TheEngineDeathTest, IsChangedOnlyByTheThreadThatMadeIt) {
    testing::FLAGS_gtest_death_test_style = "threadsafe";
    SoundEngine engine;
    EXPECT_DEATH(std::thread([&] { engine.add(std::make_shared<Counter>()); }).join(), "isCaller");
}
#endif

// The latency of a PulseAudio server. Without it the server holds one buffer, and each late one is
// an underrun.
TEST(TheEngine, AsksServersForTwentyMillisecondsOfLatencyUnlessTheUserSetsAnother) {
    const auto asked = [](const char* byTheUser) {
        if (byTheUser != nullptr)
            setenv("PULSE_LATENCY_MSEC", byTheUser, 1);
        else
            unsetenv("PULSE_LATENCY_MSEC");
        const SoundEngine engine;
        return std::string(getenv("PULSE_LATENCY_MSEC"));
    };
    EXPECT_EQ(asked(nullptr), "20");
    EXPECT_EQ(asked("60"), "60");
    unsetenv("PULSE_LATENCY_MSEC");
}

TEST(TheClockWithoutACard, PullsNeverFasterThanRealTime) {
    std::atomic<std::int64_t> frames{0};
    const auto start = std::chrono::steady_clock::now();
    ClockSink sink(
        [&](float*, int count, std::int64_t atNs) {
            frames += count;
            return atNs;
        },
        256);
    while (frames < 20 * 256) {
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    const std::chrono::duration<double> elapsed = std::chrono::steady_clock::now() - start;
    // The twentieth buffer is pulled when 19 have gone by: 110 ms.
    EXPECT_GE(elapsed.count(), 19 * 256 / 44100.0);
    EXPECT_FALSE(sink.hasCard());
}

TEST(TheClockWithoutACard, CatchesUpAfterAStallWithTheMomentsThatItMissed) {
    std::vector<std::int64_t> moments;
    std::atomic<bool> enough{false};
    ClockSink sink(
        [&](float*, int, std::int64_t atNs) {
            if (moments.size() < 20)
                moments.push_back(atNs);
            enough = moments.size() == 20;
            if (moments.size() == 5)
                std::this_thread::sleep_for(std::chrono::milliseconds(50)); // some eight buffers
            return atNs;
        },
        256);
    while (!enough) {
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    for (std::size_t i = 1; i < 20; ++i) {
        EXPECT_NEAR(static_cast<double>(moments[i] - moments[i - 1]), 256e9 / 44100, 2);
    }
}

// The stream opens its card on one thread while a recording opens the input on another.
TEST(TheLibraryOfTheCard, IsThereForEachThreadThatUsesIt) {
    setenv("SDL_AUDIODRIVER", "dummy", 1);
    constexpr int times = 2000;
    std::atomic<int> missing{0};
    std::vector<std::thread> threads;
    for (int thread = 0; thread < 4; ++thread) {
        threads.emplace_back([&missing] {
            for (int i = 0; i < times; ++i) {
                const SdlAudio audio;
                missing += !audio.works() || SDL_GetCurrentAudioDriver() == nullptr ? 1 : 0;
            }
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    unsetenv("SDL_AUDIODRIVER");
    EXPECT_EQ(missing, 0);
}

TEST(TheEngine, ReportsAMissingSoundCardInTheWindowOnce) {
    setenv("SDL_AUDIODRIVER", "no such driver", 1);
    scripted::ScriptedNotices notices;
    {
        SoundEngine engine(&notices);
        engine.start();
        engine.start();
    }
    unsetenv("SDL_AUDIODRIVER");
    ASSERT_EQ(notices.posted.size(), 1U);
    EXPECT_TRUE(notices.posted[0].text.starts_with("There is no sound card ("));
    EXPECT_TRUE(notices.posted[0].text.ends_with(
        "), so nothing is heard. Connect one or start the sound server, and start Velorin again."));
}

} // namespace
} // namespace velorin::host
