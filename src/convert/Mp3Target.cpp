// Writes MP3 files with the LAME library.
#include "convert/Mp3Target.h"

#include "convert/Bitrates.h"
#include "convert/OutputFile.h"

#include <cerrno>
#include <fstream>
#include <vector>

namespace velorin::convert {

namespace {

namespace fs = std::filesystem;
using host::Lame;
using host::LameFlags;
using host::LameStream;
using platform::Failure;
using platform::Result;

bool configure(const LameStream& lame, const SoundParameters& parameters) {
    const Lame& calls = lame.calls();
    LameFlags* flags = lame.flags();
    lame.silence();
    calls.setInSampleRate(flags, parameters.rateHz);
    calls.setChannels(flags, parameters.channels);
    calls.setMode(flags, parameters.channels == 1 ? host::lameMono : host::lameJointStereo);
    calls.setBitrate(flags, parameters.bitrate);
    if (parameters.quality >= 0)
        calls.setQuality(flags, parameters.quality);
    calls.setWriteTag(flags, 1);
    return calls.initParameters(flags) >= 0;
}

class Mp3Target final : public SoundTarget {
public:
    explicit Mp3Target(std::shared_ptr<const Lame> lame) : lame_(std::move(lame)) {}

    Result<void> begin(const fs::path& path, const SoundParameters& parameters) {
        isMono_ = parameters.channels == 1;
        if (!lame_.isValid() || !configure(lame_, parameters))
            return Failure{"cannot be made: the MP3 encoder refuses these settings"};
        attempt([&] { file_.open(path, std::ios::binary | std::ios::trunc); });
        return outcome();
    }

    bool write(const std::int16_t* stereo, int frames) override {
        if (!problem_.empty())
            return false;
        const auto count = static_cast<std::size_t>(frames);
        output_.resize(LameStream::outputSize(count));
        samples_.assign(stereo, stereo + 2 * count);
        if (isMono_) {
            for (std::size_t i = 0; i < count; ++i)
                samples_[i] = samples_[2 * i];
        }
        const Lame& calls = lame_.calls();
        const auto size = static_cast<int>(output_.size());
        const int bytes = isMono_ ? calls.encode(lame_.flags(), samples_.data(), samples_.data(),
                                                 frames, output_.data(), size)
                                  : calls.encodeInterleaved(lame_.flags(), samples_.data(), frames,
                                                            output_.data(), size);
        return put(bytes);
    }

    Result<void> finish() override {
        output_.resize(LameStream::outputSize(0));
        const Lame& calls = lame_.calls();
        if (put(calls.flush(lame_.flags(), output_.data(), static_cast<int>(output_.size()))))
            writeTag();
        attempt([this] { file_.close(); });
        return outcome();
    }

    std::string failureReason() const override { return problem_; }

private:
    [[nodiscard]] Result<void> outcome() const {
        if (!problem_.empty())
            return Failure{problem_};
        return {};
    }

    // Only the first failure is reported, with the system's message at that moment.
    template <typename Action>
    bool attempt(const Action& action) {
        errno = 0;
        action();
        if (!file_ && problem_.empty())
            problem_ = cannotBeWritten({errno, std::generic_category()});
        return problem_.empty();
    }

    bool put(int bytes) {
        if (bytes < 0 && problem_.empty())
            problem_ = "cannot be made: the MP3 encoder fails with code " + std::to_string(bytes);
        if (!problem_.empty())
            return false;
        return attempt([&] { file_.write(reinterpret_cast<const char*>(output_.data()), bytes); });
    }

    // The encoder has left the first frame blank for it.
    void writeTag() {
        const std::size_t bytes =
            lame_.calls().tagFrame(lame_.flags(), output_.data(), output_.size());
        if (bytes == 0 || bytes > output_.size())
            return;
        if (attempt([this] { file_.seekp(0); }))
            put(static_cast<int>(bytes));
    }

    LameStream lame_;
    std::ofstream file_;
    std::string problem_;
    bool isMono_ = false;
    std::vector<std::int16_t> samples_;
    std::vector<unsigned char> output_;
};

} // namespace

std::shared_ptr<const Lame> findLame() {
    std::error_code failed;
    const fs::path beside = fs::read_symlink("/proc/self/exe", failed).parent_path();
    auto lame = Lame::load(beside / Lame::fileName);
    return lame ? lame : Lame::load(Lame::fileName);
}

MadeTarget makeMp3(const fs::path& path, const SoundParameters& parameters,
                   std::shared_ptr<const Lame> lame) {
    if (const auto checked = checkBitrate(parameters.rateHz, parameters.bitrate); !checked)
        return checked.failure();
    if (!lame)
        return Failure{"cannot be made: the MP3 encoder (libmp3lame) is missing"};
    auto target = std::make_unique<Mp3Target>(std::move(lame));
    if (const auto begun = target->begin(path, parameters); !begun)
        return begun.failure();
    return MadeTarget(std::move(target));
}

} // namespace velorin::convert
