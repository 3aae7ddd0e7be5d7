// WAV files through libsndfile.
#include "convert/SoundTarget.h"

#include <sndfile.h>

namespace velorin::convert {

namespace {

constexpr std::int64_t mostFrames = (0xFFFFFFFFLL - 1024) / 4; ///< what a WAV file's header can say

struct SoundFileCloser {
    void operator()(SNDFILE* file) const { sf_close(file); }
};
using SoundFile = std::unique_ptr<SNDFILE, SoundFileCloser>;

class WavTarget final : public SoundTarget {
public:
    explicit WavTarget(SoundFile file) : file_(std::move(file)) {}

    bool write(const std::int16_t* stereo, int frames) override {
        frames_ += frames;
        return frames_ <= mostFrames && sf_writef_short(file_.get(), stereo, frames) == frames;
    }

    std::string whyFailed() const override {
        if (frames_ > mostFrames)
            return "is too long for a WAV file";
        return std::string("cannot be written: ") + sf_strerror(file_.get());
    }

    std::string finish() override {
        return sf_close(file_.release()) == 0 ? "" : "cannot be written to its end";
    }

private:
    SoundFile file_;
    std::int64_t frames_ = 0;
};

} // namespace

std::unique_ptr<SoundTarget> makeWav(const std::filesystem::path& path,
                                     const SoundParameters& parameters, std::string& reason) {
    SF_INFO info{};
    info.samplerate = parameters.rateHz;
    info.channels = 2;
    info.format = SF_FORMAT_WAV | SF_FORMAT_PCM_16;
    SoundFile file(sf_open(path.string().c_str(), SFM_WRITE, &info));
    if (!file) {
        reason = std::string("cannot be written: ") + sf_strerror(nullptr);
        return nullptr;
    }
    return std::make_unique<WavTarget>(std::move(file));
}

} // namespace velorin::convert
