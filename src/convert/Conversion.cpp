// Checks the input and the output, and chooses the conversion.
#include "convert/Conversion.h"

#include "convert/BackgroundTarget.h"
#include "convert/Bitrates.h"
#include "convert/LoadedScore.h"
#include "convert/MidiImport.h"
#include "convert/Mp3Target.h"
#include "convert/OutputFile.h"
#include "convert/PageConversion.h"
#include "convert/PictureModule.h"
#include "convert/PlayedMidi.h"
#include "convert/PlayedMidiFile.h"
#include "convert/SoundLength.h"
#include "convert/SoundRendering.h"
#include "convert/Stems.h"
#include "model/MidiExport.h"
#include "model/ScoreWriter.h"

namespace velorin::convert {

namespace fs = std::filesystem;
using platform::Failure;
using platform::Result;

namespace {

std::string about(const fs::path& file, const std::string& what) {
    return file.string() + " " + what;
}

/// The same result, its reason beginning with the file name.
Result<void> named(const fs::path& file, const Result<void>& result) {
    if (!result)
        return Failure{about(file, result.reason())};
    return {};
}

/// A target whose writes fail once a stop is requested.
class StoppableTarget final : public SoundTarget {
public:
    StoppableTarget(std::unique_ptr<SoundTarget> target,
                    const std::function<bool()>& isStopRequested)
        : target_(std::move(target)), isStopRequested_(isStopRequested) {}

