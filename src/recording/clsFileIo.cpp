// Reads and writes blocks of bytes through a stream of the host.
#include "recording/clsFileIo.h"

#include "platform/Files.h"
#include "platform/Platform.h"

#include <array>
#include <cstring>
#include <istream>

namespace velorin {

namespace {

using WavHeader = std::array<char, wavHeaderSize>;

void putWord(WavHeader& header, std::size_t at, const char* word) {
    std::memcpy(header.data() + at, word, 4);
}

/// Little-endian, `size` bytes.
void putNumber(WavHeader& header, std::size_t at, std::size_t size, std::uint32_t number) {
    for (std::size_t i = 0; i < size; ++i)
        header[at + i] = static_cast<char>(number >> (8 * i) & 0xFF);
}

} // namespace

clsFileIo::clsFileIo(platform::Platform& platform) : platform_(platform) {}

clsFileIo::~clsFileIo() = default;

Flag clsFileIo::OpenFile(const std::string& name) {
    name_ = name;
    file_ = platform_.files.openForUpdate(name);
    return toFlag(file_ != nullptr);
}

Flag clsFileIo::CloseFile() {
    if (name_.empty() || file_ == nullptr)
        return flagClear;
    file_.reset();
    return flagSet;
}

Flag clsFileIo::FlushBuffers() {
    return toFlag(file_ != nullptr && file_->flush());
}

Flag clsFileIo::writeWavHeader(std::uint32_t dataLength) {
    WavHeader header{};
    putWord(header, 0, "RIFF");
    putNumber(header, 4, 4, dataLength + 36);
    putWord(header, 8, "WAVE");
    putWord(header, 12, "fmt ");
    putNumber(header, 16, 4, 16);
    putNumber(header, 20, 2, 1); // PCM
    putNumber(header, 22, 2, 2); // channels
    putNumber(header, 24, 4, 44100);
    putNumber(header, 28, 4, 176400); // bytes per second
    putNumber(header, 32, 2, 4);      // block alignment
    putNumber(header, 34, 2, 16);     // bits per sample
    putWord(header, 36, "data");
    putNumber(header, 40, 4, dataLength);
    return WriteBytes(header.data(), wavHeaderSize);
}

// Each block is flushed, so an encoding that is killed leaves everything that it has written.
Flag clsFileIo::WriteBytes(const void* bytes, std::uint32_t count) {
    transferred_ = 0;
    if (file_ == nullptr || !file_->write(static_cast<const char*>(bytes), count))
        return flagClear;
    transferred_ = count;
    return FlushBuffers();
}

Flag clsFileIo::ReadBytes(void* bytes, std::uint32_t count) {
    transferred_ = 0;
    if (file_ == nullptr)
        return flagClear;
    file_->read(static_cast<char*>(bytes), count);
    transferred_ = static_cast<std::uint32_t>(file_->gcount());
    return file_->bad() ? flagClear : flagSet;
}

} // namespace velorin
