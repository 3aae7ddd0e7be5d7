// The button's two states, and the loop that encodes chunk by chunk.
#include "recording/Mp3Encoding.h"

#include "platform/Dialogs.h"
#include "platform/Encoder.h"
#include "platform/Files.h"
#include "platform/MessageLoop.h"
#include "platform/Notices.h"
#include "platform/SystemFiles.h"
#include "platform/Text.h"
#include "playback/Progress.h"
#include "recording/EncoderConfig.h"
#include "recording/Mp3Sound.h"
#include "recording/RecordDesk.h"
#include "recording/RecordingFormats.h"
#include "recording/clsFileIo.h"
#include "studio/FileHelpers.h"
#include "studio/Studio.h"

#include <array>
#include <istream>
#include <ostream>
#include <vector>

namespace velorin {

namespace {

using platform::BoxIcon;

constexpr char encodeCaption[] = "Encode File";
constexpr char stopEncodingCaption[] = "Stop Encoding";
constexpr char criticalError[] = "Critical Error";
constexpr std::int64_t bytesPerSample = 2;

std::int64_t lengthOf(platform::Platform& platform, const std::string& name) {
    const auto file = platform.files.openForInput(name);
    if (file == nullptr)
        return 0;
    file->seekg(0, std::ios::end);
    return file->tellg();
}

} // namespace

struct Mp3Encoding::Job {
    Job(platform::Platform& platform, std::uint32_t samplesGiven, std::uint32_t outputSize)
        : in(platform), out(platform), samples(samplesGiven), input(samples), output(outputSize) {}

    clsFileIo in;
    clsFileIo out;
    platform::EncoderStream stream = 0;
    std::uint32_t samples; ///< in a chunk
    std::vector<std::int16_t> input;
    std::vector<std::uint8_t> output;
    std::int64_t done = 0;  ///< bytes
    std::int64_t total = 0; ///< bytes, the header's among them
    std::int64_t read = 0;  ///< bytes that the file has given
    bool isOpen = false;    ///< the WAV
    bool isWritten = true;  ///< every byte so far

