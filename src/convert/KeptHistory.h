// The history of the score that the program keeps, as the converter lists it.
#pragma once

#include "host/state/HistoryReader.h"
#include "platform/Result.h"

#include <filesystem>
#include <string>
#include <vector>

namespace velorin::convert {

/// Reads the folder once and changes nothing in it. The program may run meanwhile.
class KeptHistory {
public:
    explicit KeptHistory(const std::filesystem::path& folder);
    KeptHistory(const KeptHistory&) = delete;
    KeptHistory& operator=(const KeptHistory&) = delete;

    /// An entry in each line, the newest last: its number, its local time, what changed, and in
    /// brackets the file's name. Entry 1 is the oldest, so a later change renumbers nothing;
    /// numbers shift only when the oldest entries are removed.
    [[nodiscard]] std::string list() const;
    [[nodiscard]] bool isEmpty() const { return entries_.empty(); }

    /// The score file of an entry, from 1.
    [[nodiscard]] platform::Result<std::string> score(int number) const;

    [[nodiscard]] int damagedPieces() const { return damagedPieces_; }
    [[nodiscard]] std::string damageReport() const; ///< a sentence without a full stop

private:
    int damagedPieces_ = 0;
    mutable host::HistoryReader reader_;
    std::vector<platform::HistoryEntry> entries_;
};

} // namespace velorin::convert
