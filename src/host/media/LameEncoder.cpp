// The configuration record, field by field, as settings of the LAME library.
#include "host/media/LameEncoder.h"

#include "host/media/Lame.h"
#include "platform/PathLookup.h"
#include "platform/Text.h"

#include <array>

namespace velorin::host {

namespace {

// Where the fields of the record lie.
constexpr std::size_t kindAt = 0;
constexpr std::size_t sampleRateAt = 12;
constexpr std::size_t resampleRateAt = 16;
constexpr std::size_t modeAt = 20;
constexpr std::size_t bitrateAt = 24;
constexpr std::size_t presetAt = 32;
constexpr std::size_t privateAt = 48;
constexpr std::size_t checksumAt = 52;
constexpr std::size_t copyrightAt = 56;
constexpr std::size_t originalAt = 60;

constexpr std::uint32_t lameKind = 256;

// Modes have the same numbers in the record and in the library.
constexpr std::uint32_t jointStereo = lameJointStereo;
constexpr std::uint32_t mono = lameMono;

// A frame's worth of each channel.
constexpr std::uint32_t chunkFrames = 1152;

std::uint32_t field(const platform::ConfigRecord& config, std::size_t at) {
    std::uint32_t value = 0;
    for (std::size_t i = 0; i < 4; ++i)
        value |= static_cast<std::uint32_t>(config[at + i]) << (8 * i);
    return value;
}

/// What a quality preset means: how hard the library thinks, from 0 (best) to 9 (fastest). The
/// bitrate and the frequencies that are kept are always those that the record's bitrate asks for.
struct Preset {
    std::uint32_t number;
    int quality;
};

constexpr std::array presets{
    Preset{1, 9},     // low
    Preset{0, 5},     // normal
    Preset{2, 2},     // high
    Preset{3, 5},     // voice
    Preset{1000, 7},  // phone
    Preset{6000, 5},  // radio
    Preset{7000, 5},  // tape
    Preset{8000, 3},  // hi-fi
    Preset{9000, 2},  // CD
    Preset{10000, 0}, // studio
};

void applyPreset(const LameStream& lame, std::uint32_t number) {
    for (const Preset& preset : presets) {
        if (preset.number == number)
            lame.calls().setQuality(lame.flags(), preset.quality);
    }
}

bool configure(const LameStream& lame, const platform::ConfigRecord& config) {
    const Lame& calls = lame.calls();
    LameFlags* flags = lame.flags();
    const auto number = [&config](std::size_t at) { return static_cast<int>(field(config, at)); };
    lame.silence();
    calls.setInSampleRate(flags, number(sampleRateAt));
    calls.setOutSampleRate(flags, number(resampleRateAt)); // 0: the library decides
    calls.setChannels(flags, field(config, modeAt) == mono ? 1 : 2);
    calls.setMode(flags, number(modeAt));
    calls.setBitrate(flags, number(bitrateAt));
    calls.setWriteTag(flags, 0);
    calls.setExtension(flags, number(privateAt) != 0 ? 1 : 0);
    calls.setErrorProtection(flags, number(checksumAt) != 0 ? 1 : 0);
    calls.setCopyright(flags, number(copyrightAt) != 0 ? 1 : 0);
    calls.setOriginal(flags, number(originalAt) != 0 ? 1 : 0);
    applyPreset(lame, field(config, presetAt));
    return calls.initParameters(flags) >= 0;
}

} // namespace

struct LameEncoder::Stream {
    explicit Stream(std::shared_ptr<const Lame> library) : lame(std::move(library)) {}

    LameStream lame;
    std::uint32_t channels = 2;
};

LameEncoder::LameEncoder(std::filesystem::path programFolder)
    : programFolder_(std::move(programFolder)) {}

LameEncoder::~LameEncoder() = default;

// A library runs with all that the program may do, so a folder that music is written to is no place
// for one: `path` says only whether the program's own place is meant or the system's.
bool LameEncoder::isPresent(const std::string& path) {
    const std::filesystem::path folder = platform::resolve(path).parent_path();
    const std::string name = platform::lowerCase(folder.filename().string());
    const bool isSystems = name == "system32" || name == "system";
    auto found =
        isSystems ? Lame::load(Lame::fileName) : Lame::load(programFolder_ / Lame::fileName);
    if (!found)
        return false;
    library_ = std::move(found);
    return true;
}

std::uint32_t LameEncoder::beInitStream(const platform::ConfigRecord& config,
                                        std::uint32_t& samples, std::uint32_t& outputSize,
                                        platform::EncoderStream& stream) {
    if (!library_)
        return platform::encoderNoMoreHandles;
    const std::uint32_t mode = field(config, modeAt);
    const std::uint32_t rateHz = field(config, sampleRateAt);
    if (field(config, kindAt) != lameKind)
        return platform::encoderInvalidFormat;
    constexpr std::uint32_t highestHz = 192'000;
    if ((mode > jointStereo && mode != mono) || rateHz == 0 || rateHz > highestHz)
        return platform::encoderInvalidParameters;
    auto made = std::make_unique<Stream>(library_);
    if (!made->lame.isValid())
        return platform::encoderNoMoreHandles;
    if (!configure(made->lame, config))
        return platform::encoderInvalidParameters;
    made->channels = mode == mono ? 1 : 2;
    samples = chunkFrames * made->channels;
    outputSize = static_cast<std::uint32_t>(LameStream::outputSize(chunkFrames));
    stream = ++lastStream_;
    streams_[stream] = std::move(made);
    return platform::encoderSuccess;
}

std::uint32_t LameEncoder::beEncodeChunk(platform::EncoderStream stream, std::uint32_t sampleCount,
                                         const std::int16_t* input, std::uint8_t* output,
                                         std::uint32_t& bytes) {
    bytes = 0;
    const auto found = streams_.find(stream);
    if (found == streams_.end())
        return platform::encoderInvalidHandle;
    const Stream& encoding = *found->second;
    const std::uint32_t frames = sampleCount / encoding.channels;
    if (frames > chunkFrames)
        return platform::encoderBufferTooSmall;
    const Lame& calls = encoding.lame.calls();
    const auto size = static_cast<int>(LameStream::outputSize(chunkFrames));
    // The library takes the samples as writable, and leaves them alone.
    const int written =
        encoding.channels == 1
            ? calls.encode(encoding.lame.flags(), input, input, static_cast<int>(frames), output,
                           size)
            : calls.encodeInterleaved(encoding.lame.flags(), const_cast<std::int16_t*>(input),
                                      static_cast<int>(frames), output, size);
    if (written < 0)
        return platform::encoderBufferTooSmall;
    bytes = static_cast<std::uint32_t>(written);
    return platform::encoderSuccess;
}

std::uint32_t LameEncoder::beDeinitStream(platform::EncoderStream stream, std::uint8_t* output,
                                          std::uint32_t& bytes) {
    bytes = 0;
    const auto found = streams_.find(stream);
    if (found == streams_.end())
        return platform::encoderInvalidHandle;
    const LameStream& lame = found->second->lame;
    const int written = lame.calls().flush(lame.flags(), output,
                                           static_cast<int>(LameStream::outputSize(chunkFrames)));
    if (written < 0)
        return platform::encoderBufferTooSmall;
    bytes = static_cast<std::uint32_t>(written);
    return platform::encoderSuccess;
}

std::uint32_t LameEncoder::beCloseStream(platform::EncoderStream stream) {
    return streams_.erase(stream) > 0 ? platform::encoderSuccess : platform::encoderInvalidHandle;
}

} // namespace velorin::host
