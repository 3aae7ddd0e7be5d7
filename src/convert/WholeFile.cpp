// Writing beside, then renaming.
#include "convert/WholeFile.h"

#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <fstream>

namespace velorin::convert {

namespace fs = std::filesystem;

namespace {

// A link keeps its place and the file behind it is replaced.
fs::path behindLinks(const fs::path& target) {
    std::error_code failed;
    const fs::path real = fs::canonical(target, failed);
    return failed ? target : real;
}

} // namespace

WholeFile::WholeFile(const fs::path& target) : target_(behindLinks(target)) {
    fs::path name = ".";
    name += target_.filename();
    name += '.' + std::to_string(getpid()) + ".part";
    part_ = target_.parent_path() / name;
}

WholeFile::~WholeFile() {
    std::error_code ignored; // there is none after `finish`
    fs::remove(part_, ignored);
}

std::string WholeFile::finish() {
    std::error_code failed;
    fs::rename(part_, target_, failed);
    return failed ? "cannot be put in place: " + failed.message() : std::string();
}

std::string writeWhole(const fs::path& target, const std::string& content) {
    WholeFile file(target);
    std::ofstream out(file.part(), std::ios::binary);
    if (!out)
        return std::string("cannot be written: ") + std::strerror(errno);
    out.write(content.data(), static_cast<std::streamsize>(content.size()));
    out.close();
    return out ? file.finish() : std::string("cannot be written: ") + std::strerror(errno);
}

} // namespace velorin::convert
