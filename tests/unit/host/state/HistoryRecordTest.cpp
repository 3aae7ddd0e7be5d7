// Records of the history are found whole or not at all, also between damaged ones.
#include "host/state/HistoryRecord.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>

namespace velorin::host {
namespace {

HistoryRecord record(std::int64_t id, const std::string& score) {
    HistoryRecord made;
    made.entry = {id, id, id - 1, "drawn", "3 notes drawn on channel 2", "waltz.sng", true};
    setScore(made, score);
    return made;
}

std::string bytesOf(std::int64_t id) {
    return encodeRecord(record(id, "score " + std::to_string(id)));
}

/// The ids of the records in order, and each damaged piece as its first and last byte.
std::string described(const std::string& bytes) {
    std::ostringstream text;
    const RecordScan scan = scanRecords(bytes);
    for (const auto& found : scan.records)
        text << found.record.entry.id << ' ';
    for (const auto& piece : scan.damaged)
        text << '[' << piece.begin << ',' << piece.end << ") ";
    text << "end " << scan.end;
    return text.str();
}

std::string number(std::size_t bytes) {
    return std::to_string(bytes);
}

TEST(HistoryRecord, ComesBackWithItsScoreAndAllFieldsOfItsEntry) {
    const auto back = decodeRecord(encodeRecord(record(1893456000000001, "1,2\r\n")));
    ASSERT_TRUE(back);
    EXPECT_EQ(back->kind, RecordKind::state);
    EXPECT_EQ(back->entry.id, 1893456000000001);
    EXPECT_EQ(back->entry.state, 1893456000000001);
    EXPECT_EQ(back->entry.parent, 1893456000000000);
    EXPECT_EQ(back->entry.kind, "drawn");
    EXPECT_EQ(back->entry.text, "3 notes drawn on channel 2");
    EXPECT_EQ(back->entry.name, "waltz.sng");
    EXPECT_TRUE(back->entry.isSaved);
    EXPECT_EQ(scoreOf(*back), "1,2\r\n");
}

TEST(HistoryRecord, WithoutAScoreHasNone) {
    HistoryRecord moment;
    moment.kind = RecordKind::moment;
    moment.entry.state = 7;
    const auto back = decodeRecord(encodeRecord(moment));
    ASSERT_TRUE(back);
    EXPECT_EQ(back->entry.state, 7);
    EXPECT_FALSE(scoreOf(*back));
}

TEST(HistoryRecord, CutAnywhereIsUnfinishedAndNoDamage) {
    const std::string whole = bytesOf(1);
    const std::string bytes = whole + bytesOf(2);
    for (std::size_t size = whole.size(); size < bytes.size(); ++size)
        EXPECT_EQ(described(bytes.substr(0, size)), "1 end " + number(whole.size())) << size;
}

TEST(HistoryRecord, WithTheSizeButNotAllBytesIsUnfinished) {
    const std::string whole = bytesOf(1);
    std::string bytes = whole + bytesOf(2);
    for (std::size_t from = whole.size(); from < bytes.size(); ++from) {
        std::string torn = bytes;
        torn.replace(from, std::string::npos, bytes.size() - from, '\0');
        EXPECT_EQ(described(torn), "1 end " + number(whole.size())) << from;
    }
}

TEST(HistoryRecord, DamagedAtAnyByteLosesThatRecordAlone) {
    const std::string first = bytesOf(1);
    const std::string second = bytesOf(2);
    const std::string bytes = first + second + bytesOf(3);
    for (std::size_t place = first.size(); place < first.size() + second.size(); ++place) {
        std::string damaged = bytes;
        damaged[place] = static_cast<char>(damaged[place] ^ 0x10);
        EXPECT_EQ(described(damaged), "1 3 [" + number(first.size()) + "," +
                                          number(first.size() + second.size()) + ") end " +
                                          number(bytes.size()))
            << place;
    }
}

TEST(HistoryRecord, DamagedAsTheLastOneIsSetAside) {
    const std::string first = bytesOf(1);
    std::string bytes = first + bytesOf(2);
    bytes[bytes.size() - 5] ^= 1;
    EXPECT_EQ(described(bytes), "1 [" + number(first.size()) + "," + number(bytes.size()) +
                                    ") end " + number(bytes.size()));
}

TEST(HistoryRecord, ThatAPowerCutLeftEmptyBeforeAWholeOneIsNoDamage) {
    const std::string first = bytesOf(1);
    const std::string bytes = first + std::string(300, '\0') + bytesOf(3);
    EXPECT_EQ(described(bytes), "1 3 end " + number(bytes.size()));
}

TEST(HistoryRecord, OfAKindThatIsNotKnownYetIsSkippedWhole) {
    HistoryRecord later = record(2, "of a later version");
    later.kind = static_cast<RecordKind>('z');
    const std::string bytes = bytesOf(1) + encodeRecord(later) + bytesOf(3);
    EXPECT_EQ(described(bytes), "1 2 3 end " + number(bytes.size()));
    EXPECT_FALSE(isEntry(scanRecords(bytes).records[1].record.kind));
}

TEST(HistoryRecord, ThatClaimsAHugeScoreIsNotTaken) {
    HistoryRecord huge = record(1, "small");
    huge.textBytes = 0xFFFFFFFFU;
    EXPECT_FALSE(decodeRecord(encodeRecord(huge)));
    huge.textBytes = 6; // the bytes are five
    const auto wrong = decodeRecord(encodeRecord(huge));
    ASSERT_TRUE(wrong);
    EXPECT_FALSE(scoreOf(*wrong));
}

TEST(HistoryRecord, AfterOneThatWasCutIsFound) {
    const std::string cut = bytesOf(1).substr(0, 30);
    const std::string whole = bytesOf(2);
    EXPECT_EQ(described(cut + whole), "2 [0,30) end " + number(30 + whole.size()));
}

} // namespace
} // namespace velorin::host
