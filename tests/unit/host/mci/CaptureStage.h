// A recording of a known wave, in a folder of its own.
#pragma once

#include "MciStage.h"

namespace velorin::host::test {

class CaptureStage : public MciStage {
protected:
    // A wave on the left, and half of it on the right.
    class Wave final : public SoundSource {
    public:
        void mix(SoundBlock& block, std::int64_t firstFrame, const StreamClock&) override {
            for (int i = 0; i < blockFrames; ++i) {
                const double phase =
                    2.0 * M_PI * 441.0 * static_cast<double>(firstFrame + i) / 44100.0;
                const auto sample = static_cast<float>(0.5 * std::sin(phase));
                block[static_cast<std::size_t>(2 * i)] += sample;
                block[static_cast<std::size_t>(2 * i + 1)] += 0.5F * sample;
            }
        }
    };

    CaptureStage() { engine_.add(std::make_shared<Wave>()); }

    void begin(const std::string& format) {
        EXPECT_EQ(send("open new type waveaudio alias capture"), 0U);
        EXPECT_EQ(send("set capture " + format), 0U);
        EXPECT_EQ(send("record capture"), 0U);
    }

    static std::string formatOf(int rateHz, int bits, int channels) {
        const int alignment = bits * channels / 8;
        return "samplespersec " + std::to_string(rateHz) + " channels " + std::to_string(channels) +
               " bitspersample " + std::to_string(bits) + " alignment " +
               std::to_string(alignment) + " bytespersec " + std::to_string(alignment * rateHz);
    }

    static int sampleAt(const std::string& bytes, std::size_t at) {
        return static_cast<std::int16_t>(static_cast<unsigned char>(bytes[at]) |
                                         static_cast<unsigned char>(bytes[at + 1]) << 8);
    }

    static std::uint32_t numberAt(const std::string& bytes, std::size_t at, int count) {
        std::uint32_t value = 0;
        for (int i = 0; i < count; ++i)
            value |= static_cast<std::uint32_t>(
                         static_cast<unsigned char>(bytes[at + static_cast<std::size_t>(i)]))
                     << (8 * i);
        return value;
    }

    /// The names that the program has given to recordings, sorted.
    [[nodiscard]] std::vector<std::string> recordings() const { return recordings(folder_); }
    [[nodiscard]] static std::vector<std::string> recordings(const std::filesystem::path& folder) {
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(folder)) {
            const std::string name = entry.path().filename().string();
            if (name.starts_with("recording "))
                names.push_back(name);
        }
        std::sort(names.begin(), names.end());
        return names;
    }

    /// The texts of the notices since the last call.
    std::vector<std::string> told() {
        std::vector<std::string> texts;
        while (const auto notice = notices_.take())
            texts.push_back(notice->text);
        return texts;
    }

    /// The hidden files of recordings.
    [[nodiscard]] std::vector<std::string> hidden() const {
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(folder_)) {
            const std::string name = entry.path().filename().string();
            if (name.starts_with(".recording-"))
                names.push_back(name);
        }
        return names;
    }

    /// Expects a file whose header matches its content to the byte.
    static void expectWhole(const std::string& bytes, std::uint32_t dataBytes) {
        ASSERT_EQ(bytes.size(), 44 + dataBytes + dataBytes % 2);
        EXPECT_EQ(numberAt(bytes, 4, 4), dataBytes + 36);
        EXPECT_EQ(numberAt(bytes, 40, 4), dataBytes);
    }
};

} // namespace velorin::host::test
