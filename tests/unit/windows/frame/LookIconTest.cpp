// The pictures of buttons, read when they are painted.
#include "windows/frame/LookIcon.h"

#include "windows/frame/Look.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QPainter>
#include <QPixmap>

using namespace velorin;

namespace {

struct LookIconTest : testing::Test {
    static void SetUpTestSuite() { applyLook(*qApp); }
};

QImage painted(const QIcon& icon, QIcon::Mode mode, double ratio) {
    QImage image(static_cast<int>(40 * ratio), static_cast<int>(30 * ratio),
                 QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(ratio);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    icon.paint(&painter, QRect(3, 2, 32, 24), Qt::AlignCenter, mode);
    return image;
}

TEST_F(LookIconTest, PaintsWhatItsFilePaints) {
    const QIcon late = lookIcon("glyph-down-ink");
    const QIcon file(":/look/glyph-down-ink.svg");
    for (const double ratio : {1.0, 1.25, 1.5, 2.0}) {
        EXPECT_EQ(painted(late, QIcon::Normal, ratio), painted(file, QIcon::Normal, ratio));
        EXPECT_EQ(late.pixmap(QSize(16, 16), ratio).toImage(),
                  file.pixmap(QSize(16, 16), ratio).toImage());
    }
    EXPECT_EQ(late.actualSize(QSize(20, 16)), file.actualSize(QSize(20, 16)));
}

TEST_F(LookIconTest, ADisabledOneIsPaintedFromItsOwnFile) {
    QIcon both(":/look/glyph-down-ink.svg");
    both.addFile(":/look/off/glyph-down-ink.svg", QSize(), QIcon::Disabled);
    const QImage seen = painted(lookIcon("glyph-down-ink"), QIcon::Disabled, 1.0);
    EXPECT_EQ(seen, painted(both, QIcon::Disabled, 1.0));
    EXPECT_NE(seen, painted(both, QIcon::Normal, 1.0));
}

TEST_F(LookIconTest, AMissingPicturePaintsNothing) {
    const QImage seen = painted(lookIcon("no-such-picture"), QIcon::Normal, 1.0);
    QImage empty = seen.copy();
    empty.fill(Qt::transparent);
    EXPECT_EQ(seen, empty);
    EXPECT_TRUE(lookIcon("no-such-picture").pixmap(16).isNull());
}

} // namespace
