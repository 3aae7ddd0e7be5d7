// One file, read and written in blocks of bytes; every write reaches the file at once.
#pragma once

#include "score/View.h"

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

/// Each call tells by a 16-bit boolean whether it did what it says. The file is closed with the
/// object at the latest.
class clsFileIo {
public:
    explicit clsFileIo(platform::Platform& platform);
    ~clsFileIo();

    /// Opens for reading and writing, at the first byte. A file that is not there is made; one that
    /// is keeps what it holds beyond what is written.
    Flag OpenFile(const std::string& name);
    Flag CloseFile();
    Flag FlushBuffers();
    /// The 44 bytes before `dataLength` bytes of 16-bit stereo at 44,100 samples a second.
    Flag writeWavHeader(std::uint32_t dataLength);
    Flag WriteBytes(const void* bytes, std::uint32_t count);
    /// Reads up to `count` bytes; what the file does not have is left as it is in `bytes`.
    Flag ReadBytes(void* bytes, std::uint32_t count);

    [[nodiscard]] std::uint32_t transferred() const { return transferred_; } ///< bytes, last call
    [[nodiscard]] const std::string& name() const { return name_; }

private:
    platform::Platform& platform_;
    std::unique_ptr<std::iostream> file_;
    std::uint32_t transferred_ = 0;
    std::string name_;
};

} // namespace velorin
