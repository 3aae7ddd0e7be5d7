// WAV files of every sample form, through libsndfile.
#include "host/media/SoundReader.h"
#include "host/media/SplicedFile.h"
#include "host/media/WavChunks.h"

#include <sndfile.h>

#include <algorithm>
#include <cmath>
#include <vector>

namespace velorin::host {

namespace fs = std::filesystem;

namespace {

struct SoundFileCloser {
    void operator()(SNDFILE* file) const { sf_close(file); }
};
using SoundFile = std::unique_ptr<SNDFILE, SoundFileCloser>;

// A file of floating-point samples may hold anything. A value that is no number would stay in the
// mix and in the filters for ever, and a level far above full scale is damage too.
float mixable(float sample) {
    constexpr float most = 1000.0F;
    return std::isfinite(sample) ? std::clamp(sample, -most, most) : 0.0F;
}

class WavReader final : public SoundReader {
public:
    /// `padded` is what the file is read through; null if it is read as it is.
    WavReader(std::unique_ptr<SplicedFile> padded, SoundFile file, const SF_INFO& info)
        : padded_(std::move(padded)), file_(std::move(file)), info_(info) {}

    int rateHz() const override { return info_.samplerate; }
    int channels() const override { return info_.channels; }
    std::int64_t frames() const override { return std::max<std::int64_t>(info_.frames, 0); }

    int read(float* stereo, int frames) override {
        return readFirstTwo(sf_readf_float, samples_, stereo, frames, mixable);
    }

    int readRounded(std::int16_t* stereo, int frames) override {
        if ((info_.format & SF_FORMAT_SUBMASK) != SF_FORMAT_PCM_16)
            return SoundReader::readRounded(stereo, frames);
        if (info_.channels == 2)
            return static_cast<int>(
                std::max<sf_count_t>(sf_readf_short(file_.get(), stereo, frames), 0));
        return readFirstTwo(sf_readf_short, wholeSamples_, stereo, frames,
                            [](std::int16_t sample) { return sample; });
    }

    bool seek(std::int64_t frame) override { return sf_seek(file_.get(), frame, SEEK_SET) >= 0; }

private:
    template <typename Sample, typename Convert>
    int readFirstTwo(sf_count_t (*readFrames)(SNDFILE*, Sample*, sf_count_t),
                     std::vector<Sample>& samples, Sample* stereo, int frames,
                     const Convert& convert) {
        const auto channels = static_cast<std::size_t>(info_.channels);
        samples.resize(channels * static_cast<std::size_t>(frames));
        const auto got = std::max<sf_count_t>(readFrames(file_.get(), samples.data(), frames), 0);
        const std::size_t right = channels > 1 ? 1 : 0;
        for (std::size_t frame = 0; frame < static_cast<std::size_t>(got); ++frame) {
            stereo[2 * frame] = convert(samples[frame * channels]);
            stereo[2 * frame + 1] = convert(samples[frame * channels + right]);
        }
        return static_cast<int>(got);
    }

    std::unique_ptr<SplicedFile> padded_; ///< outlives the file
    SoundFile file_;
    SF_INFO info_;
    std::vector<float> samples_;
    std::vector<std::int16_t> wholeSamples_;
};

// The library opens many kinds of files, whatever their names.
bool isWav(int format) {
    const int kind = format & SF_FORMAT_TYPEMASK;
    return kind == SF_FORMAT_WAV || kind == SF_FORMAT_WAVEX || kind == SF_FORMAT_RF64 ||
           kind == SF_FORMAT_W64;
}

sf_count_t lengthOf(void* file) {
    return static_cast<SplicedFile*>(file)->length();
}

sf_count_t seekIn(sf_count_t offset, int whence, void* file) {
    auto& padded = *static_cast<SplicedFile*>(file);
    if (whence == SEEK_CUR)
        offset += padded.position();
    else if (whence == SEEK_END)
        offset += padded.length();
    return padded.seek(offset);
}

sf_count_t readFrom(void* bytes, sf_count_t count, void* file) {
    return static_cast<SplicedFile*>(file)->read(static_cast<char*>(bytes), count);
}

sf_count_t writeNothing(const void*, sf_count_t, void*) {
    return 0;
}

sf_count_t placeIn(void* file) {
    return static_cast<SplicedFile*>(file)->position();
}

// The pieces between the missing padding bytes, with a zero in place of each.
std::vector<FilePiece> paddedPieces(const fs::path& path, const std::vector<std::int64_t>& pads) {
    std::error_code failed;
    const std::uintmax_t size = fs::file_size(path, failed);
    if (failed)
        return {};
    std::vector<FilePiece> pieces;
    std::int64_t begin = 0;
    for (const std::int64_t pad : pads) {
        pieces.push_back({begin, pad});
        pieces.push_back({0, 1, true});
        begin = pad;
    }
    pieces.push_back({begin, static_cast<std::int64_t>(size)});
    return pieces;
}

constexpr SF_VIRTUAL_IO splicedFileCalls{lengthOf, seekIn, readFrom, writeNothing, placeIn};

} // namespace

std::unique_ptr<SoundReader> openWav(const fs::path& path) {
    std::error_code failed;
    if (!fs::is_regular_file(path, failed))
        return nullptr;
    SF_INFO info{};
    std::unique_ptr<SplicedFile> padded;
    if (const auto pads = readWavChunks(path).missingPads; !pads.empty())
        padded = std::make_unique<SplicedFile>(path, paddedPieces(path, pads));
    SF_VIRTUAL_IO calls = splicedFileCalls;
    SoundFile file(padded ? sf_open_virtual(&calls, SFM_READ, &info, padded.get())
                          : sf_open(path.string().c_str(), SFM_READ, &info));
    if (!file || !isWav(info.format) || info.channels < 1 || info.samplerate < lowestRateHz ||
        info.samplerate > highestRateHz)
        return nullptr;
    return std::make_unique<WavReader>(std::move(padded), std::move(file), info);
}

} // namespace velorin::host
