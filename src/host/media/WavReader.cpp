// WAV files of every sample form, through libsndfile.
#include "host/media/SoundReader.h"
#include "host/media/SplicedFile.h"
#include "host/media/WavChunks.h"

#include <sndfile.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <fstream>
#include <string_view>
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
    /// `spliced` is what the file is read through; null if it is read as it is.
    WavReader(std::unique_ptr<SplicedFile> spliced, SoundFile file, const SF_INFO& info)
        : spliced_(std::move(spliced)), file_(std::move(file)), info_(info) {}

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

    std::unique_ptr<SplicedFile> spliced_; ///< outlives the file
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
    auto& spliced = *static_cast<SplicedFile*>(file);
    if (whence == SEEK_CUR)
        offset += spliced.position();
    else if (whence == SEEK_END)
        offset += spliced.length();
    return spliced.seek(offset);
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

bool isWhole(const std::vector<FilePiece>& pieces, const fs::path& path) {
    std::error_code failed;
    return pieces.size() == 1 && pieces[0].begin == 0 &&
           static_cast<std::uintmax_t>(pieces[0].end) == fs::file_size(path, failed) && !failed;
}

// The form for files of more than 4 GB that begins with "riff". No other file is given to the
// library: it has parsers for two dozen kinds.
bool isWave64(const fs::path& path) {
    std::array<char, 4> kind{};
    std::ifstream(path, std::ios::binary).read(kind.data(), kind.size());
    return std::string_view(kind.data(), kind.size()) == "riff";
}

constexpr SF_VIRTUAL_IO splicedFileCalls{lengthOf, seekIn, readFrom, writeNothing, placeIn};

} // namespace

std::unique_ptr<SoundReader> openWav(const fs::path& path) {
    std::error_code failed;
    if (!fs::is_regular_file(path, failed))
        return nullptr;
    const WavChunks chunks = readWavChunks(path);
    if (chunks.isWav ? chunks.needed.empty() : !isWave64(path))
        return nullptr;
    SF_INFO info{};
    std::unique_ptr<SplicedFile> spliced;
    if (chunks.isWav && !isWhole(chunks.needed, path))
        spliced = std::make_unique<SplicedFile>(path, chunks.needed);
    SF_VIRTUAL_IO calls = splicedFileCalls;
    SoundFile file(spliced ? sf_open_virtual(&calls, SFM_READ, &info, spliced.get())
                           : sf_open(path.string().c_str(), SFM_READ, &info));
    if (!file || !isWav(info.format) || info.channels < 1 || info.samplerate < lowestRateHz ||
        info.samplerate > highestRateHz)
        return nullptr;
    return std::make_unique<WavReader>(std::move(spliced), std::move(file), info);
}

} // namespace velorin::host
