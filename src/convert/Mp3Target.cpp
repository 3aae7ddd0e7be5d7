// MP3 files through the LAME library, where it is there.
#include "convert/SoundTarget.h"

#include "host/media/Lame.h"

#include <cerrno>
#include <cstring>
#include <fstream>
#include <vector>

namespace velorin::convert {

namespace {

namespace fs = std::filesystem;
using host::Lame;
using host::LameFlags;
using host::LameStream;

std::shared_ptr<const Lame> findLame() {
    std::error_code failed;
    const fs::path beside = fs::read_symlink("/proc/self/exe", failed).parent_path();
    auto lame = Lame::load(beside / Lame::fileName);
    return lame ? lame : Lame::load(Lame::fileName);
}

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
    Mp3Target(std::shared_ptr<const Lame> lame, const fs::path& path)
        : lame_(std::move(lame)), file_(path, std::ios::binary | std::ios::trunc) {}

    [[nodiscard]] std::string begin(const SoundParameters& parameters) {
        if (!file_.good())
            return whyFailed();
        isMono_ = parameters.channels == 1;
        return lame_.isMade() && configure(lame_, parameters)
                   ? ""
                   : "cannot be made: the MP3 encoder refuses these settings";
    }

    bool write(const std::int16_t* stereo, int frames) override {
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

    std::string finish() override {
        output_.resize(LameStream::outputSize(0));
        const Lame& calls = lame_.calls();
        if (put(calls.flush(lame_.flags(), output_.data(), static_cast<int>(output_.size()))))
            writeTag();
        file_.close();
        return file_.good() ? "" : whyFailed();
    }

    std::string whyFailed() const override {
        return std::string("cannot be written: ") + std::strerror(errno);
    }

private:
    bool put(int bytes) {
        if (bytes < 0)
            file_.setstate(std::ios::failbit);
        else
            file_.write(reinterpret_cast<const char*>(output_.data()), bytes);
        return file_.good();
    }

    // The frame at the head was left blank for it.
    void writeTag() {
        const std::size_t bytes =
            lame_.calls().tagFrame(lame_.flags(), output_.data(), output_.size());
        if (bytes == 0 || bytes > output_.size())
            return;
        file_.seekp(0);
        put(static_cast<int>(bytes));
    }

    LameStream lame_;
    std::ofstream file_;
    bool isMono_ = false;
    std::vector<std::int16_t> samples_;
    std::vector<unsigned char> output_;
};

} // namespace

std::unique_ptr<SoundTarget> makeMp3(const fs::path& path, const SoundParameters& parameters,
                                     std::string& reason) {
    std::shared_ptr<const Lame> lame = findLame();
    if (!lame) {
        reason = "cannot be made: the MP3 encoder (libmp3lame) is missing";
        return nullptr;
    }
    auto target = std::make_unique<Mp3Target>(std::move(lame), path);
    reason = target->begin(parameters);
    return reason.empty() ? std::move(target) : nullptr;
}

} // namespace velorin::convert
