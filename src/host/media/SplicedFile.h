// A file that is read as a list of pieces: some of its bytes are left out, and zeros are put in.
#pragma once

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <vector>

namespace velorin::host {

/// The bytes [begin, end) of a file, or `end - begin` zeros.
struct FilePiece {
    std::int64_t begin = 0;
    std::int64_t end = 0;
    bool isZeros = false;
};

/// Reads the pieces one after the other, as if they were a file.
class SplicedFile {
public:
    SplicedFile(const std::filesystem::path& path, std::vector<FilePiece> pieces);

    [[nodiscard]] std::int64_t length() const { return length_; }
    [[nodiscard]] std::int64_t position() const { return position_; } ///< [0, length]

    /// Sets the position, clamped to [0, length]; returns it.
    std::int64_t seek(std::int64_t position);

    /// Reads up to `count` bytes and returns how many.
    [[nodiscard]] std::int64_t read(char* bytes, std::int64_t count);

private:
    std::ifstream file_;
    std::vector<FilePiece> pieces_;
    std::vector<std::int64_t> begins_; ///< of each piece, in the spliced file
    std::int64_t length_ = 0;
    std::int64_t position_ = 0;
};

} // namespace velorin::host
