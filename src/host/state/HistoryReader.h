// Reads the history that is in a folder, and changes nothing there.
#pragma once

#include "host/state/HistoryFolder.h"
#include "host/state/HistoryRecord.h"

#include <cstdint>
#include <filesystem>
#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

namespace velorin::host {

/// Gets each damaged piece that is read: the name of the pack, where in it, and its bytes.
using DamageCallback =
    std::function<void(const std::string& pack, std::uint64_t at, std::string_view bytes)>;

/// It remembers what it has read: packs only grow, so each byte is read once. Other runs may write
/// at the same time.
class HistoryReader {
public:
    explicit HistoryReader(std::filesystem::path folder, DamageCallback damaged = {});

    /// States and saved moments, the oldest first.
    [[nodiscard]] std::vector<platform::HistoryEntry> entries();

    /// The record with the score of a state; no value if there is none.
    [[nodiscard]] std::optional<HistoryRecord> state(std::int64_t id);

    /// The pack that has it; empty if there is none.
    [[nodiscard]] std::string packOf(std::int64_t id);

    /// Where the score of a state has just been written. So a run finds its own states without
    /// reading the packs of others.
    struct Place {
        std::string pack;
        std::uint64_t begin = 0;
        std::uint64_t end = 0;
    };
    void learn(std::int64_t id, Place place) { states_[id] = std::move(place); }

    /// From now on these packs do not exist.
    void ignore(const std::set<std::string>& packs);

private:
    struct Known {
        std::uint64_t inode = 0;
        std::uint64_t read = 0; ///< bytes
        std::vector<platform::HistoryEntry> entries;
    };
    void refresh();
    void readMore(const Pack& pack, Known& known, std::string& buffer);
    void add(const std::string& pack, Known& known, RecordScan::Found& found, std::uint64_t at);
    [[nodiscard]] const Place* find(std::int64_t id);

    std::filesystem::path folder_;
    DamageCallback damaged_;
    std::map<std::string, Known> packs_; ///< by name
    std::unordered_map<std::int64_t, Place> states_;
    std::set<std::string> ignored_;
};

/// The state that was current when a run ended.
struct CurrentState {
    std::int64_t changedUs = 0; ///< when it became the current one
    std::string text;
};

/// Reads the packs of a run from the end. If its current state is damaged, the latest state of the
/// run that is not. No value if that is the sheet of the start, or no state can be read.
[[nodiscard]] std::optional<CurrentState> currentStateOf(const std::filesystem::path& folder,
                                                         const std::string& run,
                                                         const DamageCallback& damaged);

} // namespace velorin::host
