// Whether the user can reach a piece of a window on some screen, and where the window comes to
// stand if not.
#include "shell/ScreenReach.h"

#include <algorithm>

namespace velorin {

namespace {

QRect toQRect(const platform::RectPx& rect) {
    return {rect.left, rect.top, rect.width, rect.height};
}

/// The square of how far a point lies from a rectangle; 0 within it.
long long distance(QPoint point, const QRect& rect) {
    const long long dx = std::max({0, rect.left() - point.x(), point.x() - rect.right()});
    const long long dy = std::max({0, rect.top() - point.y(), point.y() - rect.bottom()});
    return dx * dx + dy * dy;
}

/// Where a length begins that is to lie within another one, if it fits.
int within(int start, int length, int from, int room) {
    return std::max(from, std::min(start, from + room - length));
}

} // namespace

bool isInReach(const QRect& part, QSize least, const Screens& screens) {
    return std::ranges::any_of(screens, [&](const platform::Screen& screen) {
        const QRect shown = part.intersected(toQRect(screen.whole));
        return shown.width() >= least.width() && shown.height() >= least.height();
    });
}

bool isTitleInReach(const QRect& title, const Screens& screens) {
    return isInReach(title, {std::min(title.width(), gripWidthPx), title.height() / 2}, screens);
}

QPoint placeInNearest(const QRect& window, const Screens& screens) {
    const QPoint middle = window.center();
    const auto nearest = std::ranges::min_element(screens, {}, [&](const platform::Screen& screen) {
        return distance(middle, toQRect(screen.whole));
    });
    if (nearest == screens.end())
        return window.topLeft();
    const platform::RectPx& room = nearest->free;
    return {within(window.x(), window.width(), room.left, room.width),
            within(window.y(), window.height(), room.top, room.height)};
}

} // namespace velorin
