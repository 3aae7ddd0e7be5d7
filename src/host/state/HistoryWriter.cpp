// Appends records, and leaves no half of one.
#include "host/state/HistoryWriter.h"

#include "host/disk/FileLock.h"
#include "host/state/HistoryFolder.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <utility>

namespace velorin::host {

namespace fs = std::filesystem;

namespace {

constexpr unsigned forTheUser = 0700;
constexpr std::int64_t usPerDay = 86'400'000'000;

/// True if the open file still has a name: a user may remove the folder while the program runs.
bool isNamed(const Descriptor& file) {
    struct stat status {};
    return file.isOpen() && fstat(file.number(), &status) == 0 && status.st_nlink > 0;
}

} // namespace

HistoryWriter::HistoryWriter(fs::path folder, std::string run, std::uint64_t packBytes)
    : folder_(std::move(folder)), run_(std::move(run)), packBytes_(packBytes) {}

bool HistoryWriter::hasMarker() {
    if (isNamed(marker_))
        return true;
    if (folder_.empty())
        return false;
    createFoldersDurably(folder_.parent_path(), forTheUser);
    createFoldersDurably(folder_, forTheUser);
    (void)chmod(folder_.c_str(), forTheUser); // its files are the user's alone in any case
    marker_ = lockFile(folder_ / openMarker(run_));
    return marker_.isOpen();
}

bool HistoryWriter::hasPack(std::uint64_t recordBytes, std::int64_t day) {
    if (pack_ && (day != day_ || (bytes_ > 0 && bytes_ + recordBytes > packBytes_)))
        pack_.reset();
    if (pack_ && isNamed(*pack_))
        return true;
    const fs::path path = folder_ / packName(run_, number_ + 1);
    Descriptor file(
        open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_APPEND | O_CLOEXEC, userOnlyMode));
    if (!file.isOpen())
        return false;
    ++number_;
    bytes_ = 0;
    day_ = day;
    pack_ = std::make_shared<Descriptor>(std::move(file));
    unsynced_.hasNewNames = true;
    return true;
}

bool HistoryWriter::append(const std::string& record, std::int64_t momentUs) {
    if (!hasMarker() || !hasPack(record.size(), momentUs / usPerDay))
        return false;
    if (!writeAll(*pack_, record)) {
        drop();
        return false;
    }
    bytes_ += record.size();
    if (std::find(unsynced_.files.begin(), unsynced_.files.end(), pack_) == unsynced_.files.end())
        unsynced_.files.push_back(pack_);
    return true;
}

// A reader ignores what cannot be cut off, since nothing follows it.
void HistoryWriter::drop() {
    const bool isWhole = ftruncate(pack_->number(), static_cast<off_t>(bytes_)) == 0;
    if (isWhole && bytes_ > 0)
        return;
    if (bytes_ == 0)
        (void)unlink((folder_ / packName(run_, number_)).c_str());
    pack_.reset();
}

Unsynced HistoryWriter::takeUnsynced() {
    return std::exchange(unsynced_, {});
}

void HistoryWriter::end(bool isSafe) {
    if (!marker_.isOpen())
        return;
    std::error_code ignored; // the next start recovers the state of a marker that stays
    const fs::path marker = folder_ / openMarker(run_);
    if (isSafe)
        fs::remove(marker, ignored);
    else
        fs::rename(marker, folder_ / unsavedMarker(run_), ignored);
    unsynced_.hasNewNames = true;
}

} // namespace velorin::host
