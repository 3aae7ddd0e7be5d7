// Turning the WAV in hand into an MP3 of the same name.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace platform {
enum class BoxIcon;
}

namespace velorin {

class RecordCommands;
class RecordDesk;
struct EncoderChoice;
struct Studio;

class Mp3Encoding {
public:
    Mp3Encoding(Studio& studio, RecordDesk& desk, RecordCommands& commands)
        : studio_(studio), desk_(desk), commands_(commands) {}

    /// "Encode File", or "Stop Encoding" while it runs; the button's caption is the state.
    void Command20_Click();
    /// The loop over the file in `Text6`; lets the message loop through once a chunk.
    void EncodeWavFile();
    void GetLamePath(); ///< the system's place of the library

    std::string LamePath;

private:
    struct Job;

    [[nodiscard]] bool findLibrary();
    void refuse(platform::BoxIcon icon, const char* title, const char* text);
    [[nodiscard]] std::optional<EncoderChoice> readChoice();
    void encode(const EncoderChoice& choice);
    /// The result that ended the loop, 0 for none; no value if the program ends.
    [[nodiscard]] std::optional<std::uint32_t> encodeChunks(Job& job);
    [[nodiscard]] std::optional<std::uint32_t> encodeChunk(Job& job);
    void finish(const Job& job, std::uint32_t flushed);
    void reportNotWhole(const char* reason, const char* advice);
    void showError(const std::string& text);

    Studio& studio_;
    RecordDesk& desk_;
    RecordCommands& commands_;
    std::string encoded_;  ///< the WAV of the last encoding
    bool isWhole_ = false; ///< its MP3, or as much as a stop by the user left, is on the disk
};

/// The name up to and including its last point, then `extension`; a name without one is only that.
[[nodiscard]] std::string ChangeExtension(const std::string& name, const std::string& extension);

} // namespace velorin
