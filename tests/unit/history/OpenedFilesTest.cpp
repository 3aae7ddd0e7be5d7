// The list of scores that were opened or saved last.
#include "history/OpenedFiles.h"

#include "history/Change.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace velorin {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

platform::HistoryEntry entry(const char* kind, const std::string& name) {
    platform::HistoryEntry made;
    made.kind = kind;
    made.name = name;
    return made;
}

TEST(TheOpenedFiles, HaveTheLastOneFirst) {
    EXPECT_THAT(
        openedFiles({entry(changeKind::open, "/a.sng"), entry(changeKind::saved, "/b.sng")}),
        ElementsAre("/b.sng", "/a.sng"));
}

TEST(TheOpenedFiles, HaveEachFileOnce) {
    EXPECT_THAT(openedFiles({entry(changeKind::open, "/a.sng"), entry(changeKind::open, "/b.sng"),
                             entry(changeKind::saved, "/A.sng")}),
                ElementsAre("/A.sng", "/b.sng"));
}

TEST(TheOpenedFiles, LeaveOutOtherChanges) {
    EXPECT_THAT(openedFiles({entry(changeKind::notes, "/a.sng"), entry(changeKind::saved, "")}),
                IsEmpty());
}

TEST(TheOpenedFiles, AreTenAtMost) {
    std::vector<platform::HistoryEntry> entries;
    for (int i = 0; i < 12; ++i)
        entries.push_back(entry(changeKind::open, std::to_string(i)));
    const auto files = openedFiles(entries);
    ASSERT_EQ(files.size(), 10U);
    EXPECT_EQ(files.front(), "11");
    EXPECT_EQ(files.back(), "2");
}

} // namespace
} // namespace velorin
