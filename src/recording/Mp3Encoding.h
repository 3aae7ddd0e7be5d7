// Encodes the current WAV as an MP3 of the same name.
#pragma once

#include "recording/MakingNews.h"

#include <cstdint>
#include <optional>
#include <string>

namespace platform {
enum class BoxIcon;
}

namespace velorin {

class RecordDesk;
struct EncoderChoice;
struct Studio;

class Mp3Encoding {
public:
    Mp3Encoding(Studio& studio, RecordDesk& desk) : studio_(studio), desk_(desk) {}

    /// "Encode File", or "Stop Encoding" while it runs; the button's caption is the state.
    void Command20_Click();
    /// Encodes the file in `Text6`; processes events after each chunk.
    void EncodeWavFile();
    void GetLamePath(); ///< sets `LamePath` to the library in the system's folder

    std::string LamePath;

private:
    struct Job;

    [[nodiscard]] bool findLibrary();
    void explainMissing();
    void refuse(platform::BoxIcon icon, const char* title, const char* text);
    [[nodiscard]] std::optional<EncoderChoice> readChoice();
    void encode(const EncoderChoice& choice);
    /// The result that ended the loop, 0 for none; no value if the program ends.
    [[nodiscard]] std::optional<std::uint32_t> encodeChunks(Job& job, const EncoderChoice& choice);
    [[nodiscard]] std::optional<std::uint32_t> encodeChunk(Job& job);
    void finish(const Job& job, std::uint32_t flushed);
    void reportNotWhole(const char* reason, const char* advice);
    void showError(const std::string& text);

    Studio& studio_;
    RecordDesk& desk_;
    MadeMp3 made_; ///< by the last encoding; empty if it could not begin
};

/// The name up to and including its last point, then `extension`.
///
/// Rule: a name without a point becomes the extension alone. Held by recording/encoder_procedures.
[[nodiscard]] std::string ChangeExtension(const std::string& name, const std::string& extension);

} // namespace velorin
