// The stream: its blocks, its sources and taps, and the clock that pulls it without a sound card.
#include "Sounds.h"
#include "host/ClockSink.h"
#include "host/SoundEngine.h"
#include "host/SoundTap.h"
#include "host/Worker.h"
#include "support/ScriptedNotices.h"

#include <atomic>
#include <cstdlib>
#include <string>
#include <thread>

namespace velorin::host {
namespace {

using test::HandPulled;

// Its frames count: frame n is n / 1e6 on both sides.
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

TEST(AWorker, ThatIsHeldKeepsItsJobsUntilItIsReleased) {
    std::atomic<int> done{0};
    Worker worker(true);
    worker.post([&done] { ++done; });
    EXPECT_EQ(done, 0);
    worker.release();
    worker.waitUntilIdle();
    EXPECT_EQ(done, 1);
}

TEST(AWorker, IsNotWaitedForLongerThanAskedFor) {
    using namespace std::chrono_literals;
    std::atomic<bool> goOn{false};
    Worker worker(true);
    worker.post([&goOn] {
        while (!goOn)
            std::this_thread::sleep_for(1ms);
    });
    EXPECT_TRUE(worker.waitUntilIdle(10s)) << "it is held";
    worker.release();
    EXPECT_FALSE(worker.waitUntilIdle(1ms));
    goOn = true;
    EXPECT_TRUE(worker.waitUntilIdle(10s));
}

TEST(AWorker, ThatIsHeldEndsWithItsJobsUndone) {
    std::atomic<int> done{0};
    {
        Worker worker(true);
        worker.post([&done] { ++done; });
    }
    EXPECT_EQ(done, 0);
}

TEST(TheStream, MayRestAfterTenQuietSeconds) {
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

TEST(TheStream, DoesNotRestWhileSomebodyListensToIt) {
    SoundEngine engine;
    int woken = 0;
    engine.onAdded = [&woken] { ++woken; };
    engine.add(std::make_shared<SoundTap>(0.1));
    EXPECT_EQ(woken, 1);
    HandPulled stream(engine);
    stream.pull(500'000);
    EXPECT_FALSE(engine.isQuiet());
}

TEST(TheStream, ForgetsASourceThatIsTakenAway) {
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

// A stream that rests takes nothing over for as long as it rests.
TEST(TheStream, LosesNoneOfManySourcesThatComeAndGoBetweenTwoPulls) {
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

TEST(ATap, ThatIsNotReadLosesWhatFindsNoRoom) {
    SoundTap tap(64.0 / 44100);
    for (int i = 0; i < 5; ++i) {
        tap.write({i * 64, {}});
    }
    EXPECT_GT(tap.lost(), 0);
    TappedBlock block;
    ASSERT_TRUE(tap.read(block));
    EXPECT_EQ(block.firstFrame, 0);
}

// What a PulseAudio server holds of the stream; without it there is one buffer and a crack for each
// that comes a little late.
TEST(TheEngine, AsksServersToHoldTwentyMillisecondsUnlessTheUserAsksForSomethingElse) {
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
    ClockSink sink([&](float*, int count, std::int64_t) { frames += count; }, 256);
    while (frames < 20 * 256) {
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    const std::chrono::duration<double> elapsed = std::chrono::steady_clock::now() - start;
    // The twentieth buffer is pulled when 19 have gone by: 110 ms.
    EXPECT_GE(elapsed.count(), 19 * 256 / 44100.0);
    EXPECT_FALSE(sink.hasCard());
}

TEST(TheClockWithoutACard, PullsAfterAStallForTheMomentsThatItHasMissed) {
    std::vector<std::int64_t> moments;
    std::atomic<bool> enough{false};
    ClockSink sink(
        [&](float*, int, std::int64_t atNs) {
            if (moments.size() < 20)
                moments.push_back(atNs);
            enough = moments.size() == 20;
            if (moments.size() == 5)
                std::this_thread::sleep_for(std::chrono::milliseconds(50)); // some eight buffers
        },
        256);
    while (!enough) {
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    for (std::size_t i = 1; i < 20; ++i) {
        EXPECT_NEAR(static_cast<double>(moments[i] - moments[i - 1]), 256e9 / 44100, 2);
    }
}

TEST(AWorker, DoesItsJobsInOrder) {
    std::vector<int> done;
    Worker worker;
    for (int job = 0; job < 5; ++job) {
        worker.post([&done, job] { done.push_back(job); });
    }
    worker.waitUntilIdle();
    EXPECT_EQ(done, (std::vector<int>{0, 1, 2, 3, 4}));
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
