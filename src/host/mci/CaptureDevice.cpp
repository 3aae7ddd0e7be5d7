// Executes the commands of a recording.
#include "host/mci/CaptureDevice.h"

#include "host/mci/MciErrors.h"
#include "platform/PathLookup.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cmath>
#include <ctime>
#include <map>

namespace velorin::host {

namespace fs = std::filesystem;

namespace {

constexpr std::array ratesHz{8000, 11025, 12000, 16000, 22050, 24000, 32000, 44100, 48000, 96000};

/// For the user: why a recording was cut short.
std::string cutText(const std::error_code& reason, double seconds) {
    const bool isFull = reason == std::errc::no_space_on_device || reason.value() == EDQUOT;
    const bool isLongest = reason == std::errc::file_too_large;
    const std::string why = isFull      ? "the disk is full"
                            : isLongest ? "the file cannot be longer"
                                        : reason.message();
    const std::string advice =
        isLongest ? "Record the rest as another one." : "Make room on the disk and record again.";
    if (seconds <= 0.0)
        return "Nothing was recorded: " + why + ". " + advice;
    return "The recording ends after " + lengthText(seconds) + ": " + why +
           ". What was recorded is kept. " + advice;
}

} // namespace

CaptureDevice::CaptureDevice(std::unique_ptr<CaptureSource> source, RecordingFolders folders)
    : source_(std::move(source)), folders_(std::move(folders)) {}

CaptureDevice::~CaptureDevice() {
    keep("The recording was not saved when it ended.");
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

// Nothing is set unless the whole format is valid.
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
    keep("A recording was not saved.");
    std::error_code error;
    part_ = createPartFile(folders_, error);
    if (!part_.isOpen()) {
        report(folders_, "Nothing can be recorded: " + quoted(folders_.songs) +
                             " cannot be written to (" + error.message() + ").");
        return mci::hardwareFailed;
    }
    const auto onCut = [folders = folders_](const std::error_code& reason, double seconds) {
        report(folders, cutText(reason, seconds));
    };
    recorder_ = std::make_unique<Recorder>(part_, format_, onCut, folders_.mostDataBytes);
    if (source_->start(recorder_->tap()))
        return mci::success;
    stop();
    part_.remove();
    report(folders_, "Nothing can be recorded: the sound card's input does not start.");
    return mci::hardwareFailed;
}

void CaptureDevice::stop() {
    if (!recorder_)
        return;
    source_->stop();
    recorder_->finish();
    frames_ = recorder_->frames();
    seconds_ = static_cast<double>(frames_) / format_.rateHz;
    lostMs_ = recorder_->lostMs();
    isCut_ = recorder_->isCut();
    recorder_.reset();
    if (frames_ == 0 && isCut_)
        part_.remove(); // its error was reported
}

// A recording that was cut short does not replace a file.
std::uint32_t CaptureDevice::save(const std::string& name) {
    if (name.empty())
        return mci::missingValue;
    stop();
    if (!part_.isOpen())
        return mci::notSaved;
    const fs::path target = platform::resolveForWriting(name);
    std::error_code failed;
    if (target.parent_path() == folders_.songs)
        createSongsFolder(folders_); // it may have been removed meanwhile
    const bool isTaken = fs::is_directory(target, failed) || (isCut_ && fs::exists(target, failed));
    if (!isTaken && !(failed = saveRecording(part_, target))) {
        reportLost(target);
        return mci::success;
    }
    const std::string why = isTaken ? "the name is taken" : failed.message();
    keep("The recording could not be saved as " + quoted(target.filename()) + " (" + why + ").");
    return mci::notSaved;
}

void CaptureDevice::keep(const std::string& reason) {
    stop();
    if (!part_.isOpen())
        return;
    if (frames_ == 0)
        return part_.remove();
    const fs::path hidden = part_.path();
    const auto kept = saveUnderNewName(part_, folders_, std::time(nullptr));
    part_ = PartFile(); // without a name, the next start finds it
    if (!kept)
        return report(folders_, reason + " It stays in " + quoted(hidden) +
                                    " and gets a name at a later start.");
    report(folders_, reason + " It is kept " + placeText(folders_, *kept) + ", " +
                         lengthText(seconds_) + " long.");
    reportLost(*kept);
}

void CaptureDevice::reportLost(const fs::path& file) {
    if (lostMs_ <= 0.0)
        return;
    report(folders_, quoted(file.filename()) + " lacks " +
                         std::to_string(static_cast<std::int64_t>(std::ceil(lostMs_))) +
                         " ms of sound, which are silent: the computer was too busy. Record again "
                         "with fewer programs running.");
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
