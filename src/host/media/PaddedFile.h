// A file read as if bytes that are missing in it were there.
#pragma once

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <vector>

namespace velorin::host {

class PaddedFile {
public:
    /// `pads`: places in the file, ascending, before each of which a byte of 0 is to be read.
    PaddedFile(const std::filesystem::path& path, std::vector<std::int64_t> pads);

    [[nodiscard]] std::int64_t length() const { return length_; } ///< with the bytes put in
    [[nodiscard]] std::int64_t place() const { return place_; }   ///< [0, length]

    /// Goes to a place, inside the bounds; returns where it is then.
    std::int64_t seek(std::int64_t place);

    /// Reads up to `count` bytes and returns how many.
    std::int64_t read(char* bytes, std::int64_t count);

private:
    std::ifstream file_;
    std::vector<std::int64_t> pads_; ///< where the bytes put in are read
    std::int64_t length_ = 0;
    std::int64_t place_ = 0;
};

} // namespace velorin::host
