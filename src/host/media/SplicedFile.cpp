// Maps positions in the spliced file to positions in the real one.
#include "host/media/SplicedFile.h"

#include <algorithm>

namespace velorin::host {

SplicedFile::SplicedFile(const std::filesystem::path& path, std::vector<FilePiece> pieces)
    : file_(path, std::ios::binary), pieces_(std::move(pieces)) {
    begins_.reserve(pieces_.size());
    for (const FilePiece& piece : pieces_) {
        begins_.push_back(length_);
        length_ += piece.end - piece.begin;
    }
}

std::int64_t SplicedFile::seek(std::int64_t position) {
    position_ = std::clamp(position, std::int64_t{0}, length_);
    return position_;
}

std::int64_t SplicedFile::read(char* bytes, std::int64_t count) {
    std::int64_t done = 0;
    while (done < count && position_ < length_) {
        const auto after = std::upper_bound(begins_.begin(), begins_.end(), position_);
        const auto index = static_cast<std::size_t>(after - begins_.begin()) - 1;
        const FilePiece& piece = pieces_[index];
        const std::int64_t from = piece.begin + position_ - begins_[index];
        std::int64_t got = std::min(count - done, piece.end - from);
        if (piece.isZeros) {
            std::fill_n(bytes + done, got, '\0');
        } else {
            file_.clear();
            file_.seekg(from);
            file_.read(bytes + done, got);
            got = file_.gcount();
        }
        if (got <= 0)
            break;
        done += got;
        position_ += got;
    }
    return done;
}

} // namespace velorin::host
