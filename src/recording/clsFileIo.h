// One file, read and written in blocks of bytes; every write reaches the file at once.
#pragma once

#include "studio/View.h"

#include <cstdint>
#include <iosfwd>
#include <memory>
#include <string>

namespace platform {
struct Platform;
}

namespace velorin {

/// The bytes that a WAV file of the program has before its samples.
constexpr std::uint32_t wavHeaderSize = 44;

/// Each call returns whether it succeeded. The destructor closes the file.
class clsFileIo {
public:
    explicit clsFileIo(platform::Platform& platform);
    ~clsFileIo();

    /// Opens for reading and writing, at the first byte. Creates the file if it is missing.
    ///
    /// Rule: an existing file is not truncated, so an MP3 that is overwritten stays as long as it
    /// was. Held by recording/encoding.
    [[nodiscard]] Flag OpenFile(const std::string& name);
    [[nodiscard]] Flag CloseFile();
    [[nodiscard]] Flag FlushBuffers();
    /// The 44 bytes before `dataLength` bytes of 16-bit stereo at 44,100 samples a second.
    /// One of the fixed operations of a file; only its test calls it.
    [[nodiscard]] Flag writeWavHeader(std::uint32_t dataLength);
    [[nodiscard]] Flag WriteBytes(const void* bytes, std::uint32_t count);
    /// Reads up to `count` bytes. If the file has fewer, the rest of `bytes` does not change.
    [[nodiscard]] Flag ReadBytes(void* bytes, std::uint32_t count);

    [[nodiscard]] std::uint32_t transferred() const { return transferred_; } ///< bytes, last call
    [[nodiscard]] const std::string& name() const { return name_; }

private:
    platform::Platform& platform_;
    std::unique_ptr<std::iostream> file_;
    std::uint32_t transferred_ = 0;
    std::string name_;
};

} // namespace velorin
