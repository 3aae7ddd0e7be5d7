// The frames of an MP3 file, and what lies between them that is none.
#pragma once

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <vector>

namespace velorin::host {

/// A piece of a file: the bytes [begin, end).
struct FilePiece {
    std::int64_t begin = 0;
    std::int64_t end = 0;
};

/// The pieces of an MP3 file that hold frames, in order, the first one from the file's beginning.
/// Frames after a gap count only if they are of the same kind as those before it and four follow
/// one another without a gap: bytes that are no sound look like a single frame now and then.
[[nodiscard]] std::vector<FilePiece> findMp3Pieces(const std::filesystem::path& path);

/// A file read as if it consisted of some pieces of it alone.
class PiecedFile {
public:
    PiecedFile(const std::filesystem::path& path, std::vector<FilePiece> pieces);

    [[nodiscard]] std::int64_t length() const { return length_; }
    [[nodiscard]] std::int64_t place() const { return place_; } ///< [0, length]

    /// Goes to a place, inside the bounds; returns where it is then.
    std::int64_t seek(std::int64_t place);

    /// Reads up to `count` bytes and returns how many.
    std::int64_t read(char* bytes, std::int64_t count);

private:
    std::ifstream file_;
    std::vector<FilePiece> pieces_;
    std::vector<std::int64_t> begins_; ///< of each piece, in what is read
    std::int64_t length_ = 0;
    std::int64_t place_ = 0;
};

} // namespace velorin::host