    void readBytes(void* bytes, std::uint32_t count) {
        // A failure shows in `finish`: bytes are missing then.
        static_cast<void>(in.ReadBytes(bytes, count));
        read += in.transferred();
    }
    void writeOutput(std::uint32_t bytes) {
        if (bytes > 0 && !out.WriteBytes(output.data(), bytes).isMinusOne())
            isWritten = false;
    }
};

// Rule: the second press only sets a flag. A third press before the loop has seen it starts an
// encoding inside the first, which clears the flag for both. Held by recording/pressed_twice.
void Mp3Encoding::Command20_Click() {
    Run& run = studio_.run;
    if (desk_.caption(RecordCaption::Command20) == stopEncodingCaption) {
        run.EncodeCancelled = flagSet;
        desk_.setCaption(RecordCaption::Command20, encodeCaption);
        return;
    }
    if (!findLibrary())
        return refuse(BoxIcon::critical, criticalError,
                      "Encoding library not found...can't encode.");
    if (!FileExists(studio_.platform, run.WavFileName)) {
        refuse(BoxIcon::none, messageTitle, "Enter a valid Wave file.");
        return explainMissing();
    }
    desk_.setText(RecordText::Text6, run.WavFileName);
    if (!platform::lowerCase(run.WavFileName).ends_with(".wav"))
        return refuse(BoxIcon::none, messageTitle, "Not a valid Wave file.");
    studio_.platform.loop.Yield();
    if (studio_.platform.loop.isEnding())
        return;
    if (!FileExists(studio_.platform, run.WavFileName))
        return desk_.setCaption(RecordCaption::Command20, encodeCaption);
    desk_.setCaption(RecordCaption::Label8, "Encoding");
    desk_.setCaption(RecordCaption::Command20, stopEncodingCaption);
    EncodeWavFile();
    if (studio_.platform.loop.isEnding())
        return;
    desk_.setText(RecordText::Text6, ChangeExtension(desk_.text(RecordText::Text6), "mp3"));
    // The current file may be another one by now.
    //
    // Rule: the WAV is deleted also if the user stopped the encoding. Held by recording/encoding.
    if (desk_.isChecked(RecordCheck::Check3) && made_.isWhole && run.WavFileName == made_.wav &&
        FileExists(studio_.platform, run.WavFileName))
        p_DestroyFile(studio_.platform, run.WavFileName);
    desk_.setCaption(RecordCaption::Label8, "");
    desk_.setCaption(RecordCaption::Status, "");
    desk_.setCaption(RecordCaption::Command20, encodeCaption);
    if (!made_.mp3.empty())
        desk_.encodingEnded(made_);
}

// A recording that is stopped by hand is encoded twice, and the WAV is deleted after the first
// time.
void Mp3Encoding::explainMissing() {
    const bool isMade = made_.isWhole && made_.wav == studio_.run.WavFileName &&
                        FileExists(studio_.platform, made_.mp3);
    if (isMade && !studio_.platform.loop.isEnding())
        desk_.explain("The recording is complete: its MP3 was made, and then the WAV was deleted. "
                      "Ignore the message.");
}

bool Mp3Encoding::findLibrary() {
    platform::Encoder& encoder = studio_.platform.encoder;
    LamePath = studio_.platform.programFolder + "\\lame_enc.dll";
    if (encoder.isPresent(LamePath))
        return true;
    GetLamePath();
    return encoder.isPresent(LamePath);
}

void Mp3Encoding::GetLamePath() {
    LamePath = studio_.platform.systemFiles.GetWindowsDirectoryA() + "\\System32\\lame_enc.dll";
}

void Mp3Encoding::refuse(BoxIcon icon, const char* title, const char* text) {
    desk_.setTopMost(false);
    studio_.platform.boxes.MsgBox(icon, title, text);
    desk_.setTopMost(true);
}

void Mp3Encoding::EncodeWavFile() {
    made_ = {};
    if (!studio_.desk->changeToProgramFolder())
        return showError("Path not found");
    if (!FileExists(studio_.platform, desk_.text(RecordText::Text6))) {
        studio_.platform.boxes.MsgBox(BoxIcon::critical, criticalError, "File not found...");
        return;
    }
    studio_.run.EncodeCancelled = flagClear;
    if (const auto choice = readChoice())
        encode(*choice);
}

// Rule: a missing bitrate is reported, and the encoding goes on with 0; a missing quality ends it.
// Held by recording/encoding_refused.
std::optional<EncoderChoice> Mp3Encoding::readChoice() {
    EncoderChoice choice;
    const int format = desk_.listIndex(RecordList::cbxFormat);
    if (format >= 0 && format < static_cast<int>(encoderInputs.size())) {
        choice.sampleRate = encoderInputs[static_cast<std::size_t>(format)].sampleRate;
        choice.mode = encoderInputs[static_cast<std::size_t>(format)].mode;
    }
    const std::string bitrate = desk_.listText(RecordList::Combo4);
    choice.bitrate = static_cast<std::int32_t>(platform::Val(bitrate));
    if (bitrate.empty())
        studio_.platform.boxes.MsgBox(BoxIcon::none, messageTitle, "You didn't select Bitrate...");
    const int quality = desk_.listIndex(RecordList::Combo3);
    if (quality < 0 || quality >= static_cast<int>(mp3Qualities.size())) {
        studio_.platform.boxes.MsgBox(BoxIcon::none, messageTitle, "You didn't select quality...");
        return std::nullopt;
    }
    choice.preset = mp3Qualities[static_cast<std::size_t>(quality)].preset;
    return choice;
}

void Mp3Encoding::encode(const EncoderChoice& choice) {
    platform::Encoder& encoder = studio_.platform.encoder;
    std::uint32_t samples = 0;
    std::uint32_t outputSize = 0;
    platform::EncoderStream stream = 0;
    const auto begun = encoder.beInitStream(encoderConfig(choice), samples, outputSize, stream);
    if (begun != 0)
        return showError(encoderErrorText(begun));
    const std::string name = platform::trimBlanks(desk_.text(RecordText::Text6));
    desk_.setText(RecordText::Text6, name);
    Job job(studio_.platform, samples, outputSize);
    job.stream = stream;
    job.total = lengthOf(studio_.platform, name);
    made_.wav = name;
    job.isOpen = job.in.OpenFile(name).isMinusOne();
    const std::string mp3 = ChangeExtension(name, "mp3");
    made_.mp3 = mp3;
    desk_.encodingBegun(mp3);
    studio_.platform.files.openForBinary(mp3).reset(); // else a file that differs in case is used
    job.isWritten = job.out.OpenFile(mp3).isMinusOne();
    const auto ended = encodeChunks(job, choice);
    if (ended && *ended != 0) {
        showError(encoderErrorText(*ended));
        return reportNotWhole("the encoder has failed", "encode it with other settings");
    }
    std::uint32_t flushed = 0;
    if (ended) {
        std::uint32_t bytes = 0;
        flushed = encoder.beDeinitStream(job.stream, job.output.data(), bytes);
        job.writeOutput(bytes);
    }
    // Every write was flushed, and `finish` syncs the file: closing cannot fail unnoticed.
    static_cast<void>(job.out.CloseFile());
    static_cast<void>(job.in.CloseFile());
    encoder.beCloseStream(job.stream);
    if (!ended)
        return reportNotWhole("the program ended while it encoded", "encode it again");
    finish(job, flushed);
}

// The WAV may be deleted only if its MP3 would survive a power cut.
void Mp3Encoding::finish(const Job& job, std::uint32_t flushed) {
    const bool isStopped = studio_.run.EncodeCancelled.isMinusOne();
    if (!job.isWritten || !studio_.platform.files.sync(job.out.name()))
        return reportNotWhole("it could not be written; the disk may be full",
                              "make room and encode it again");
    if (!job.isOpen || (!isStopped && job.read < job.total))
        return reportNotWhole("the WAV could not be read", "encode it again");
    if (flushed != 0)
        return reportNotWhole("the encoder has failed", "encode it with other settings");
    made_.isWhole = true;
    made_.isStopped = isStopped;
}

void Mp3Encoding::reportNotWhole(const char* reason, const char* advice) {
    const std::string name = ChangeExtension(made_.wav, "mp3");
    std::string text = "\"";
    text.append(name, name.find_last_of("/\\") + 1)
        .append("\" is not whole: ")
        .append(reason)
        .append(". The WAV is kept: ")
        .append(advice)
        .append(".");
    platform::notify(studio_.platform, text);
}

// Rule: the header's 44 bytes are read first but not counted as done. So the loop asks for 44 bytes
// more than the file has left and encodes what the buffer held in their place: an MP3 ends with up
// to 22 samples of repeated sound. Held by recording/encoding.
std::optional<std::uint32_t> Mp3Encoding::encodeChunks(Job& job, const EncoderChoice& choice) {
    std::array<char, wavHeaderSize> header{};
    job.readBytes(header.data(), wavHeaderSize);
    if (const auto head = readWavHead(header))
        made_.flaw = flawOfMp3(*head, choice);
    while (job.done < job.total) {
        const auto result = encodeChunk(job);
        if (!result || *result != 0)
            return result;
        if (studio_.run.EncodeCancelled.isMinusOne())
            break;
        studio_.platform.loop.Yield();
        if (studio_.platform.loop.isEnding())
            return std::nullopt;
    }
    return 0;
}

std::optional<std::uint32_t> Mp3Encoding::encodeChunk(Job& job) {
    platform::Encoder& encoder = studio_.platform.encoder;
    const std::int64_t full = job.samples * bytesPerSample;
    const std::int64_t chunk = job.done + full < job.total ? full : job.total - job.done;
    job.readBytes(job.input.data(), static_cast<std::uint32_t>(chunk));
    job.done += chunk;
    const auto count =
        static_cast<std::uint32_t>(platform::roundHalfEven(static_cast<double>(chunk) / 2.0));
    std::uint32_t bytes = 0;
    const std::uint32_t result =
        encoder.beEncodeChunk(job.stream, count, job.input.data(), job.output.data(), bytes);
    if (result != 0) {
        encoder.beCloseStream(job.stream);
        return result;
    }
    job.writeOutput(bytes);
    desk_.setCaption(RecordCaption::Status, exactPercent(job.done, job.total));
    desk_.encodingAt(static_cast<double>(job.done) / static_cast<double>(job.total));
    return 0;
}

void Mp3Encoding::showError(const std::string& text) {
    studio_.platform.boxes.MsgBox(BoxIcon::critical, "Encoding error...", text);
}

std::string ChangeExtension(const std::string& name, const std::string& extension) {
    return name.substr(0, name.rfind('.') + 1) + extension;
}

} // namespace velorin
