// Walks through a window with the Tab key.
#include "support/walk/TabWalk.h"

#include "support/contrast/Contrast.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractSlider>
#include <QApplication>
#include <QComboBox>
#include <QImage>
#include <QLineEdit>
#include <QLineF>
#include <QMouseEvent>
#include <QTabBar>
#include <QTest>
#include <QTextEdit>

#include <algorithm>

namespace velorin {

namespace {

constexpr int mostStops = 200;
constexpr int mostLinks = 200;      ///< in a page of text, where Tab goes from link to link
constexpr int aroundControl = 6;    ///< pixels, for what is beside a ring
constexpr int besidePixel = 3;      ///< how far away a pixel is beside another one
constexpr double least = 3.0;       ///< contrast of what is no text
constexpr double targetSize = 24.0; ///< pixels, at least

bool isPartOfAnother(const QWidget& widget) {
    const QWidget* const parent = widget.parentWidget();
    if (parent == nullptr)
        return true;
    return qobject_cast<const QLineEdit*>(parent) != nullptr ||
           qobject_cast<const QComboBox*>(parent) != nullptr ||
           qobject_cast<const QTabBar*>(parent) != nullptr ||
           parent->objectName().startsWith(QLatin1String("qt_scrollarea_"));
}

bool isControlOfQt(const QWidget& widget) {
    return qobject_cast<const QAbstractButton*>(&widget) != nullptr ||
           qobject_cast<const QLineEdit*>(&widget) != nullptr ||
           qobject_cast<const QComboBox*>(&widget) != nullptr ||
           qobject_cast<const QAbstractSlider*>(&widget) != nullptr ||
           qobject_cast<const QAbstractItemView*>(&widget) != nullptr ||
           qobject_cast<const QTextEdit*>(&widget) != nullptr ||
           qobject_cast<const QTabBar*>(&widget) != nullptr;
}

/// A painted control accepts the press; what is only to be looked at leaves it to its parent. The
/// event goes to the widget itself, so that no parent gets it.
bool acceptsPress(QWidget& widget) {
    const QPointF middle = QRectF(widget.rect()).center();
    const auto accepts = [&](QEvent::Type type) {
        QMouseEvent event(type, middle, widget.mapToGlobal(middle), Qt::ExtraButton20,
                          Qt::ExtraButton20, Qt::NoModifier);
        static_cast<QObject&>(widget).event(&event);
        return event.isAccepted();
    };
    const bool isTaken = accepts(QEvent::MouseButtonPress);
    accepts(QEvent::MouseButtonRelease);
    return isTaken;
}

/// The child of `ancestor` in which `control` is.
const QWidget& branchOf(const QWidget& control, const QWidget& ancestor) {
    const QWidget* branch = &control;
    while (branch->parentWidget() != &ancestor)
        branch = branch->parentWidget();
    return *branch;
}

QImage lookOf(QWidget& window, const QRect& part) {
    QCoreApplication::processEvents();
    return window.grab(part).toImage().convertToFormat(QImage::Format_ARGB32);
}

/// A picture, and how bright its pixels are.
struct Shown {
    explicit Shown(const QImage& image) : pixels(image) {
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                bright.push_back(luminance(image.pixelColor(x, y)));
    }
    [[nodiscard]] double at(QPoint pixel) const {
        return bright[static_cast<std::size_t>(pixel.y() * pixels.width() + pixel.x())];
    }
    QImage pixels;
    std::vector<double> bright;
};

/// True if a pixel has changed so that it differs from what it was, or from one beside it that has
/// not changed.
bool isSeen(const Shown& before, const Shown& after, QPoint pixel) {
    const auto isSame = [&](QPoint at) {
        return before.pixels.pixel(at) == after.pixels.pixel(at);
    };
    if (isSame(pixel))
        return false;
    if (contrastOf(before.at(pixel), after.at(pixel)) >= least)
        return true;
    for (int dx = -besidePixel; dx <= besidePixel; ++dx)
        for (int dy = -besidePixel; dy <= besidePixel; ++dy) {
            const QPoint beside = pixel + QPoint(dx, dy);
            if (after.pixels.rect().contains(beside) && isSame(beside) &&
                qAlpha(after.pixels.pixel(beside)) == 255 &&
                contrastOf(after.at(pixel), after.at(beside)) >= least)
                return true;
        }
    return false;
}

/// The pixels in a control with the focus and around it that differ from `before`, a picture of its
/// window.
int ringPixels(const QImage& before, QWidget& control) {
    QWidget& window = *control.window();
    const QRect place(control.mapTo(&window, QPoint(0, 0)), control.size());
    const QRect part = place.adjusted(-aroundControl, -aroundControl, aroundControl, aroundControl)
                           .intersected(window.rect());
    const Shown without(before.copy(part));
    const Shown with(lookOf(window, part));
    int seen = 0;
    for (int y = 0; y < part.height(); ++y)
        for (int x = 0; x < part.width(); ++x)
            seen += isSeen(without, with, {x, y}) ? 1 : 0;
    return seen;
}

} // namespace

std::vector<std::string> TabWalk::names() const {
    std::vector<std::string> all;
    for (const TabStop& stop : stops)
        all.push_back(nameOf(*stop.control));
    return all;
}

bool TabWalk::reaches(const QWidget& control) const {
    return std::ranges::any_of(
        stops, [&control](const TabStop& stop) { return stop.control == &control; });
}

TabWalk walkByTab(QWidget& window, Direction direction) {
    const bool isBack = direction == Direction::back;
    window.activateWindow();
    window.setFocus(Qt::OtherFocusReason);
    const QImage before = lookOf(window, window.rect());
    TabWalk walk;
    int links = 0;
    while (walk.stops.size() < mostStops) {
        QTest::keyClick(QApplication::focusWidget(), isBack ? Qt::Key_Backtab : Qt::Key_Tab,
                        isBack ? Qt::ShiftModifier : Qt::NoModifier);
        QWidget* const now = QApplication::focusWidget();
        if (now == nullptr || now->window() != &window)
            return walk;
        const bool isSame = !walk.stops.empty() && now == walk.stops.back().control;
        if (isSame && qobject_cast<QTextEdit*>(now) != nullptr && ++links < mostLinks)
            continue;
        if (!walk.stops.empty() && now == walk.stops.front().control)
            walk.comesRound = true;
        if (walk.comesRound || isSame)
            return walk;
        walk.stops.push_back({now, ringPixels(before, *now)});
    }
    return walk;
}

std::vector<QWidget*> controlsForTheMouse(QWidget& window) {
    std::vector<QWidget*> controls;
    for (QWidget* const widget : window.findChildren<QWidget*>()) {
        const bool isUsable = widget->window() == &window && widget->isVisible() &&
                              widget->isEnabled() && !widget->visibleRegion().isEmpty() &&
                              !widget->testAttribute(Qt::WA_TransparentForMouseEvents);
        if (isUsable && !isPartOfAnother(*widget) &&
            (isControlOfQt(*widget) || acceptsPress(*widget)))
            controls.push_back(widget);
    }
    return controls;
}

std::vector<QWidget*> reachedByArrows(QWidget& stop) {
    std::vector<QWidget*> reached;
    QWidget* now = &stop;
    do {
        QTest::keyClick(now, Qt::Key_Down);
        now = QApplication::focusWidget();
        if (now == nullptr || std::ranges::find(reached, now) != reached.end())
            break;
        reached.push_back(now);
    } while (now != &stop);
    return reached;
}

bool isReadingOrder(const QWidget& stop, const QWidget& next) {
    const QWidget* ancestor = stop.parentWidget();
    while (!ancestor->isAncestorOf(&next))
        ancestor = ancestor->parentWidget();
    const QRect before = branchOf(stop, *ancestor).geometry();
    const QRect after = branchOf(next, *ancestor).geometry();
    const bool isBelow = after.top() > before.bottom();
    const bool isRight = after.left() > before.left();
    return isBelow || isRight || before.intersects(after);
}

std::vector<std::string> crowdedTargets(QWidget& window) {
    const std::vector<QWidget*> targets = controlsForTheMouse(window);
    const auto placeOf = [&window](const QWidget& target) {
        return QRectF(target.mapTo(&window, QPoint(0, 0)), target.size());
    };
    const auto isSmall = [](const QRectF& place) {
        return place.width() < targetSize || place.height() < targetSize;
    };
    const auto isNear = [&](const QRectF& small, const QRectF& other) {
        const QPointF middle = small.center();
        const QPointF nearest(std::clamp(middle.x(), other.left(), other.right()),
                              std::clamp(middle.y(), other.top(), other.bottom()));
        return QLineF(middle, nearest).length() < targetSize / 2 ||
               (isSmall(other) && QLineF(middle, other.center()).length() < targetSize);
    };
    std::vector<std::string> crowded;
    for (const QWidget* const target : targets) {
        const QRectF place = placeOf(*target);
        const bool isCrowded =
            isSmall(place) && std::ranges::any_of(targets, [&](const QWidget* other) {
                return other != target && isNear(place, placeOf(*other));
            });
        if (isCrowded)
            crowded.push_back(nameOf(*target));
    }
    return crowded;
}

std::string nameOf(const QWidget& control) {
    if (!control.objectName().isEmpty())
        return control.objectName().toStdString();
    const auto* const button = qobject_cast<const QAbstractButton*>(&control);
    return std::string(control.metaObject()->className()) + " " +
           (button != nullptr ? button->text() : control.accessibleName()).toStdString();
}

} // namespace velorin
