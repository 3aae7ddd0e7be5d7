// Tests whether the user can reach a part of a window on some screen, and finds a better place if
// not.
#include "windows/frame/ScreenReach.h"

#include <algorithm>
#include <limits>

namespace velorin {

namespace {

constexpr int gapPx = 10; ///< between windows beside each other

QRect toQRect(const platform::RectPx& rect) {
    return {rect.left, rect.top, rect.width, rect.height};
}

/// The square of the distance between a point and a rectangle; 0 inside it.
long long distance(QPoint point, const QRect& rect) {
    const long long dx = std::max({0, rect.left() - point.x(), point.x() - rect.right()});
    const long long dy = std::max({0, rect.top() - point.y(), point.y() - rect.bottom()});
    return dx * dx + dy * dy;
}

/// The start of a length, moved so that the length is within the room, if it fits.
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

QPoint placeBeside(const QRect& window, const std::vector<QRect>& taken, const Screens& screens) {
    const auto isFree = [&taken](const QRect& place) {
        return std::ranges::none_of(taken, [&](const QRect& one) { return one.intersects(place); });
    };
    if (isFree(window))
        return window.topLeft();
    // In each direction, the nearest place touches a neighbour or the edge of a screen.
    std::vector<int> lefts{window.x()};
    std::vector<int> tops{window.y()};
    const auto offer = [&](int before, int behind, int above, int below) {
        lefts.insert(lefts.end(), {before - window.width(), behind});
        tops.insert(tops.end(), {above - window.height(), below});
    };
    for (const QRect& one : taken)
        offer(one.x() - gapPx, one.x() + one.width() + gapPx, one.y() - gapPx,
              one.y() + one.height() + gapPx);
    for (const platform::Screen& screen : screens)
        offer(screen.free.left + screen.free.width, screen.free.left,
              screen.free.top + screen.free.height, screen.free.top);
    QPoint best = window.topLeft();
    long long least = std::numeric_limits<long long>::max();
    for (const int left : lefts) {
        for (const int top : tops) {
            const QRect place(QPoint(left, top), window.size());
            const bool isShown = std::ranges::any_of(screens, [&](const platform::Screen& screen) {
                return toQRect(screen.free).contains(place);
            });
            const QPoint way = place.topLeft() - window.topLeft();
            const long long length = static_cast<long long>(way.x()) * way.x() +
                                     static_cast<long long>(way.y()) * way.y();
            if (isShown && length < least && isFree(place)) {
                least = length;
                best = place.topLeft();
            }
        }
    }
    return best;
}

} // namespace velorin
