// The files of the stems.
#include "convert/Stems.h"

#include "convert/LoadedScore.h"
#include "convert/OutputFile.h"
#include "convert/PlayedMidi.h"
#include "convert/RenderedMidi.h"
#include "convert/StemRenderer.h"

#include <sndfile.h>

#include <algorithm>
#include <cmath>
#include <utility>

namespace velorin::convert {

namespace fs = std::filesystem;
using platform::Failure;
using platform::Result;

namespace {

/// The synthesizer's own scale of a sample of 16 bits, so that the sum is as loud as the mix.
constexpr float fullScale = 32766.0F / 32768.0F;
constexpr float steps = 8'388'608.0F; ///< of 24 bits
constexpr int lowBits = 256;          ///< the library takes 32 bits and cuts the lowest eight

Failure failureAbout(const fs::path& file, const std::string& what) {
    return {file.string() + " " + what};
}

int toStemSample(float value) {
    const float scaled = std::clamp(value * fullScale * steps, -steps, steps - 1.0F);
    return static_cast<int>(std::lrintf(scaled)) * lowBits;
}

/// One stem on the disk.
class StemFile {
public:
    explicit StemFile(const fs::path& target) : target_(target), output_(target) {}

    Result<void> begin(int rateHz) {
        if (const auto begun = output_.begin(); !begun)
            return failureAbout(target_, begun.reason());
        SF_INFO info{};
        info.samplerate = rateHz;
        info.channels = 2;
        info.format = SF_FORMAT_WAV | SF_FORMAT_PCM_24;
        file_.reset(sf_open(output_.part().string().c_str(), SFM_WRITE, &info));
        return file_ ? Result<void>() : failure();
    }

    bool write(const float* stereo, int frames) {
        samples_.resize(2 * static_cast<std::size_t>(frames));
        std::transform(stereo, stereo + samples_.size(), samples_.begin(), toStemSample);
        return sf_writef_int(file_.get(), samples_.data(), frames) == frames;
    }

    /// Writes the rest; the file does not have its name yet.
    Result<void> complete() {
        if (const int failed = sf_close(file_.release()); failed != 0)
            return failureAbout(target_,
                                std::string("cannot be written: ") + sf_error_number(failed));
        return {};
    }

    Result<void> putInPlace() {
        if (const auto finished = output_.finish(); !finished)
            return failureAbout(target_, finished.reason());
        return {};
    }

    [[nodiscard]] Failure failure() const {
        return failureAbout(target_, std::string("cannot be written: ") + sf_strerror(file_.get()));
    }

private:
    struct Closer {
        void operator()(SNDFILE* file) const { sf_close(file); }
    };

    fs::path target_;
    OutputFile output_;
    std::unique_ptr<SNDFILE, Closer> file_;
    std::vector<int> samples_;
};

using StemFiles = std::vector<std::unique_ptr<StemFile>>;

Result<StemFiles> beginFiles(const StemRenderer& renderer, const fs::path& target, int rateHz) {
    StemFiles files;
    for (const int row : renderer.rows()) {
        files.push_back(std::make_unique<StemFile>(stemName(target, row)));
        if (const auto begun = files.back()->begin(rateHz); !begun)
            return begun.failure();
    }
    return files;
}

// Nothing gets its name before all of them are complete.
Result<void> finishFiles(const StemFiles& files) {
    for (const auto& file : files) {
        if (auto completed = file->complete(); !completed)
            return completed;
    }
    for (const auto& file : files) {
        if (auto placed = file->putInPlace(); !placed)
            return placed;
    }
    return {};
}

Result<void> check(const SoundRequest& request, const PlayedSong& song) {
    const auto channels = channelsOfRows(song);
    const auto isSilent = [](std::uint16_t used) { return used == 0; };
    if (std::all_of(channels.begin(), channels.end(), isSilent))
        return Failure{"has no notes, so there are no stems to make"};
    if (request.checkLength) {
        if (auto checked =
                request.checkLength(static_cast<double>(song.lengthNs) / 1e9, request.rateHz);
            !checked)
            return checked;
    }
    if (const auto synth = loadSynth(request); !synth)
        return synth.failure();
    return {};
}

/// Plays the score into the files.
class StemWriter {
public:
    StemWriter(const SoundRequest& request, const fs::path& target,
               const std::function<bool()>& isStopRequested)
        : request_(request), target_(target), isStopRequested_(isStopRequested) {}

    Result<void> write(const RowArray<std::uint16_t>& channels) {
        StemRenderer renderer(
            channels, [this] { return std::move(*loadSynth(request_)); },
            [this](std::size_t stem, const float* stereo, int frames) {
                return take(stem, stereo, frames);
            });
        auto begun = beginFiles(renderer, target_, request_.rateHz);
        if (!begun)
            return begun.failure();
        files_ = std::move(*begun);
        RenderedMidi midi(renderer, request_.rateHz);
        LoadedScore score(midi);
        playing_ = &score;
        if (const auto opened = score.open(request_.source, request_.text, request_.setup); !opened)
            return failureAbout(request_.source, opened.reason());
        renderer.setRow(score.session.sounding.SoundRow);
        midi.setClock(score.host.clock);
        play(score, request_.progress);
        midi.catchUp();
        midi.renderTail();
        if (stopped_)
            return failureAbout(target_, "was interrupted");
        return midi.failed() ? files_[failedFile_]->failure() : finishFiles(files_);
    }

private:
    bool take(std::size_t stem, const float* stereo, int frames) {
        stopped_ = stopped_ || (isStopRequested_ && isStopRequested_());
        failedFile_ = stem;
        const bool written = !stopped_ && files_[stem]->write(stereo, frames);
        if (!written)
            playing_->host.loop.end();
        return written;
    }

    const SoundRequest& request_;
    const fs::path& target_;
    const std::function<bool()>& isStopRequested_;
    StemFiles files_;
    LoadedScore* playing_ = nullptr;
    bool stopped_ = false;
    std::size_t failedFile_ = 0; ///< the one that was written last
};

} // namespace

fs::path stemName(const fs::path& target, int row) {
    const std::string ending = row < musicRows ? "-ch" + std::to_string(row + 1)
                                               : "-drums" + std::to_string(row - musicRows + 1);
    fs::path name = target;
    name.replace_filename(target.stem().string() + ending + target.extension().string());
    return name;
}

Result<void> makeStems(const SoundRequest& request, const fs::path& target,
                       const std::function<bool()>& isStopRequested) {
    auto song = playSilently(request.source, request.text, request.setup);
    if (!song)
        return failureAbout(request.source, song.reason());
    if (const auto checked = check(request, *song); !checked)
        return failureAbout(request.source, checked.reason());
    return StemWriter(request, target, isStopRequested).write(channelsOfRows(*song));
}

} // namespace velorin::convert
