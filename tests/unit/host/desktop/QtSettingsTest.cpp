// The settings store: what the next run reads, and damage.
#include "host/desktop/QtSettings.h"
#include "host/desktop/NoticeQueue.h"

#include <gmock/gmock.h>

#include <QFile>
#include <QTemporaryDir>

namespace velorin::host {
namespace {

TEST(QtSettingsTest, FailureToWriteIsReportedInTheWindowOnce) {
    const QTemporaryDir folder;
    QFile inTheWay(folder.filePath("velorin"));
    ASSERT_TRUE(inTheWay.open(QIODevice::WriteOnly));
    NoticeQueue queue;
    {
        QtSettings settings(folder.filePath("velorin/settings.ini"), &queue);
        settings.SaveSetting("Settings", "Form3", "True");
    }
    const auto notice = queue.take();
    ASSERT_TRUE(notice);
    EXPECT_THAT(notice->text, testing::StartsWith("The settings cannot be written to \""));
    EXPECT_FALSE(queue.take());
}

TEST(QtSettingsTest, NextRunReadsTheSettingsWhateverTheCaseOfTheirKeys) {
    const QTemporaryDir folder;
    const QString file = folder.filePath("sub folder/Velorin 2.1.ini");
    {
        QtSettings settings(file);
        settings.SaveSetting("Settings", "form1 Width", "9600");
        settings.SaveSetting("Settings", "Odd", "a, \"b\" = \xC3\xBC; %20");
        EXPECT_EQ(settings.GetSetting("Settings", "FORM1 WIDTH", "1"), "9600");
    }
    QtSettings settings(file);
    EXPECT_EQ(settings.GetSetting("settings", "form1 width", "1"), "9600");
    EXPECT_EQ(settings.GetSetting("Settings", "odd", ""), "a, \"b\" = \xC3\xBC; %20");
    EXPECT_EQ(settings.GetSetting("Settings", "absent", "fallback"), "fallback");
}

TEST(QtSettingsTest, DamagedFileCountsAsAnEmptyOne) {
    const QTemporaryDir folder;
    const QString file = folder.filePath("settings.ini");
    QFile damaged(file);
    ASSERT_TRUE(damaged.open(QIODevice::WriteOnly));
    damaged.write(QByteArray("\0\xFF[[[\n=\n%zz", 12));
    damaged.close();
    QtSettings settings(file);
    EXPECT_EQ(settings.GetSetting("Settings", "Form3", "True"), "True");
}

} // namespace
} // namespace velorin::host
