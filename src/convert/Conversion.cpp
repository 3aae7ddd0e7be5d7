// The kinds of input and output, and what is looked at before anything is made.
#include "convert/Conversion.h"

#include "convert/Bitrates.h"
#include "convert/LoadedScore.h"
#include "convert/Mp3Target.h"
#include "convert/PictureModule.h"
#include "convert/SoundLength.h"
#include "convert/SoundRendering.h"
#include "convert/WholeFile.h"
#include "platform/MidiOut.h"
#include "score/MidiExport.h"
#include "score/ScoreWriter.h"

namespace velorin::convert {

namespace fs = std::filesystem;

namespace {

// No device: what is converted without being played sends nothing.
struct NoMidi final : platform::MidiOut {
    int midiOutGetNumDevs() override { return 0; }
    std::string midiOutGetDevCapsA(int) override { return {}; }
    std::uint32_t midiOutOpen(platform::MidiOutHandle&, int) override {
        return platform::midiBadDevice;
    }
    std::uint32_t midiOutClose(platform::MidiOutHandle) override { return platform::midiBadHandle; }
    std::uint32_t midiOutShortMsg(platform::MidiOutHandle, std::uint32_t) override {
        return platform::midiBadHandle;
    }
};

// Empty for a picture that cannot be drawn.
std::string bytesOf(Kind kind, LoadedScore& score) {
    switch (kind) {
    case Kind::mid:
        return midiFileOf(score.studio.score, score.setup);
    case Kind::sng:
        return scoreText(score.studio.score);
    default:
        return drawPng(score.studio);
    }
}

std::string about(const fs::path& file, const std::string& problem) {
    return problem.empty() ? std::string() : file.string() + " " + problem;
}

// To replace a device or a folder by a file would be a mishap.
std::string checkTarget(const fs::path& target) {
    std::error_code failed;
    const fs::file_status status = fs::status(target, failed);
    if (fs::exists(status) && !fs::is_regular_file(status))
        return about(target, "is no file that could be replaced");
    const fs::path folder = target.parent_path();
    if (!folder.empty() && !fs::is_directory(folder, failed))
        return about(folder, "is no folder");
    return {};
}

/// A target that can be broken off at each write.
class BreakableTarget final : public SoundTarget {
public:
    BreakableTarget(std::unique_ptr<SoundTarget> target, const std::function<bool()>& isBrokenOff)
        : target_(std::move(target)), isBrokenOff_(isBrokenOff) {}

    bool write(const std::int16_t* stereo, int frames) override {
        broken_ = broken_ || isBrokenOff_();
        return !broken_ && target_->write(stereo, frames);
    }
    std::string finish() override { return target_->finish(); }
    std::string whyFailed() const override {
        return broken_ ? "was broken off" : target_->whyFailed();
    }

private:
    std::unique_ptr<SoundTarget> target_;
    const std::function<bool()>& isBrokenOff_;
    bool broken_ = false;
};

std::unique_ptr<SoundTarget> makeTarget(const Task& task, const fs::path& part,
                                        const SoundParameters& parameters, std::string& reason) {
    return task.kind == Kind::mp3 ? makeMp3(part, parameters, findLame(), reason)
                                  : makeWav(part, parameters, reason);
}

SoundRequest requestFor(const Task& task, const Options& options, const Attendant& attendant) {
    const auto remark = [&task, &attendant](const std::string& text) {
        if (attendant.remark)
            attendant.remark(about(task.score, text));
    };
    const auto checkLength = [&task, &options, &attendant](double seconds) {
        const int bitrate = options.bitrate.value_or(usualBitrateAt(options.rateHz));
        const SoundLength length{seconds, options.rateHz, task.kind == Kind::mp3 ? bitrate : 0};
        std::string problem = whyTooLong(length, options.mostMinutes);
        if (problem.empty() && isWorthARemark(length) && attendant.remark)
            attendant.remark(about(task.target, "will be " + described(length)));
        return problem;
    };
    return {task.score, options.soundFont, options.rateHz, attendant.progress, checkLength, remark};
}

std::string makeSound(const Task& task, const Options& options, const Attendant& attendant) {
    WholeFile whole(task.target);
    bool begun = false; // until then the source is to blame
    const MakeTarget make = [&](int rateHz, int channels,
                                std::string& reason) -> std::unique_ptr<SoundTarget> {
        begun = true;
        reason = whole.begin();
        if (!reason.empty())
            return nullptr;
        const int bitrate = options.bitrate.value_or(usualBitrateAt(rateHz));
        auto target =
            makeTarget(task, whole.part(), {rateHz, channels, bitrate, options.quality}, reason);
        if (!target || !attendant.isBrokenOff)
            return target;
        return std::make_unique<BreakableTarget>(std::move(target), attendant.isBrokenOff);
    };
    const SoundRequest request = requestFor(task, options, attendant);
    std::string problem;
    switch (sourceKindOf(task.score)) {
    case Kind::mid:
        problem = renderMidi(request, make);
        break;
    case Kind::wav:
        problem = copyWav(request, make);
        break;
    default:
        problem = renderScore(request, make);
        break;
    }
    if (problem.empty())
        problem = whole.finish();
    return about(begun ? task.target : fs::path(task.score), problem);
}

std::string makeFromScore(const Task& task) {
    NoMidi midi;
    LoadedScore score(midi);
    if (const std::string problem = score.open(task.score); !problem.empty())
        return about(task.score, problem);
    const std::string bytes = bytesOf(task.kind, score);
    return about(task.target, bytes.empty()
                                  ? "cannot be drawn: the module velorin-picture.so is missing"
                                  : writeWhole(task.target, bytes));
}

} // namespace

std::string convert(const Task& task, const Options& options, const Attendant& attendant) {
    if (!canMake(sourceKindOf(task.score), task.kind))
        return about(task.score, "cannot be turned into this kind of file");
    if (std::string problem = checkTarget(task.target); !problem.empty())
        return problem;
    std::error_code failed; // they are two files then
    if (!options.mayReplaceScore && fs::equivalent(task.score, task.target, failed))
        return about(task.score, "would be replaced by itself; name the output with -o");
    if (task.kind == Kind::wav || task.kind == Kind::mp3)
        return makeSound(task, options, attendant);
    return makeFromScore(task);
}

} // namespace velorin::convert
