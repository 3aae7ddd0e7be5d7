// A run had RUN.score and RUN.NUMBER.part, and RUN.lock while it lived. A snapshot is the text with
// a last line, "kept", its number and its checksum.
#include "host/state/OldSnapshots.h"

#include "host/disk/FileLock.h"
#include "host/state/HistoryRecovery.h"

#include <sys/stat.h>

#include <charconv>
#include <map>
#include <vector>

namespace velorin::host {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view lastWord = "kept ";
constexpr std::string_view lineEnd = "\r\n";

/// FNV-1a.
std::uint64_t snapshotChecksum(std::string_view text, std::uint64_t number) {
    std::uint64_t sum = 0xcbf29ce484222325U ^ number;
    for (const char byte : text) {
        sum ^= static_cast<unsigned char>(byte);
        sum *= 0x100000001b3U;
    }
    return sum;
}

bool takeNumber(std::string_view& line, std::uint64_t& number) {
    const auto result = std::from_chars(line.data(), line.data() + line.size(), number);
    if (result.ec != std::errc())
        return false;
    line.remove_prefix(static_cast<std::size_t>(result.ptr - line.data()));
    return true;
}

/// The files of each run, without its lock.
std::map<std::string, std::vector<fs::path>> snapshotFiles(const fs::path& folder) {
    std::map<std::string, std::vector<fs::path>> runs;
    for (const std::string& name : listFolder(folder)) {
        const std::string run = name.substr(0, name.find('.'));
        if (run.empty() || run.find_first_not_of("0123456789-") != std::string::npos)
            continue;
        if (name.ends_with(".score") || name.ends_with(".part"))
            runs[run].push_back(folder / name);
        else if (name.ends_with(".lock"))
            runs[run];
    }
    return runs;
}

/// The latest whole snapshot among the files.
std::optional<LeftScore> latestOf(const std::vector<fs::path>& files) {
    std::optional<LeftScore> latest;
    std::uint64_t number = 0;
    for (const fs::path& file : files) {
        struct stat status {};
        const auto bytes = readFile(file);
        auto snapshot = bytes ? decodeOldSnapshot(*bytes) : std::nullopt;
        if (!snapshot || (latest && snapshot->number <= number) || stat(file.c_str(), &status) != 0)
            continue;
        number = snapshot->number;
        latest = LeftScore{std::move(snapshot->text), status.st_mtime, false};
    }
    return latest;
}

void removeFile(const fs::path& path) {
    std::error_code ignored; // the next start finds a file that stays
    fs::remove(path, ignored);
}

} // namespace

std::optional<OldSnapshot> decodeOldSnapshot(std::string_view bytes) {
    if (!bytes.ends_with(lineEnd))
        return std::nullopt;
    const std::size_t last = bytes.rfind(lastWord);
    if (last == std::string_view::npos)
        return std::nullopt;
    const std::string_view text = bytes.substr(0, last);
    std::string_view line = bytes.substr(last + lastWord.size());
    std::uint64_t number = 0;
    std::uint64_t sum = 0;
    if (!takeNumber(line, number) || !line.starts_with(' '))
        return std::nullopt;
    line.remove_prefix(1);
    if (!takeNumber(line, sum) || line != lineEnd || sum != snapshotChecksum(text, number))
        return std::nullopt;
    return OldSnapshot{std::string(text), number};
}

void recoverOldSnapshots(const fs::path& stateFolder, RecoveryFolder& target,
                         OnceLogger& cannotRecover) {
    for (const auto& [run, files] : snapshotFiles(stateFolder)) {
        const fs::path lockPath = stateFolder / (run + ".lock");
        std::error_code error;
        const bool endedCleanly = !fs::exists(lockPath, error);
        const Descriptor lock = lockFile(lockPath);
        if (!lock.isOpen())
            continue; // still running, or nothing can be written here
        auto score = latestOf(files);
        if (score)
            score->endedCleanly = endedCleanly;
        if (score && !target.add(*score)) {
            logUnrecovered(stateFolder, target, cannotRecover);
            if (endedCleanly)
                removeFile(lockPath);
            continue;
        }
        for (const fs::path& file : files)
            removeFile(file);
        removeFile(lockPath);
    }
}

} // namespace velorin::host
