// From a format to a file under its name.
#include "host/mci/CaptureDevice.h"

#include "host/mci/MciErrors.h"
#include "platform/CaseBlind.h"

#include <algorithm>
#include <array>
#include <map>

namespace velorin::host {

namespace fs = std::filesystem;

namespace {

constexpr std::array ratesHz{8000, 11025, 12000, 16000, 22050, 24000, 32000, 44100, 48000, 96000};

} // namespace

CaptureDevice::CaptureDevice(std::unique_ptr<CaptureSource> source, fs::path folder)
    : source_(std::move(source)), part_(folder) {
    sweepParts(folder);
}

CaptureDevice::~CaptureDevice() {
    stop();
}

std::uint32_t CaptureDevice::carryOut(const CommandText& command, std::string* reply) {
    if (command.verb == "set")
        return set(command.rest);
    if (command.verb == "record")
        return record();
    if (command.verb == "save")
        return save(command.rest);
    if (command.verb == "status")
        return status(command.rest, reply);
    if (command.verb != "stop")
        return mci::cannotDo;
    stop();
    return mci::success;
}

// The whole format is looked at before any of it is taken.
std::uint32_t CaptureDevice::set(const std::string& text) {
    const std::vector<std::string> words = wordsOf(text);
    if (words.size() == 3 && words[0] == "time" && words[1] == "format") {
        const auto format = timeFormatOf(words[2]);
        timeFormat_ = format.value_or(timeFormat_);
        return format ? mci::success : mci::badTimeFormat;
    }
    if (recorder_)
        return mci::notReady;
    std::map<std::string, std::int64_t> values{{"samplespersec", format_.rateHz},
                                               {"channels", format_.channels},
                                               {"bitspersample", format_.bits}};
    for (std::size_t i = 0; i < words.size(); i += 2) {
        const std::int64_t number = i + 1 < words.size() ? numberOf(words[i + 1]).value_or(-1) : -1;
        if (!values.contains(words[i]) && words[i] != "alignment" && words[i] != "bytespersec")
            return mci::unknownWord;
        if (number < 0 || number > 1'000'000)
            return mci::badNumber;
        values[words[i]] = number;
    }
    const WavFormat wanted{static_cast<int>(values["samplespersec"]),
                           static_cast<int>(values["bitspersample"]),
                           static_cast<int>(values["channels"])};
    const bool isKnown =
        std::find(ratesHz.begin(), ratesHz.end(), wanted.rateHz) != ratesHz.end() &&
        (wanted.bits == 8 || wanted.bits == 16) && (wanted.channels == 1 || wanted.channels == 2);
    const auto agrees = [&values](const char* key, int value) {
        return !values.contains(key) || values[key] == value;
    };
    if (!isKnown || !agrees("alignment", wanted.alignment()) ||
        !agrees("bytespersec", wanted.bytesPerSecond()))
        return mci::badFormat;
    format_ = wanted;
    return mci::success;
}

std::uint32_t CaptureDevice::record() {
    if (recorder_)
        return mci::success;
    part_.make();
    recorder_ = std::make_unique<Recorder>(part_.path(), format_);
    recorded_ = true;
    if (source_->start(recorder_->tap()))
        return mci::success;
    stop();
    return mci::hardwareFailed;
}

void CaptureDevice::stop() {
    if (!recorder_)
        return;
    source_->stop();
    whole_ = recorder_->finish();
    frames_ = recorder_->frames();
    recorder_.reset();
}

// What could not be recorded in full, for want of room on the disk, does not get a name.
std::uint32_t CaptureDevice::save(const std::string& name) {
    if (name.empty())
        return mci::missingValue;
    stop();
    std::error_code failed;
    const fs::path target = platform::resolve(name);
    if (recorded_ && !whole_)
        notSaved_.say(
            "the recording is not saved: it could not be written whole; is the disk full?");
    if (!recorded_ || !whole_ || fs::is_directory(target, failed))
        return mci::notSaved;
    fs::rename(part_.path(), target, failed);
    if (failed) { // the folder lies on another disk
        fs::copy_file(part_.path(), target, fs::copy_options::overwrite_existing, failed);
        std::error_code ignored;
        if (failed)
            fs::remove(target, ignored);
        fs::remove(part_.path(), ignored);
    }
    recorded_ = false;
    if (!failed)
        return mci::success;
    notSaved_.say("the recording is not saved: " + failed.message());
    return mci::notSaved;
}

std::uint32_t CaptureDevice::status(const std::string& text, std::string* reply) {
    const std::vector<std::string> words = wordsOf(text);
    const std::string item = words.empty() ? std::string() : words[0];
    if (item == "length" || item == "position") {
        const std::int64_t frames = recorder_ ? recorder_->frames() : frames_;
        return answer(reply, std::to_string(toFormat(frames, timeFormat_, format_.rateHz)));
    }
    if (item == "mode")
        return answer(reply, recorder_ ? "recording" : "stopped");
    if (item == "ready")
        return answer(reply, "true");
    return item.empty() ? mci::missingValue : mci::unknownWord;
}

} // namespace velorin::host
