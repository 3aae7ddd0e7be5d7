// Renames recordings, copies them to another disk, and completes headers from the length of the
// file.
#include "host/capture/RecordingFiles.h"

#include "host/disk/TimestampedName.h"
#include "host/media/WavHeader.h"
#include "host/process/OnceLogger.h"
#include "platform/Notices.h"

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cmath>

namespace velorin::host {

namespace fs = std::filesystem;

namespace {

std::error_code lastError() {
    return {errno, std::generic_category()};
}

bool writeAll(int file, const char* bytes, std::size_t count) {
    while (count > 0) {
        const ssize_t written = write(file, bytes, count);
        if (written < 0 && errno == EINTR)
            continue;
        if (written <= 0)
            return false;
        bytes += written;
        count -= static_cast<std::size_t>(written);
    }
    return true;
}

std::error_code copyContent(int from, int to) {
    std::array<char, 1 << 16> piece{};
    off_t at = 0;
    while (true) {
        const ssize_t count = pread(from, piece.data(), piece.size(), at);
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0 ||
            (count > 0 && !writeAll(to, piece.data(), static_cast<std::size_t>(count))))
            return lastError();
        if (count == 0)
            return {};
        at += count;
    }
}

// The file is read by its descriptor, so it works if its name is gone.
std::error_code copyToPlace(const PartFile& part, const fs::path& target) {
    std::error_code failed;
    PartFile temp = PartFile::create(target.parent_path(), failed);
    if (!temp.isOpen())
        return failed;
    failed = copyContent(part.number(), temp.number());
    if (!failed)
        failed = replaceDurably(temp.path(), target);
    std::error_code ignored;
    if (failed && fs::exists(temp.path(), ignored))
        temp.remove();
    return failed;
}

std::time_t lastChange(const PartFile& part) {
    struct stat status {};
    return fstat(part.number(), &status) == 0 ? status.st_mtime : std::time(nullptr);
}

/// Completes the header. Returns the length in seconds; no value if the file has no header of a
/// recording, or no sound. A correct header stays.
std::optional<double> finishHeader(const PartFile& part) {
    std::array<char, WavHeader::size> bytes{};
    struct stat status {};
    if (fstat(part.number(), &status) != 0 ||
        pread(part.number(), bytes.data(), bytes.size(), 0) != ssize_t{WavHeader::size})
        return std::nullopt;
    auto header = WavHeader::read({bytes.data(), bytes.size()});
    const std::int64_t length = status.st_size - WavHeader::size;
    if (!header || length <= 0)
        return std::nullopt;
    const std::int64_t said = header->dataBytes;
    if (said == 0 || said + said % 2 != length) {
        const std::int64_t unit = std::max(header->format.alignment(), 2); // an even length
        const std::int64_t most = std::min(length, WavHeader::mostDataBytes);
        header->dataBytes = static_cast<std::uint32_t>(most - most % unit);
        const std::string right = header->bytes();
        if (header->dataBytes == 0 ||
            pwrite(part.number(), right.data(), right.size(), 0) != ssize_t{WavHeader::size} ||
            ftruncate(part.number(), std::int64_t{WavHeader::size} + header->dataBytes) != 0)
            return std::nullopt;
    }
    return static_cast<double>(header->dataBytes) / header->format.bytesPerSecond();
}

/// "recording 2026-11-22 04-10-01.wav"; a count from 2 on is added in brackets.
std::string recordingName(std::time_t moment, int count) {
    return timestampedName("recording", moment, count) + ".wav";
}

void finishAbandoned(PartFile& part, const RecordingFolders& folders) {
    const std::time_t moment = lastChange(part);
    const auto seconds = finishHeader(part);
    if (!seconds) {
        std::error_code error;
        if (fs::file_size(part.path(), error) <= WavHeader::size + 1 && !error)
            part.remove(); // it holds no sound
        return;
    }
    const fs::path hidden = part.path();
    if (const auto kept = saveUnderNewName(part, folders, moment))
        report(folders, "Velorin ended while it recorded. The recording is kept " +
                            placeText(folders, *kept) + ", " + lengthText(*seconds) + " long.");
    else
        report(folders, "A recording that was cut short cannot be written to " +
                            quoted(folders.songs) + ". It stays in " + quoted(hidden) +
                            " and gets its name at a later start.");
}

} // namespace

void createSongsFolder(const RecordingFolders& folders) {
    constexpr unsigned forEverybody = 0777;
    std::error_code ignored; // a failure shows when a file is created there
    if (!fs::exists(folders.songs, ignored))
        createFoldersDurably(folders.songs, forEverybody);
}

PartFile createPartFile(const RecordingFolders& folders, std::error_code& error) {
    createSongsFolder(folders);
    PartFile part = PartFile::create(folders.songs, error);
    if (part.isOpen() || folders.spare.empty())
        return part;
    constexpr unsigned forTheUser = 0700;
    createFoldersDurably(folders.spare, forTheUser);
    std::error_code ignored; // `error` names the problem of "Songs", which the user can mend
    return PartFile::create(folders.spare, ignored);
}

std::error_code saveRecording(PartFile& part, const fs::path& target) {
    std::error_code failed = replaceDurably(part.path(), target);
    if (!failed || part.isAt(target)) {
        part = PartFile();
        return {};
    }
    failed = copyToPlace(part, target);
    if (!failed)
        part.remove();
    return failed;
}

std::optional<fs::path> saveUnderNewName(PartFile& part, const RecordingFolders& folders,
                                         std::time_t moment) {
    constexpr int mostOfOneMoment = 100;
    createSongsFolder(folders);
    for (const fs::path& folder : {folders.songs, part.path().parent_path()}) {
        std::error_code error;
        for (int count = 1; count <= mostOfOneMoment; ++count) {
            const fs::path target = folder / recordingName(moment, count);
            if (fs::exists(target, error))
                continue;
            if (!saveRecording(part, target))
                return target;
            break;
        }
    }
    return std::nullopt;
}

void finishAbandonedRecordings(const RecordingFolders& folders) {
    for (const fs::path& folder : {folders.songs, folders.spare}) {
        for (PartFile& part : PartFile::abandoned(folder))
            finishAbandoned(part, folders);
    }
}

std::string lengthText(double seconds) {
    constexpr int secondsOfMinute = 60;
    constexpr int secondsOfHour = 3600;
    const auto whole = static_cast<std::int64_t>(seconds);
    const std::int64_t minutes = whole / secondsOfMinute;
    if (whole >= secondsOfHour)
        return std::to_string(whole / secondsOfHour) + " h " +
               std::to_string(minutes % secondsOfMinute) + " min";
    if (minutes > 0)
        return std::to_string(minutes) + " min " + std::to_string(whole % secondsOfMinute) + " s";
    const auto tenths = static_cast<std::int64_t>(seconds * 10.0);
    return std::to_string(tenths / 10) + "." + std::to_string(tenths % 10) + " s";
}

std::string placeText(const RecordingFolders& folders, const fs::path& file) {
    if (file.parent_path() != folders.songs)
        return "as " + quoted(file);
    return "in " + quoted(folders.songs.filename()) + " as " + quoted(file.filename());
}

std::string quoted(const fs::path& path) {
    std::string text = "\"";
    text += path.string();
    text += '"';
    return text;
}

void report(const RecordingFolders& folders, const std::string& text) {
    OnceLogger(folders.notices).log(text);
}

} // namespace velorin::host
