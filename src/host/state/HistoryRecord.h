// The file format of the history: records one after the other, each with its own checksums.
#pragma once

#include "platform/HistoryStore.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace velorin::host {

/// What a record says. A reader skips kinds that it does not know.
enum class RecordKind : char {
    state = 's',   ///< a state with its score
    moment = 'm',  ///< a saved moment of a state
    current = 'c', ///< the user went to the state `entry.state` at the time `entry.id`
    kept = 'k'     ///< the score of the state `entry.state`, for recovery alone: no entry
};

[[nodiscard]] constexpr bool isEntry(RecordKind kind) {
    return kind == RecordKind::state || kind == RecordKind::moment;
}
[[nodiscard]] constexpr bool hasScore(RecordKind kind) {
    return kind == RecordKind::state || kind == RecordKind::kept;
}
/// True if the record says which state is the current one from then on.
[[nodiscard]] constexpr bool makesCurrent(RecordKind kind) {
    return hasScore(kind) || kind == RecordKind::current;
}

struct HistoryRecord {
    RecordKind kind = RecordKind::state;
    platform::HistoryEntry entry;
    std::uint32_t textBytes = 0; ///< of the score, before compression
    std::string body;            ///< the compressed score; empty for a record without one
};

/// Puts the score into the record, compressed.
void setScore(HistoryRecord& record, const std::string& text);

/// The score of a record; no value if it has none or the bytes are not one.
[[nodiscard]] std::optional<std::string> scoreOf(const HistoryRecord& record);

/// The bytes of a record. Strings of an entry are cut at 16 KiB.
//
//     0  4 bytes   mark
//     4  number    bytes of the head
//     8  number    bytes of the body
//    12  number    CRC-32 of head and body
//    16  number    CRC-32 of the 16 bytes before
//    20            head, body
//        1 byte    full stop: what a write has reached last
//
// A number has four bytes, the lowest first.
[[nodiscard]] std::string encodeRecord(const HistoryRecord& record);

/// Decodes the record at the beginning of `bytes`; no value if none is whole there.
[[nodiscard]] std::optional<HistoryRecord> decodeRecord(std::string_view bytes);

/// The records of a file, without their bodies.
struct RecordScan {
    struct Found {
        HistoryRecord record; ///< its body is empty
        std::size_t begin = 0;
        std::size_t end = 0;
    };
    struct Piece {
        std::size_t begin = 0;
        std::size_t end = 0;
    };
    std::vector<Found> records;
    std::vector<Piece> damaged; ///< pieces that once were records and are none any more
    /// Where the whole records and the damaged pieces end. What follows was never completed: a
    /// kill or a power cut ended the write.
    std::size_t end = 0;
};

/// Finds each record that is whole, also after damage. Positions count from the beginning of
/// `bytes`, which begin where a record begins.
[[nodiscard]] RecordScan scanRecords(std::string_view bytes);

} // namespace velorin::host
