// The file devices over an engine that is pulled by hand, with files in a folder of its own.
#pragma once

#include "../Sounds.h"
#include "../midi/MidiBytes.h"
#include "host/files/HostSystemFiles.h"
#include "host/mci/HostMci.h"
#include "host/media/Lame.h"
#include "support/ScriptedNotices.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cmath>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace velorin::host::test {

/// Polls until `condition`, which another thread fulfils, is true. False after a minute, which is
/// far more than a busy machine needs.
template <typename Condition>
bool comesTrue(Condition condition) {
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(60);
    while (!condition()) {
        if (std::chrono::steady_clock::now() > end)
            return false;
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    return true;
}

/// Logs the messages sent to a port, and has the clock of the port, which is moved by hand.
struct PortLog {
    struct Sent {
        std::int64_t dueNs;
        ShortMessage message;
    };
    std::mutex mutex;
    std::vector<Sent> sent;
    std::atomic<bool> ready{true};
    std::atomic<int> asked{0}; ///< the number of calls of `isReady`
    std::atomic<std::int64_t> nowNs{7'000'000'000};

    void wind(int milliseconds) { nowNs += milliseconds * msNs; }

    /// The messages so far of a kind: the high half of the status byte.
    std::vector<Sent> ofKind(int kind) {
        const std::lock_guard lock(mutex);
        std::vector<Sent> found;
        std::copy_if(sent.begin(), sent.end(), std::back_inserter(found),
                     [kind](const Sent& one) { return one.message.kind() == kind; });
        return found;
    }
};

class LoggedPort final : public SequencerPort {
public:
    explicit LoggedPort(PortLog& log) : log_(log) {}
    bool isReady() const override {
        ++log_.asked;
        return log_.ready;
    }
    std::int64_t leadNs() const override { return 0; }
    void send(std::int64_t dueNs, const ShortMessage& message) override {
        const std::lock_guard lock(log_.mutex);
        log_.sent.push_back({dueNs, message});
    }
    std::int64_t nowNs() const override { return log_.nowNs; }

    // Returns soon, since moving the clock does not notify it.
    void waitUntil(std::int64_t, std::condition_variable& notice,
                   std::unique_lock<std::mutex>& lock) override {
        notice.wait_for(lock, std::chrono::milliseconds(1));
    }

private:
    PortLog& log_;
};

class MciStage : public testing::Test {
protected:
    MciStage() { std::filesystem::create_directories(folder_); }
    ~MciStage() override { std::filesystem::remove_all(folder_); }

    static constexpr int refused = -99;

    std::uint32_t send(const std::string& command) { return mci_.mciSendStringA(command, nullptr); }

    std::string ask(const std::string& command) {
        std::string reply;
        const std::uint32_t code = mci_.mciSendStringA(command, &reply);
        EXPECT_EQ(code, 0U) << command;
        return reply;
    }

    [[nodiscard]] std::string at(const std::string& name) const {
        return (folder_ / name).string();
    }

    void writeBytes(const std::string& name, const std::string& bytes) const {
        std::ofstream(folder_ / name, std::ios::binary) << bytes;
    }

    [[nodiscard]] std::string readBytes(const std::string& name) const {
        std::ifstream file(folder_ / name, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

    /// Frame n has n + 1 on the left and -n on the right, less 1; no sample but the first is 0.
    static std::vector<std::int16_t> ramp(int frames, int channels = 2) {
        std::vector<std::int16_t> samples;
        for (int i = 0; i < frames; ++i) {
            samples.push_back(static_cast<std::int16_t>(i % 16000));
            if (channels == 2)
                samples.push_back(static_cast<std::int16_t>(-(i % 16000)));
        }
        return samples;
    }

    void writeWav(const std::string& name, int rateHz, int channels,
                  const std::vector<std::int16_t>& samples) const {
        std::string bytes;
        const auto number = [&bytes](std::uint32_t value, int count) {
            for (int i = 0; i < count; ++i)
                bytes += static_cast<char>(value >> (8 * i));
        };
        const auto size = static_cast<std::uint32_t>(2 * samples.size());
        bytes += "RIFF";
        number(size + 36, 4);
        bytes += "WAVEfmt ";
        number(16, 4);
        number(1, 2);
        number(static_cast<std::uint32_t>(channels), 2);
        number(static_cast<std::uint32_t>(rateHz), 4);
        number(static_cast<std::uint32_t>(rateHz * channels * 2), 4);
        number(static_cast<std::uint32_t>(channels * 2), 2);
        number(16, 2);
        bytes += "data";
        number(size, 4);
        for (const std::int16_t sample : samples)
            number(static_cast<std::uint16_t>(sample), 2);
        writeBytes(name, bytes);
    }

    /// A second of 440 hertz; false if there is no encoder.
    bool writeMp3(const std::string& name, int frames) const {
        const auto lame = Lame::load(Lame::fileName);
        if (!lame)
            return false;
        const LameStream stream(lame);
        lame->setChannels(stream.flags(), 2);
        lame->setWriteTag(stream.flags(), 0);
        lame->initParameters(stream.flags());
        std::vector<std::int16_t> samples;
        for (int i = 0; i < frames; ++i) {
            const auto sample =
                static_cast<std::int16_t>(12000.0 * std::sin(2.0 * M_PI * 440.0 * i / 44100.0));
            samples.insert(samples.end(), {sample, sample});
        }
        std::vector<unsigned char> out(LameStream::outputSize(samples.size()));
        int bytes = lame->encodeInterleaved(stream.flags(), samples.data(), frames, out.data(),
                                            static_cast<int>(out.size()));
        std::string all(out.begin(), out.begin() + bytes);
        bytes = lame->flush(stream.flags(), out.data(), static_cast<int>(out.size()));
        all.append(out.begin(), out.begin() + bytes);
        writeBytes(name, all);
        return true;
    }

    void pull(int frames) { stream_.pull(frames); }

    /// Pulls in pieces and waits for the decoding thread.
    void pullPlayed(int frames) {
        for (; frames > 0; frames -= 8192) {
            ASSERT_TRUE(comesTrue([this] { return engine_.isReadAhead(); }));
            pull(std::min(frames, 8192));
        }
    }

    /// The index of the first sample that is not 0.
    [[nodiscard]] std::size_t firstSounding() const {
        std::size_t i = 0;
        while (i < stream_.stereo.size() && stream_.stereo[i] == 0.0F)
            i += 2;
        return i;
    }

    /// Moves the clock on in steps until the MID file has ended.
    void playMidiOut() {
        EXPECT_TRUE(comesTrue([this] {
            port_.wind(5);
            return ask("status midi mode") == "stopped";
        }));
    }

    std::filesystem::path folder_ =
        std::filesystem::temp_directory_path() / ("velorin mci " + std::to_string(::getpid()));
    /// For recordings if `folder_` cannot be written.
    std::filesystem::path spare_ = folder_ / "spare";
    scripted::ScriptedNotices notices_;
    SoundEngine engine_;
    HandPulled stream_{engine_};
    PortLog port_;
    int openedDevice_ = 0;
    bool outside_ = false;
    HostMci mci_{{engine_,
                  [this](int device) -> std::unique_ptr<SequencerPort> {
                      if (openedDevice_ == refused)
                          return nullptr;
                      openedDevice_ = device;
                      return std::make_unique<LoggedPort>(port_);
                  },
                  [this] { return outside_; },
                  [] {},
                  {folder_, spare_, &notices_}}};
};

} // namespace velorin::host::test
