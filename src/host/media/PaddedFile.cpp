// Places with the bytes put in, and places in the file.
#include "host/media/PaddedFile.h"

#include <algorithm>

namespace velorin::host {

PaddedFile::PaddedFile(const std::filesystem::path& path, std::vector<std::int64_t> pads)
    : file_(path, std::ios::binary), pads_(std::move(pads)) {
    for (std::size_t i = 0; i < pads_.size(); ++i)
        pads_[i] += static_cast<std::int64_t>(i);
    std::error_code failed;
    const std::uintmax_t size = std::filesystem::file_size(path, failed);
    if (!failed)
        length_ = static_cast<std::int64_t>(size) + static_cast<std::int64_t>(pads_.size());
}

std::int64_t PaddedFile::seek(std::int64_t place) {
    place_ = std::clamp(place, std::int64_t{0}, length_);
    return place_;
}

std::int64_t PaddedFile::read(char* bytes, std::int64_t count) {
    std::int64_t done = 0;
    while (done < count && place_ < length_) {
        const auto next = std::lower_bound(pads_.begin(), pads_.end(), place_);
        if (next != pads_.end() && *next == place_) {
            bytes[done++] = 0;
            ++place_;
            continue;
        }
        const std::int64_t end = next == pads_.end() ? length_ : *next;
        file_.clear();
        file_.seekg(place_ - (next - pads_.begin()));
        file_.read(bytes + done, std::min(count - done, end - place_));
        if (file_.gcount() <= 0)
            break;
        done += file_.gcount();
        place_ += file_.gcount();
    }
    return done;
}

} // namespace velorin::host
