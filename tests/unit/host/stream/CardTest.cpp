// The stream's thread while the card goes and comes, while the stream rests, and a card's input.
#include "StreamStage.h"

#include "host/capture/CaptureSource.h"
#include "host/midiout/SynthSource.h"
#include "host/synth/FluidSynth.h"

#include <filesystem>
#include <fstream>

namespace velorin::host {
namespace {

using test::comesTrue;
using test::Listener;
using test::takeForbiddenCalls;

/// A variable of the environment for as long as this lives.
class Variable {
public:
    Variable(const char* name, const std::string& value) : name_(name) {
        setenv(name, value.c_str(), 1);
    }
    ~Variable() { unsetenv(name_); }
    Variable(const Variable&) = delete;
    Variable& operator=(const Variable&) = delete;

private:
    const char* name_;
};

// The library's driver that writes to a file: a full disk is a card that goes away.
TEST(TheStreamsThread, WhileTheCardGoesAndComes) {
    takeForbiddenCalls();
    const Variable driver("SDL_AUDIODRIVER", "disk");
    const Variable delay("SDL_DISKAUDIODELAY", "5");
    scripted::ScriptedNotices notices;
    SoundEngine engine(&notices);
    Listener listener(engine);
    {
        const Variable file("SDL_DISKAUDIOFILE", "/dev/full");
        engine.start();
        EXPECT_TRUE(comesTrue([&] { return engine.hasLostCard(); }));
        listener.letPass(50);
        engine.reconnectCard(); // to one that goes away as well
        listener.letPass(50);
    }
    const Variable file("SDL_DISKAUDIOFILE", "/dev/null");
    EXPECT_TRUE(comesTrue([&] {
        engine.reconnectCard();
        return !engine.hasLostCard();
    }));
    listener.letPass(50);
    engine.end();
    EXPECT_EQ(notices.posted.size(), 1U);
    EXPECT_EQ(takeForbiddenCalls(), "");
}

TEST(TheStreamsThread, WhenACardComesToAStreamByTheClock) {
    takeForbiddenCalls();
    scripted::ScriptedNotices notices;
    SoundEngine engine(&notices);
    Listener listener(engine);
    {
        const test::ChosenDriver driver(test::noCard);
        engine.start();
        listener.letPass(50);
    }
    const test::ChosenDriver driver(test::silentCard);
    engine.reconnectCard();
    listener.letPass(50);
    engine.end();
    EXPECT_EQ(takeForbiddenCalls(), "");
}

TEST(TheStreamsThread, WhenTheSynthesizerFallsAsleep) {
    SoundEngine engine;
    const auto source = std::make_shared<SynthSource>();
    source->provide(FluidSynth::load(test::anySoundFont(), streamRateHz, FontLoading::whole));
    engine.add(source);
    test::HandPulled stream(engine);
    takeForbiddenCalls();
    for (int again = 0; again < 2; ++again) {
        EXPECT_TRUE(source->send(stream.nowNs(), unpack(0x7F3C90)));
        stream.pull(streamRateHz / 10);
        EXPECT_GE(test::onsetAfter(stream.stereo, 0, 0.001F), 0);
        EXPECT_TRUE(source->send(stream.nowNs(), unpack(0x003C80)));
        for (int second = 0; second < 6; ++second)
            stream.pull(streamRateHz);
    }
    EXPECT_EQ(stream.stereo.back(), 0.0F) << "it sleeps";
    EXPECT_EQ(takeForbiddenCalls(), "");
}

// The stream is pulled by hand, with a clock of its own: ten seconds pass at once.
TEST(TheStreamsThread, WhenTheStreamRestsAndWakes) {
    takeForbiddenCalls();
    const auto folder = std::filesystem::temp_directory_path();
    HostSound sound(folder, {folder});
    test::HandPulled stream(sound.engine());
    for (int again = 0; again < 2; ++again) {
        for (int second = 0; second < 12; ++second)
            stream.pull(streamRateHz);
        sound.idleIfQuiet();
        EXPECT_TRUE(sound.isIdle());
        sound.wake();
        EXPECT_FALSE(sound.isIdle());
    }
    EXPECT_EQ(takeForbiddenCalls(), "");
}

TEST(TheThreadOfACardsInput, WhileItIsRecorded) {
    takeForbiddenCalls();
    const std::string path =
        testing::TempDir() + "velorin-input-" + std::to_string(::getpid()) + ".raw";
    std::ofstream(path, std::ios::binary) << std::string(100'000, '\1');
    {
        const Variable driver("SDL_AUDIODRIVER", "disk");
        const Variable input("SDL_DISKAUDIOFILEIN", path);
        const Variable delay("SDL_DISKAUDIODELAY", "1");
        const auto source = captureOfCard();
        ASSERT_TRUE(source);
        const auto tap = std::make_shared<SoundTap>(1.0);
        ASSERT_TRUE(source->start(tap));
        TappedBlock block;
        for (int blocks = 0; blocks < 100;)
            blocks += tap->read(block) ? 1 : 0;
        EXPECT_TRUE(comesTrue([&] { return tap->lost() > 10; })) << "nobody reads any more";
        source->stop();
    }
    std::filesystem::remove(path);
    EXPECT_EQ(takeForbiddenCalls(), "");
}

} // namespace
} // namespace velorin::host
