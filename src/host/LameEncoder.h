// The encoder's four calls on the LAME library, which is loaded by name when it is looked for.
#pragma once

#include "platform/Encoder.h"

#include <filesystem>

namespace velorin::host {

class LameEncoder final : public platform::Encoder {
public:
    /// `programFolder`: where a library that lies beside the program would be.
    explicit LameEncoder(std::filesystem::path programFolder)
        : programFolder_(std::move(programFolder)) {}

    bool isPresent(const std::string& path) override;
    std::uint32_t beInitStream(const platform::ConfigRecord& config, std::uint32_t& samples,
                               std::uint32_t& outputSize, platform::EncoderStream& stream) override;
    std::uint32_t beEncodeChunk(platform::EncoderStream stream, std::uint32_t sampleCount,
                                const std::int16_t* input, std::uint8_t* output,
                                std::uint32_t& bytes) override;
    std::uint32_t beDeinitStream(platform::EncoderStream stream, std::uint8_t* output,
                                 std::uint32_t& bytes) override;
    std::uint32_t beCloseStream(platform::EncoderStream stream) override;

private:
    std::filesystem::path programFolder_;
};

} // namespace velorin::host
