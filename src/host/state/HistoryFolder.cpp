// Names of packs and markers.
#include "host/state/HistoryFolder.h"

#include "host/disk/FileLock.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <cstdio>
#include <tuple>

namespace velorin::host {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view packEnding = ".states";
constexpr std::string_view openEnding = ".open";
constexpr std::string_view unsavedEnding = ".unsaved";

bool isRunName(std::string_view run) {
    return !run.empty() && run.find_first_not_of("0123456789-") == std::string_view::npos;
}

std::optional<Pack> readPackName(const std::string& name) {
    const std::size_t point = name.find('.');
    if (!name.ends_with(packEnding) || !isRunName(std::string_view(name).substr(0, point)))
        return std::nullopt;
    Pack pack;
    pack.name = name;
    pack.run = name.substr(0, point);
    const char* end = name.data() + name.size() - packEnding.size();
    const auto read = std::from_chars(name.data() + point + 1, end, pack.number);
    if (read.ec != std::errc() || read.ptr != end)
        return std::nullopt;
    return pack;
}

} // namespace

std::string nameOfThisRun() {
    timespec now{};
    clock_gettime(CLOCK_REALTIME, &now);
    return std::to_string(now.tv_sec) + "-" + std::to_string(now.tv_nsec) + "-" +
           std::to_string(getpid());
}

std::string packName(const std::string& run, int number) {
    char digits[16];
    std::snprintf(digits, sizeof digits, ".%04d", number);
    return run + digits + std::string(packEnding);
}

std::string openMarker(const std::string& run) {
    return run + std::string(openEnding);
}

std::string unsavedMarker(const std::string& run) {
    return run + std::string(unsavedEnding);
}

std::vector<Pack> packsIn(const fs::path& folder) {
    std::vector<Pack> packs;
    for (const std::string& name : listFolder(folder)) {
        auto pack = readPackName(name);
        struct stat status {};
        if (!pack || stat((folder / name).c_str(), &status) != 0 || !S_ISREG(status.st_mode))
            continue;
        pack->bytes = static_cast<std::uint64_t>(status.st_size);
        pack->changed = status.st_mtime;
        pack->inode = status.st_ino;
        packs.push_back(std::move(*pack));
    }
    std::sort(packs.begin(), packs.end(), [](const Pack& one, const Pack& other) {
        return std::tie(one.run, one.number) < std::tie(other.run, other.number);
    });
    return packs;
}

std::vector<Marker> markersIn(const fs::path& folder) {
    std::vector<Marker> markers;
    for (const std::string& name : listFolder(folder)) {
        const std::string run = name.substr(0, name.find('.'));
        if (isRunName(run) && (name == openMarker(run) || name == unsavedMarker(run)))
            markers.push_back({name, run, name.ends_with(unsavedEnding)});
    }
    std::sort(markers.begin(), markers.end(),
              [](const Marker& one, const Marker& other) { return one.name < other.name; });
    return markers;
}

// A file that is not regular could block an open.
std::string_view readPiece(const fs::path& path, std::uint64_t begin, std::uint64_t end,
                           std::string& buffer) {
    const Descriptor file(open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
    struct stat status {};
    if (!file.isOpen() || fstat(file.number(), &status) != 0 || !S_ISREG(status.st_mode))
        return {};
    end = std::min({end, static_cast<std::uint64_t>(status.st_size), mostPackBytes});
    const std::uint64_t wanted = end > begin ? end - begin : 0;
    if (buffer.size() < wanted)
        buffer.resize(wanted);
    std::size_t done = 0;
    while (done < wanted) {
        const ssize_t got = pread(file.number(), buffer.data() + done, wanted - done,
                                  static_cast<off_t>(begin + done));
        if (got < 0 && errno == EINTR)
            continue;
        if (got <= 0)
            break;
        done += static_cast<std::size_t>(got);
    }
    return std::string_view(buffer).substr(0, done);
}

} // namespace velorin::host
