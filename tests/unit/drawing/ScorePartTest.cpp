// Parts of a score as pictures, without a window.
#include "drawing/ScorePart.h"

#include "session/Session.h"
#include "support/ScriptedPlatform.h"

#include <gtest/gtest.h>

using namespace velorin;

namespace {

struct ScorePartTest : testing::Test {
    scripted::ScriptedPlatform host;
    Session session{host.platform};
    Studio& studio = session.studio;
};

} // namespace

TEST_F(ScorePartTest, HasTwelvePixelsForEachColumnAndLine) {
    EXPECT_EQ(drawPart(studio, {0, 64, 40, 40}).size(), QSize(768, 480));
    EXPECT_EQ(drawPart(studio, {999, 1, 127, 1}).size(), QSize(12, 12));
}

TEST_F(ScorePartTest, ShowsARowThatWasNeverSelectedAndBeginsAtItsColumnAndPitch) {
    studio.score.NoteArray.write(5, 100, 60); // the sixth channel, pale
    const QImage part = drawPart(studio, {100, 4, 60, 1});
    EXPECT_EQ(part.pixelColor(11, 5), QColor(192, 192, 255));
    EXPECT_EQ(part.pixelColor(23, 5), QColor(255, 255, 255));
}

TEST_F(ScorePartTest, LinesOfSharpNamesAreGreyWhereverThePartBegins) {
    const QImage part = drawPart(studio, {1, 2, 57, 2}); // 5A# and 5A
    EXPECT_EQ(part.pixelColor(5, 5), QColor(224, 224, 224));
    EXPECT_EQ(part.pixelColor(5, 17), QColor(255, 255, 255));
}
