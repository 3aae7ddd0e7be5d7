// The log of the encoder's calls and their fixed answers.
#include "support/ScriptedEncoder.h"

#include <algorithm>
#include <cstdio>

namespace scripted {

namespace {

constexpr std::uint32_t chunkBytes = 4;

std::string hexOf(std::uint32_t number, int digits) {
    char text[16];
    std::snprintf(text, sizeof text, "%0*X", digits, number);
    return text;
}

} // namespace

std::uint32_t crc32Of(const void* bytes, std::size_t count) {
    const auto* data = static_cast<const unsigned char*>(bytes);
    std::uint32_t crc = 0xFFFFFFFFU;
    for (std::size_t i = 0; i < count; ++i) {
        crc ^= data[i];
        for (int bit = 0; bit < 8; ++bit)
            crc = (crc & 1U) != 0 ? 0xEDB88320U ^ (crc >> 1) : crc >> 1;
    }
    return crc ^ 0xFFFFFFFFU;
}

std::uint32_t ScriptedEncoder::codeOf(const std::string& call) const {
    const auto failure = failures.find(call);
    return failure == failures.end() ? platform::encoderSuccess : failure->second;
}

bool ScriptedEncoder::isPresent(const std::string&) {
    return !absent;
}

std::uint32_t ScriptedEncoder::beInitStream(const platform::ConfigRecord& config,
                                            std::uint32_t& samplesOut, std::uint32_t& sizeOut,
                                            platform::EncoderStream& stream) {
    std::string line = "init";
    for (const std::uint8_t byte : config)
        line.append(1, ' ').append(hexOf(byte, 2));
    log.push_back(line);
    if (const std::uint32_t code = codeOf("init"); code != platform::encoderSuccess)
        return code;
    samplesOut = samples;
    sizeOut = std::max(outputSize, chunkBytes); // room for the answers below
    stream = 1;
    return platform::encoderSuccess;
}

std::uint32_t ScriptedEncoder::beEncodeChunk(platform::EncoderStream, std::uint32_t sampleCount,
                                             const std::int16_t* input, std::uint8_t* output,
                                             std::uint32_t& bytes) {
    log.push_back("chunk " + std::to_string(sampleCount) + " " +
                  hexOf(crc32Of(input, sampleCount * sizeof *input), 8));
    bytes = 0;
    if (const std::uint32_t code = codeOf("chunk"); code != platform::encoderSuccess)
        return code;
    bytes = chunkBytes;
    for (std::uint32_t i = 0; i < bytes; ++i)
        output[i] = static_cast<std::uint8_t>(i);
    return platform::encoderSuccess;
}

std::uint32_t ScriptedEncoder::beDeinitStream(platform::EncoderStream, std::uint8_t* output,
                                              std::uint32_t& bytes) {
    log.emplace_back("flush");
    if (const std::uint32_t code = codeOf("flush"); code != platform::encoderSuccess)
        return code;
    bytes = 2;
    for (std::uint32_t i = 0; i < bytes; ++i)
        output[i] = i == 0 ? 0xFF : 0xFE;
    return platform::encoderSuccess;
}

std::uint32_t ScriptedEncoder::beCloseStream(platform::EncoderStream) {
    log.emplace_back("close");
    return codeOf("close");
}

} // namespace scripted
