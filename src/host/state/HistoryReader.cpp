// Finds entries and scores in the packs of all runs.
#include "host/state/HistoryReader.h"

#include <algorithm>
#include <utility>

namespace velorin::host {

namespace fs = std::filesystem;

HistoryReader::HistoryReader(fs::path folder, DamageCallback damaged)
    : folder_(std::move(folder)), damaged_(std::move(damaged)) {}

void HistoryReader::refresh() {
    std::set<std::string> there;
    std::string buffer;
    for (const Pack& pack : packsIn(folder_)) {
        if (ignored_.contains(pack.name))
            continue;
        there.insert(pack.name);
        Known& known = packs_[pack.name];
        if (known.inode != pack.inode || known.read > pack.bytes)
            known = {pack.inode, 0, {}};
        if (known.read < std::min(pack.bytes, mostPackBytes))
            readMore(pack, known, buffer);
    }
    if (packs_.size() == there.size())
        return;
    std::erase_if(packs_, [&there](const auto& pack) { return !there.contains(pack.first); });
    std::erase_if(states_,
                  [&there](const auto& state) { return !there.contains(state.second.pack); });
}

void HistoryReader::readMore(const Pack& pack, Known& known, std::string& buffer) {
    const std::string_view bytes = readPiece(folder_ / pack.name, known.read, pack.bytes, buffer);
    RecordScan scan = scanRecords(bytes);
    for (RecordScan::Found& found : scan.records)
        add(pack.name, known, found, known.read);
    for (const RecordScan::Piece& piece : scan.damaged)
        if (damaged_)
            damaged_(pack.name, known.read + piece.begin,
                     bytes.substr(piece.begin, piece.end - piece.begin));
    known.read += scan.end;
}

void HistoryReader::add(const std::string& pack, Known& known, RecordScan::Found& found,
                        std::uint64_t at) {
    platform::HistoryEntry& entry = found.record.entry;
    if (hasScore(found.record.kind))
        states_[entry.state] = {pack, at + found.begin, at + found.end};
    if (isEntry(found.record.kind))
        known.entries.push_back(std::move(entry));
}

std::vector<platform::HistoryEntry> HistoryReader::entries() {
    refresh();
    std::size_t count = 0;
    for (const auto& [name, known] : packs_)
        count += known.entries.size();
    std::vector<platform::HistoryEntry> all;
    all.reserve(count);
    for (const auto& [name, known] : packs_)
        all.insert(all.end(), known.entries.begin(), known.entries.end());
    // They are in order already, unless the clock was set back or two copies ran.
    const auto isEarlier = [](const auto& one, const auto& other) { return one.id < other.id; };
    if (!std::is_sorted(all.begin(), all.end(), isEarlier))
        std::stable_sort(all.begin(), all.end(), isEarlier);
    return all;
}

const HistoryReader::Place* HistoryReader::find(std::int64_t id) {
    auto found = states_.find(id);
    if (found == states_.end()) {
        refresh();
        found = states_.find(id);
    }
    return found == states_.end() ? nullptr : &found->second;
}

std::optional<HistoryRecord> HistoryReader::state(std::int64_t id) {
    const Place* place = find(id);
    if (place == nullptr)
        return std::nullopt;
    std::string buffer;
    auto record = decodeRecord(readPiece(folder_ / place->pack, place->begin, place->end, buffer));
    if (!record || record->entry.state != id)
        return std::nullopt;
    return record;
}

std::string HistoryReader::packOf(std::int64_t id) {
    const Place* place = find(id);
    return place == nullptr ? std::string() : place->pack;
}

void HistoryReader::ignore(const std::set<std::string>& packs) {
    ignored_.insert(packs.begin(), packs.end());
    std::erase_if(packs_, [&packs](const auto& pack) { return packs.contains(pack.first); });
    std::erase_if(states_,
                  [&packs](const auto& state) { return packs.contains(state.second.pack); });
}

std::optional<CurrentState> currentStateOf(const fs::path& folder, const std::string& run,
                                           const DamageCallback& damaged) {
    std::vector<Pack> packs = packsIn(folder);
    std::erase_if(packs, [&run](const Pack& pack) { return pack.run != run; });
    std::optional<platform::HistoryEntry> last; // what says which state is the current one
    std::optional<CurrentState> latest;
    std::string buffer;
    for (auto pack = packs.rbegin(); pack != packs.rend(); ++pack) {
        const std::string_view bytes = readPiece(folder / pack->name, 0, pack->bytes, buffer);
        const RecordScan scan = scanRecords(bytes);
        for (const RecordScan::Piece& piece : scan.damaged)
            damaged(pack->name, piece.begin, bytes.substr(piece.begin, piece.end - piece.begin));
        for (auto found = scan.records.rbegin(); found != scan.records.rend(); ++found) {
            const platform::HistoryEntry& entry = found->record.entry;
            if (!last && makesCurrent(found->record.kind))
                last = entry;
            if (last && last->state == 0)
                return std::nullopt;
            const bool isWanted = last && last->state == entry.state;
            if (!hasScore(found->record.kind) || (latest && !isWanted))
                continue;
            const auto record = decodeRecord(bytes.substr(found->begin));
            auto text = record ? scoreOf(*record) : std::nullopt;
            if (text)
                latest = CurrentState{last->id, std::move(*text)};
            if (text && isWanted)
                return latest;
        }
    }
    return latest;
}

} // namespace velorin::host
