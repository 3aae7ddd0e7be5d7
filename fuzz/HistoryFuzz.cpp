// Any bytes as a pack of the history: what is found is whole and in order, and whole records around
// the bytes are found in spite of them.
#include "Expect.h"
#include "host/state/HistoryRecord.h"
#include "model/Score.h"
#include "model/ScoreReader.h"

#include <memory>
#include <sstream>
#include <string>

using namespace velorin;
using host::HistoryRecord;
using host::RecordScan;

namespace {

std::string recordWith(std::int64_t id, const std::string& score) {
    HistoryRecord record;
    record.entry.id = record.entry.state = id;
    record.entry.text = score.substr(0, 100);
    host::setScore(record, score);
    const std::string bytes = host::encodeRecord(record);
    const auto back = host::decodeRecord(bytes);
    expect(back && back->entry.id == id && host::scoreOf(*back) == score);
    return bytes;
}

void readScore(const std::string& text) {
    const auto score = std::make_unique<Score>();
    std::istringstream file(text);
    ScoreReader(&file, *score).readRows();
}

void expectInOrder(const RecordScan& scan, std::string_view bytes) {
    std::size_t end = 0;
    for (const RecordScan::Found& found : scan.records) {
        expect(found.begin >= end && found.end > found.begin);
        end = found.end;
        const auto record = host::decodeRecord(bytes.substr(found.begin));
        expect(record.has_value());
        if (const auto text = host::scoreOf(*record))
            readScore(*text);
    }
    expect(end <= scan.end && scan.end <= bytes.size());
    for (const RecordScan::Piece& piece : scan.damaged)
        expect(piece.begin < piece.end && piece.end <= scan.end);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    const RecordScan alone = host::scanRecords(bytes);
    expectInOrder(alone, bytes);

    const std::string first = recordWith(1, bytes);
    const std::string last = recordWith(2, "the last one");
    const std::string pack = first + bytes + last;
    const RecordScan scan = host::scanRecords(pack);
    expectInOrder(scan, pack);
    expect(scan.records.front().end == first.size());
    expect(scan.records.back().end == pack.size() && scan.end == pack.size());
    expect(scan.records.size() == alone.records.size() + 2);

    // A write that was cut short leaves the record before it, and is no damage.
    const RecordScan cut = host::scanRecords(first + last.substr(0, size % last.size()));
    expect(cut.records.size() == 1 && cut.damaged.empty() && cut.end == first.size());
    return 0;
}
