// The whole sound on a stream that runs by itself: on a card without a speaker, or by the clock.
#pragma once

#include "../mci/MciStage.h"
#include "ForbiddenCalls.h"

#include "host/engine/SoundTap.h"
#include "host/sound/HostSound.h"

#include <cstdlib>
#include <memory>
#include <string>

namespace velorin::host::test {

/// The library's driver for the sound card, for as long as this lives.
class ChosenDriver {
public:
    explicit ChosenDriver(const char* driver) { setenv("SDL_AUDIODRIVER", driver, 1); }
    ~ChosenDriver() { unsetenv("SDL_AUDIODRIVER"); }
    ChosenDriver(const ChosenDriver&) = delete;
    ChosenDriver& operator=(const ChosenDriver&) = delete;
};

constexpr const char* silentCard = "dummy";
constexpr const char* noCard = "no such driver";

/// Reads all that the stream plays.
class Listener {
public:
    explicit Listener(SoundEngine& engine) : engine_(engine) { engine_.add(tap_); }
    ~Listener() { engine_.remove(tap_.get()); }
    Listener(const Listener&) = delete;
    Listener& operator=(const Listener&) = delete;

    /// Waits until the stream has made that much more sound.
    void letPass(int milliseconds) {
        const std::int64_t end = blocks_ + milliseconds * streamRateHz / 1000 / blockFrames + 1;
        EXPECT_TRUE(comesTrue([&] {
            readAll();
            return blocks_ >= end;
        })) << "the stream does not go on";
    }

    /// Waits until something is heard.
    void waitForSound() {
        readAll();
        heard_ = false;
        EXPECT_TRUE(comesTrue([&] {
            readAll();
            return heard_;
        })) << "nothing is heard";
    }

private:
    void readAll() {
        TappedBlock block;
        for (; tap_->read(block); ++blocks_) {
            for (const float sample : block.sound)
                heard_ = heard_ || std::abs(sample) > 0.001F;
        }
    }

    SoundEngine& engine_;
    std::shared_ptr<SoundTap> tap_ = std::make_shared<SoundTap>(20.0);
    std::int64_t blocks_ = 0;
    bool heard_ = false;
};

/// The parameter is the driver: with and without a card the stream has different threads.
class StreamStage : public MciStage, public testing::WithParamInterface<const char*> {
protected:
    StreamStage() { takeForbiddenCalls(); }

    void SetUp() override {
        ASSERT_FALSE(anySoundFont().empty());
        sound_->begin();
        listener_.letPass(50);
    }

    void TearDown() override {
        if (sound_)
            endStream();
        EXPECT_EQ(takeForbiddenCalls(), "") << "on the stream's thread";
    }

    void endStream() { sound_->engine().end(); }

    void order(const std::string& command) {
        EXPECT_EQ(sound_->mci().mciSendStringA(command, nullptr), 0U) << command;
    }

    std::string reply(const std::string& command) {
        std::string text;
        EXPECT_EQ(sound_->mci().mciSendStringA(command, &text), 0U) << command;
        return text;
    }

    /// A packed short message.
    void message(unsigned status, unsigned first, unsigned second = 0) {
        EXPECT_EQ(sound_->midi().midiOutShortMsg(handle_, status | first << 8 | second << 16), 0U);
    }

    void openSynthesizer() { EXPECT_EQ(sound_->midi().midiOutOpen(handle_, 0), 0U); }
    void closeSynthesizer() { EXPECT_EQ(sound_->midi().midiOutClose(handle_), 0U); }

    ChosenDriver driver_{GetParam()};
    std::unique_ptr<HostSound> sound_ =
        std::make_unique<HostSound>(folder_, RecordingFolders{folder_, spare_, &notices_});
    Listener listener_{sound_->engine()};
    platform::MidiOutHandle handle_ = 0;
};

} // namespace velorin::host::test
