// An encoder library for tests: it keeps a log and returns the same few bytes for any input.
#pragma once

#include "platform/Encoder.h"

#include <map>
#include <string>
#include <vector>

namespace scripted {

class ScriptedEncoder final : public platform::Encoder {
public:
    bool isPresent(const std::string& path) override;
    std::uint32_t beInitStream(const platform::ConfigRecord& config, std::uint32_t& samples,
                               std::uint32_t& outputSize, platform::EncoderStream& stream) override;
    std::uint32_t beEncodeChunk(platform::EncoderStream stream, std::uint32_t sampleCount,
                                const std::int16_t* input, std::uint8_t* output,
                                std::uint32_t& bytes) override;
    std::uint32_t beDeinitStream(platform::EncoderStream stream, std::uint8_t* output,
                                 std::uint32_t& bytes) override;
    std::uint32_t beCloseStream(platform::EncoderStream stream) override;

    bool absent = true;
    std::uint32_t samples = 0;    ///< the answer of the init call
    std::uint32_t outputSize = 0; ///< the second answer of the init call
    /// The code that a call ("init", "chunk", "flush", "close") returns; 0 if none is set.
    std::map<std::string, std::uint32_t> failures;

    /// "init 00 01 ...", "chunk 1152 1A2B3C4D" (the CRC-32 of the input), "flush", "close".
    std::vector<std::string> log;

private:
    [[nodiscard]] std::uint32_t codeOf(const std::string& call) const;
};

/// The CRC-32 that ZIP and PNG use.
[[nodiscard]] std::uint32_t crc32Of(const void* bytes, std::size_t count);

} // namespace scripted
