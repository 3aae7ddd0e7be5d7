// The texts of all windows as they are painted, and the names that they give their controls.
#include "WholeProgram.h"
#include "support/contrast/Contrast.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAccessible>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QTabBar>
#include <QTabWidget>

#include <functional>
#include <map>

using namespace velorin;

namespace {

constexpr int scale = 3; ///< so that a stroke of a letter has pixels of its full colour
constexpr int indicatorWidth = 24;
constexpr int arrowWidth = 26;
constexpr int edge = 4;

/// Where the text of a control is, without edges and pictures; empty if it has none.
QRect textRect(const QWidget& control) {
    const QRect inside = control.rect().adjusted(edge, edge, -edge, -edge);
    if (const auto* label = qobject_cast<const QLabel*>(&control))
        return label->text().isEmpty() ? QRect() : label->contentsRect();
    if (const auto* box = qobject_cast<const QLineEdit*>(&control))
        return box->text().isEmpty() ? QRect() : inside;
    if (qobject_cast<const QComboBox*>(&control) != nullptr)
        return inside.adjusted(0, 0, -arrowWidth, 0);
    const auto* const button = qobject_cast<const QAbstractButton*>(&control);
    if (button == nullptr || button->text().isEmpty())
        return {};
    const bool hasIndicator = button->inherits("QCheckBox") || button->inherits("QRadioButton");
    return hasIndicator ? inside.adjusted(indicatorWidth, 0, 0, 0) : inside;
}

/// The contrast of the most different colour in a part of a picture to its most frequent colour.
double contrastIn(const QImage& picture, const QRect& part) {
    std::map<QRgb, int> counts;
    for (int y = part.top() * scale; y < (part.bottom() + 1) * scale; ++y)
        for (int x = part.left() * scale; x < (part.right() + 1) * scale; ++x)
            if (picture.rect().contains(x, y))
                ++counts[picture.pixel(x, y)];
    if (counts.empty())
        return 0.0;
    const auto ground = std::ranges::max_element(
        counts, [](const auto& one, const auto& other) { return one.second < other.second; });
    double most = 0.0;
    for (const auto& [colour, count] : counts)
        most = std::max(most, contrast(QColor(colour), QColor(ground->first)));
    return most;
}

QImage pictureOf(QWidget& window) {
    QImage picture(window.size() * scale, QImage::Format_ARGB32_Premultiplied);
    picture.setDevicePixelRatio(scale);
    picture.fill(Qt::transparent);
    window.render(&picture, QPoint(), QRegion(),
                  QWidget::DrawChildren); // the ground of a window is painted by itself
    return picture;
}

struct SeenTextTest : testing::Test {
    /// Every window, on each of its pages, also with the Editing Toolbar in select mode.
    void eachPage(const std::function<void(QWidget&)>& visit) {
        for (QWidget* const window : whole.windows()) {
            auto* const pages = window->findChild<QTabWidget*>("SSTab1");
            for (int page = 0; page < (pages != nullptr ? pages->count() : 1); ++page) {
                if (pages != nullptr)
                    pages->setCurrentIndex(page);
                if (window->objectName() == "Form2")
                    window->findChild<QAbstractButton*>("Cmd2(11)")->click();
                QCoreApplication::processEvents();
                visit(*window);
            }
        }
    }
    WholeProgram whole;
};

} // namespace

TEST_F(SeenTextTest, IsPaintedWithEnoughContrast) {
    int seen = 0;
    eachPage([&seen](QWidget& window) {
        const QImage picture = pictureOf(window);
        for (QWidget* const control : window.findChildren<QWidget*>()) {
            const QRect text = textRect(*control);
            if (text.isEmpty() || !control->isVisible() || !control->isEnabled() ||
                control->window() != &window || control->visibleRegion().isEmpty())
                continue;
            const QRect place = text.translated(control->mapTo(&window, QPoint(0, 0)));
            EXPECT_GE(contrastIn(picture, place), 4.5)
                << window.objectName().toStdString() << " " << control->objectName().toStdString();
            ++seen;
        }
    });
    EXPECT_GT(seen, 150);
}

// A user of speech input says the caption.
TEST_F(SeenTextTest, NamesOfControlsHaveTheirCaptions) {
    int seen = 0;
    eachPage([&seen](QWidget& window) {
        for (const QAbstractButton* const button : window.findChildren<QAbstractButton*>()) {
            const QString caption = button->text().remove('&').remove("...").simplified();
            if (caption.isEmpty() || !button->isVisible())
                continue;
            const QString name =
                QAccessible::queryAccessibleInterface(const_cast<QAbstractButton*>(button))
                    ->text(QAccessible::Name)
                    .simplified();
            EXPECT_TRUE(name.contains(caption, Qt::CaseInsensitive))
                << name.toStdString() << " for " << caption.toStdString();
            ++seen;
        }
    });
    EXPECT_GT(seen, 20);
}
