// Writes WAV files with libsndfile.
#include "convert/SoundTarget.h"

#include <sndfile.h>

namespace velorin::convert {

namespace {

struct SoundFileCloser {
    void operator()(SNDFILE* file) const { sf_close(file); }
};
// Strips "System error : " and the full stop from messages of the library.
std::string inOneClause(std::string text) {
    const std::string preface = "System error : ";
    if (text.starts_with(preface))
        text.erase(0, preface.size());
    while (text.ends_with('.') || text.ends_with('\n'))
        text.pop_back();
    return "cannot be written: " + text;
}

using SoundFile = std::unique_ptr<SNDFILE, SoundFileCloser>;

class WavTarget final : public SoundTarget {
public:
    explicit WavTarget(SoundFile file) : file_(std::move(file)) {}

    bool write(const std::int16_t* stereo, int frames) override {
        frames_ += frames;
        return frames_ <= maxWavFrames && sf_writef_short(file_.get(), stereo, frames) == frames;
    }

    std::string failureReason() const override {
        if (frames_ > maxWavFrames)
            return "is too long for a WAV file";
        return inOneClause(sf_strerror(file_.get()));
    }

    platform::Result<void> finish() override {
        if (const int failed = sf_close(file_.release()); failed != 0)
            return platform::Failure{inOneClause(sf_error_number(failed))};
        return {};
    }

private:
    SoundFile file_;
    std::int64_t frames_ = 0;
};

} // namespace

MadeTarget makeWav(const std::filesystem::path& path, const SoundParameters& parameters) {
    SF_INFO info{};
    info.samplerate = parameters.rateHz;
    info.channels = 2;
    info.format = SF_FORMAT_WAV | SF_FORMAT_PCM_16;
    SoundFile file(sf_open(path.string().c_str(), SFM_WRITE, &info));
    if (!file)
        return platform::Failure{inOneClause(sf_strerror(nullptr))};
    return MadeTarget(std::make_unique<WavTarget>(std::move(file)));
}

} // namespace velorin::convert
