// The queue of notices, and its file for the next run.
#include "host/desktop/NoticeQueue.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>

#include <filesystem>

namespace velorin::host {
namespace {

TEST(NoticeQueueTest, AnUnreadNoticeWaitsForTheNextRun) {
    const QTemporaryDir folder;
    const std::filesystem::path unread = folder.filePath("state/velorin/n").toStdString();
    testing::internal::CaptureStderr();
    {
        NoticeQueue queue(unread);
        queue.post({"read", {}});
        queue.post({"kept as \"a\"\r\nhere", "/songs/a.sng"});
        EXPECT_EQ(queue.take()->text, "read");
    }
    {
        NoticeQueue queue(unread);
        queue.onPosted([] {}); // a window shows them
        const auto notice = queue.take();
        ASSERT_TRUE(notice);
        EXPECT_EQ(notice->text, "kept as \"a\"\r\nhere");
        EXPECT_EQ(notice->scoreToOpen, "/songs/a.sng");
        EXPECT_FALSE(queue.take());
    }
    EXPECT_FALSE(std::filesystem::exists(unread));
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "velorin: read\nvelorin: kept as \"a\" here\n")
        << "each is logged once";
}

TEST(NoticeQueueTest, ANoticeThatIsQueuedAlreadyIsNotAddedAgain) {
    NoticeQueue queue;
    queue.post({"There is no sound card.", {}});
    queue.post({"There is no sound card.", {}});
    EXPECT_TRUE(queue.take());
    EXPECT_FALSE(queue.take());
    queue.post({"There is no sound card.", {}});
    EXPECT_TRUE(queue.take());
}

} // namespace
} // namespace velorin::host
