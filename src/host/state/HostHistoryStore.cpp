// Keeping states so that they survive the process, and the calls of the other parts.
#include "host/state/HostHistoryStore.h"

#include "host/state/HistoryFolder.h"
#include "host/state/HistoryLimit.h"
#include "host/state/HistoryRecovery.h"
#include "host/state/OldSnapshots.h"
#include "platform/PathLookup.h"

#include <algorithm>
#include <chrono>
#include <ctime>
#include <system_error>
#include <utility>

namespace velorin::host {

namespace fs = std::filesystem;

namespace {

std::int64_t systemUs() {
    return std::chrono::duration_cast<std::chrono::microseconds>(
               std::chrono::system_clock::now().time_since_epoch())
        .count();
}

std::set<std::string> markedRuns(const fs::path& folder) {
    std::set<std::string> runs;
    for (const Marker& marker : markersIn(folder))
        runs.insert(marker.run);
    return runs;
}

} // namespace

HostHistoryStore::HostHistoryStore(fs::path folder, platform::Notices* notices,
                                   HistorySettings settings)
    : folder_(std::move(folder)),
      settings_(std::move(settings)),
      run_(nameOfThisRun()),
      cannotKeep_(notices),
      cannotSync_(notices),
      cannotRecover_(notices),
      damagedPieces_(folder_),
      reader_(folder_,
              [this](const std::string& pack, std::uint64_t at, std::string_view bytes) {
                  damagedPieces_.setAside(pack, at, bytes);
              }),
      writer_(folder_, run_, settings_.packBytes) {
    if (!settings_.nowUs)
        settings_.nowUs = systemUs;
}

// A run that ends without a word ends cleanly, and its score may be worth recovering.
HostHistoryStore::~HostHistoryStore() {
    end(false);
    worker_.waitUntilIdle();
}

// The clock may be set back while the program runs.
std::int64_t HostHistoryStore::nextId() {
    lastId_ = std::max(lastId_ + 1, settings_.nowUs());
    return lastId_;
}

std::int64_t HostHistoryStore::add(const platform::HistoryEntry& entry, const std::string& score) {
    HistoryRecord record;
    record.entry = entry;
    record.entry.id = nextId();
    if (score.empty()) {
        record.kind = RecordKind::moment;
    } else {
        record.kind = RecordKind::state;
        record.entry.state = record.entry.id;
        setScore(record, score);
    }
    if (!hasEnded_)
        write(std::move(record));
    return lastId_;
}

void HostHistoryStore::setCurrent(std::int64_t state) {
    if (hasEnded_ || state == current_)
        return;
    HistoryRecord record;
    record.kind = RecordKind::current;
    record.entry.id = nextId();
    record.entry.state = state;
    write(std::move(record));
}

void HostHistoryStore::write(HistoryRecord record) {
    if (makesCurrent(record.kind))
        current_ = record.entry.state;
    waiting_.push_back(std::move(record));
    while (!waiting_.empty() && append(waiting_.front()))
        waiting_.pop_front();
    if (waiting_.size() > mostWaiting)
        waiting_.pop_front();
    syncLater();
}

bool HostHistoryStore::append(const HistoryRecord& record) {
    const std::string bytes = encodeRecord(record);
    if (!writer_.append(bytes, record.entry.id)) {
        cannotKeep_.log("The history cannot be kept in \"" + folder_.string() +
                        "\", and a crash would lose the score. Save often, and make room there "
                        "or allow writing.");
        return false;
    }
    if (!makesCurrent(record.kind))
        return true;
    const std::int64_t state = record.entry.state;
    if (hasScore(record.kind))
        reader_.learn(state, {packName(run_, writer_.packNumber()),
                              writer_.packSize() - bytes.size(), writer_.packSize()});
    std::string pack = state == 0 ? std::string() : reader_.packOf(state);
    const std::lock_guard guard(mutex_);
    currentPack_ = std::move(pack);
    return true;
}

void HostHistoryStore::syncLater() {
    Unsynced more = writer_.takeUnsynced();
    if (more.files.empty() && !more.hasNewNames)
        return;
    const std::lock_guard guard(mutex_);
    if (more.hasNewNames)
        firstOwnPack_ = writer_.packNumber();
    unsynced_.hasNewNames = unsynced_.hasNewNames || more.hasNewNames;
    unsynced_.files.insert(unsynced_.files.end(), more.files.begin(), more.files.end());
    if (!std::exchange(isSyncPosted_, true))
        worker_.post([this] { sync(); });
}

// Runs in the worker thread, like what follows. What is to be removed waits for the sync: it may
// hold the same state as the new pack.
void HostHistoryStore::sync() {
    Unsynced now;
    std::set<std::string> cleared;
    {
        const std::lock_guard guard(mutex_);
        isSyncPosted_ = false;
        now = std::exchange(unsynced_, {});
        cleared = std::exchange(toRemove_, {});
    }
    bool isOnTheDisk = true;
    for (const auto& file : now.files)
        isOnTheDisk = syncFile(*file) && isOnTheDisk;
    if (now.hasNewNames)
        isOnTheDisk = syncFolder(folder_) && isOnTheDisk;
    if (!isOnTheDisk)
        cannotSync_.log("The disk of \"" + folder_.string() +
                        "\" does not take the history; a power cut would lose the score. Save "
                        "often, and look after the disk.");
    removePacks(cleared);
    if (now.hasNewNames)
        removeExpired();
}

// What another run still needs is not removed: its marker says so.
void HostHistoryStore::removeExpired() {
    const std::set<std::string> marked = markedRuns(folder_);
    std::unique_lock lock(mutex_);
    const auto isProtected = [&, firstOwnPack = firstOwnPack_](const Pack& pack) {
        return pack.run == run_ ? pack.number >= firstOwnPack : marked.contains(pack.run);
    };
    lock.unlock();
    constexpr std::int64_t usPerSecond = 1'000'000;
    const auto now = static_cast<std::time_t>(settings_.nowUs() / usPerSecond);
    for (const std::string& name : expiredPacks(packsIn(folder_), now, settings_.mostDays,
                                                settings_.mostBytes, isProtected)) {
        const std::lock_guard guard(mutex_);
        std::error_code ignored; // the next time
        if (name != currentPack_)
            fs::remove(folder_ / name, ignored);
    }
    damagedPieces_.removeOrphans();
}

void HostHistoryStore::removePacks(const std::set<std::string>& packs) {
    if (packs.empty())
        return;
    for (const std::string& name : packs) {
        std::error_code ignored; // the limits apply to what stays
        fs::remove(folder_ / name, ignored);
    }
    damagedPieces_.removeOrphans();
    (void)syncFolder(folder_);
}

std::vector<platform::HistoryEntry> HostHistoryStore::entries() {
    std::vector<platform::HistoryEntry> all = reader_.entries();
    for (const HistoryRecord& record : waiting_)
        if (isEntry(record.kind))
            all.push_back(record.entry);
    return all;
}

std::optional<HistoryRecord> HostHistoryStore::recordOf(std::int64_t state) {
    for (const HistoryRecord& record : waiting_)
        if (record.entry.state == state && hasScore(record.kind))
            return record;
    return reader_.state(state);
}

std::optional<std::string> HostHistoryStore::score(std::int64_t state) {
    const auto record = recordOf(state);
    return record ? scoreOf(*record) : std::nullopt;
}

std::uint64_t HostHistoryStore::bytesUsed() {
    return bytesOf(packsIn(folder_));
}

std::set<std::string> HostHistoryStore::packsToClear() const {
    const std::set<std::string> marked = markedRuns(folder_);
    std::set<std::string> names;
    for (const Pack& pack : packsIn(folder_))
        if (pack.run == run_ || !marked.contains(pack.run))
            names.insert(pack.name);
    return names;
}

// The current state stays for recovery, in a new pack, but it is no entry any more. If it cannot be
// written there, its old pack stays.
void HostHistoryStore::clear() {
    if (hasEnded_)
        return;
    auto current = current_ == 0 ? std::nullopt : recordOf(current_);
    std::set<std::string> packs = packsToClear();
    waiting_.clear();
    writer_.endPack();
    if (current) {
        const std::string pack = reader_.packOf(current_);
        current->kind = RecordKind::kept;
        current->entry = {nextId(), current_, 0, {}, {}, {}, false};
        write(std::move(*current));
        if (!waiting_.empty())
            packs.erase(pack);
    }
    reader_.ignore(packs);
    const std::lock_guard guard(mutex_);
    toRemove_.insert(packs.begin(), packs.end());
    if (!std::exchange(isSyncPosted_, true))
        worker_.post([this] { sync(); });
}

void HostHistoryStore::end(bool isSafe) {
    if (std::exchange(hasEnded_, true))
        return;
    writer_.end(isSafe);
    syncLater();
}

std::vector<platform::RecoveredFile> HostHistoryStore::recoverInto(const std::string& folder) {
    RecoveryFolder target(platform::resolve(folder));
    if (folder_.empty())
        return {};
    recoverOldSnapshots(folder_.parent_path(), target, cannotRecover_);
    recoverRuns(
        folder_, run_, target,
        [this](const std::string& pack, std::uint64_t at, std::string_view bytes) {
            damagedPieces_.setAside(pack, at, bytes);
        },
        cannotRecover_);
    return target.finish();
}

} // namespace velorin::host