    bool write(const std::int16_t* stereo, int frames) override {
        stopped_ = stopped_ || isStopRequested_();
        return !stopped_ && target_->write(stereo, frames);
    }
    Result<void> finish() override { return target_->finish(); }
    std::string failureReason() const override {
        return stopped_ ? "was interrupted" : target_->failureReason();
    }

private:
    std::unique_ptr<SoundTarget> target_;
    const std::function<bool()>& isStopRequested_;
    bool stopped_ = false;
};

MadeTarget makeTarget(const Task& task, const fs::path& part, const SoundParameters& parameters) {
    return task.kind == Kind::mp3 ? makeMp3(part, parameters, findLame())
                                  : makeWav(part, parameters);
}

SoundRequest requestFor(const Task& task, const Options& options,
                        const ConversionCallbacks& callbacks) {
    const auto warning = [&task, &callbacks](const std::string& text) {
        if (callbacks.warning)
            callbacks.warning(about(task.source, text));
    };
    const auto check = [&task, &options, &callbacks](double seconds, int rateHz) {
        if (callbacks.length)
            callbacks.length(seconds);
        const int bitrate = options.bitrate.value_or(defaultBitrateAt(rateHz));
        const SoundLength length{seconds, rateHz, task.kind == Kind::mp3 ? bitrate : 0};
        auto checked = checkLength(length, options.maxMinutes);
        if (checked && needsWarning(length) && callbacks.warning)
            callbacks.warning(about(task.target, "will be " + lengthText(length)));
        return checked;
    };
    return {task.source,   task.text,       options.soundFont,  options.rateHz,
            options.isDry, task.followers,  callbacks.progress, check,
            warning,       task.setup.get()};
}

Result<void> makeSound(const Task& task, const Options& options,
                       const ConversionCallbacks& callbacks) {
    OutputFile whole(task.target, task.existing);
    if (auto rendered = renderSound(whole, task, options, callbacks); !rendered)
        return rendered;
    return named(task.target, whole.finish());
}

Result<std::string> playedMidi(LoadedScore& score, KeptMidi& midi, const Task& task,
                               const Options& options, const ConversionCallbacks& callbacks) {
    const PlayedSong song = playToEnd(score, midi);
    const double seconds = static_cast<double>(song.lengthNs) / 1e9;
    if (callbacks.length)
        callbacks.length(seconds);
    if (const auto checked = checkPlayingTime(seconds, options.maxMinutes); !checked)
        return checked.failure();
    return playedMidiFile(song, fs::path(task.source).stem().string());
}

// No bytes if a picture cannot be drawn.
Result<std::string> bytesOf(LoadedScore& score, KeptMidi& midi, const Task& task,
                            const Options& options, const ConversionCallbacks& callbacks) {
    switch (task.kind) {
    case Kind::mid:
        if (options.plainMidi)
            return midiFileOf(score.studio.score, score.studio.setup.options());
        return playedMidi(score, midi, task, options, callbacks);
    case Kind::sng:
        // The text of a state has the chord marks in their places also for the next reader.
        return task.text.empty() ? scoreText(score.studio.score) : task.text;
    default:
        break;
    }
    if (!callbacks.drawPicture)
        return drawPng(score.studio, options.pictureScale, options.thumbnailPx);
    std::string png;
    callbacks.drawPicture(score.studio, options.pictureScale, options.thumbnailPx, png);
    return png;
}

Result<void> makeStemsOf(const Task& task, const Options& options,
                         const ConversionCallbacks& callbacks) {
    if (sourceKindOf(task.source) != Kind::sng)
        return Failure{about(task.source, "has no rows; stems are made from scores")};
    return makeStems(requestFor(task, options, callbacks), task.target, callbacks.isStopRequested);
}

Result<void> makeFromScore(const Task& task, const Options& options,
                           const ConversionCallbacks& callbacks) {
    KeptMidi midi;
    LoadedScore score(midi);
    if (const auto opened = score.open(task.source, task.text, task.setup.get()); !opened)
        return named(task.source, opened);
    auto bytes = bytesOf(score, midi, task, options, callbacks);
    if (!bytes)
        return Failure{about(task.source, bytes.reason())};
    if (bytes->empty())
        return Failure{
            about(task.target, "cannot be drawn: the module velorin-picture.so is missing")};
    return named(task.target, writeOutput(task.target, *bytes, task.existing));
}

} // namespace

Result<void> renderSound(OutputFile& whole, const Task& task, const Options& options,
                         const ConversionCallbacks& callbacks) {
    bool begun = false; // before that, a failure is about the source
    const MakeTarget make = [&](int rateHz, int channels) -> MadeTarget {
        begun = true;
        if (const auto opened = whole.begin(); !opened)
            return opened.failure();
        const int bitrate = options.bitrate.value_or(defaultBitrateAt(rateHz));
        auto target = makeTarget(task, whole.part(), {rateHz, channels, bitrate, options.quality});
        // To read a WAV file is too little work for a thread of its own.
        if (target && callbacks.encodesAside && sourceKindOf(task.source) != Kind::wav)
            target = MadeTarget(std::make_unique<BackgroundTarget>(std::move(*target)));
        if (!target || !callbacks.isStopRequested)
            return target;
        return MadeTarget(
            std::make_unique<StoppableTarget>(std::move(*target), callbacks.isStopRequested));
    };
    const SoundRequest request = requestFor(task, options, callbacks);
    const auto render = [&] {
        switch (sourceKindOf(task.source)) {
        case Kind::mid:
            return renderMidi(request, make);
        case Kind::wav:
            return copyWav(request, make);
        default:
            return renderScore(request, make);
        }
    };
    const Result<void> rendered = render(); // decides what `begun` is
    return named(begun ? task.target : fs::path(task.source), rendered);
}

Result<void> checkTarget(const fs::path& target) {
    std::error_code failed;
    const fs::file_status status = fs::status(target, failed);
    if (fs::exists(status) && !fs::is_regular_file(status))
        return Failure{about(target, "is not a file that can be replaced")};
    const fs::path folder = target.parent_path();
    if (!folder.empty() && !fs::is_directory(folder, failed))
        return Failure{about(folder, "is not a folder")};
    return {};
}

Result<void> convert(const Task& task, const Options& options,
                     const ConversionCallbacks& callbacks) {
    if (!canMake(sourceKindOf(task.source), task.kind))
        return Failure{about(task.source, "cannot be turned into this kind of file")};
    if (!task.followers.empty() && sourceKindOf(task.source) != Kind::sng)
        return Failure{about(task.source, "cannot be joined: it is not a score")};
    if (auto checked = checkTarget(task.target); !checked)
        return checked;
    std::error_code failed; // on an error they are two files
    if (!options.mayReplaceScore && fs::equivalent(task.source, task.target, failed))
        return Failure{about(task.source, "would be replaced by itself; name the output with -o")};
    if (options.makesStems)
        return makeStemsOf(task, options, callbacks);
    if (task.kind == Kind::html)
        return makePage(task, options, callbacks);
    if (task.kind == Kind::wav || task.kind == Kind::mp3)
        return makeSound(task, options, callbacks);
    if (sourceKindOf(task.source) == Kind::mid)
        return importMidiFile(task, options, callbacks);
    return makeFromScore(task, options, callbacks);
}

} // namespace velorin::convert
