// MP3 files, through libmpg123.
#include "host/media/Mp3Frames.h"
#include "host/media/SoundReader.h"

#include <mpg123.h>

#include <algorithm>
#include <cstdio>

namespace velorin::host {

namespace fs = std::filesystem;

namespace {

struct Mp3Closer {
    void operator()(mpg123_handle* file) const { mpg123_delete(file); }
};
using Mp3File = std::unique_ptr<mpg123_handle, Mp3Closer>;

class Mp3Reader final : public SoundReader {
public:
    /// `pieces` is what the file is read through; null if it is read as it is.
    Mp3Reader(std::unique_ptr<SplicedFile> pieces, Mp3File file, int rateHz, int channels)
        : pieces_(std::move(pieces)),
          file_(std::move(file)),
          rateHz_(rateHz),
          channels_(channels),
          frames_(std::max<std::int64_t>(mpg123_length(file_.get()), 0)) {}

    int rateHz() const override { return rateHz_; }
    int channels() const override { return channels_; }
    std::int64_t frames() const override { return frames_; }

    // A file that continues at another rate ends there.
    int read(float* stereo, int frames) override {
        std::size_t bytes = 0;
        const std::size_t wanted = static_cast<std::size_t>(frames) * 2 * sizeof(float);
        const int result =
            mpg123_read(file_.get(), reinterpret_cast<unsigned char*>(stereo), wanted, &bytes);
        if (result != MPG123_OK && result != MPG123_DONE)
            return 0;
        return static_cast<int>(bytes / (2 * sizeof(float)));
    }

    bool seek(std::int64_t frame) override {
        return mpg123_seek(file_.get(), frame, SEEK_SET) >= 0;
    }

private:
    std::unique_ptr<SplicedFile> pieces_; ///< outlives the file
    Mp3File file_;
    int rateHz_;
    int channels_;
    std::int64_t frames_;
};

// A frame may use bits of up to nine frames before it. Without them, the first frame after a jump
// sounds wrong in files of low bitrates.
constexpr long framesBeforeJump = 10;

Mp3File quietHandle() {
    int problem = MPG123_OK;
    Mp3File file(mpg123_new(nullptr, &problem));
    if (!file)
        return nullptr;
    mpg123_handle* handle = file.get();
    mpg123_param(handle, MPG123_ADD_FLAGS, MPG123_QUIET | MPG123_FORCE_STEREO | MPG123_FORCE_FLOAT,
                 0.0);
    mpg123_param(handle, MPG123_PREFRAMES, framesBeforeJump, 0.0);
    return file;
}

ssize_t readFrom(void* file, void* bytes, std::size_t count) {
    return static_cast<ssize_t>(static_cast<SplicedFile*>(file)->read(
        static_cast<char*>(bytes), static_cast<std::int64_t>(count)));
}

off_t seekIn(void* file, off_t offset, int whence) {
    auto& pieces = *static_cast<SplicedFile*>(file);
    if (whence == SEEK_CUR)
        offset += pieces.position();
    else if (whence == SEEK_END)
        offset += pieces.length();
    return pieces.seek(offset);
}

struct Format {
    long rateHz = 0;
    int channels = 0;
    int encoding = 0;
};

// Reads the rate of the first frame and scans all frames: without a tag, or with a wrong one, only
// that gives the true length of the file.
bool scan(const Mp3File& file, Format& format) {
    return mpg123_getformat(file.get(), &format.rateHz, &format.channels, &format.encoding) ==
               MPG123_OK &&
           mpg123_scan(file.get()) == MPG123_OK;
}

} // namespace

// The library gives up after a kilobyte without a frame. If it searched further, it would take
// anything that looks like a frame for one and play noise. So the other data is cut out first.
std::unique_ptr<SoundReader> openMp3(const fs::path& path) {
    std::error_code failed;
    if (!fs::is_regular_file(path, failed))
        return nullptr;
    Format format;
    std::unique_ptr<SplicedFile> pieces;
    Mp3File file = quietHandle();
    if (!file || mpg123_open(file.get(), path.string().c_str()) != MPG123_OK || !scan(file, format))
        return nullptr;
    if (mpg123_errcode(file.get()) == MPG123_RESYNC_FAIL) {
        if (auto found = findMp3Pieces(path); !found.empty()) {
            pieces = std::make_unique<SplicedFile>(path, std::move(found));
            file = quietHandle();
            if (!file ||
                mpg123_replace_reader_handle(file.get(), readFrom, seekIn, nullptr) != MPG123_OK ||
                mpg123_open_handle(file.get(), pieces.get()) != MPG123_OK || !scan(file, format))
                return nullptr;
        }
    }
    if (format.rateHz < lowestRateHz || format.rateHz > highestRateHz)
        return nullptr;
    mpg123_frameinfo info{};
    const bool isMono = mpg123_info(file.get(), &info) == MPG123_OK && info.mode == MPG123_M_MONO;
    return std::make_unique<Mp3Reader>(std::move(pieces), std::move(file),
                                       static_cast<int>(format.rateHz), isMono ? 1 : 2);
}

} // namespace velorin::host
