// The encoder interface on the LAME library, which is loaded by `isPresent`.
#pragma once

#include "platform/Encoder.h"

#include <filesystem>
#include <map>
#include <memory>

namespace velorin::host {

struct Lame;

/// Supports the LAME form of the record and constant bitrates. Several encodings may run at the
/// same time.
class LameEncoder final : public platform::Encoder {
public:
    /// `programFolder`: the folder of the program's file, where a library beside it would be.
    explicit LameEncoder(std::filesystem::path programFolder);
    ~LameEncoder() override;
    LameEncoder(const LameEncoder&) = delete;
    LameEncoder& operator=(const LameEncoder&) = delete;

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
    struct Stream;

    std::filesystem::path programFolder_;
    std::shared_ptr<const Lame> library_; ///< null until it has been found
    platform::EncoderStream lastStream_ = 0;
    std::map<platform::EncoderStream, std::unique_ptr<Stream>> streams_;
};

} // namespace velorin::host
