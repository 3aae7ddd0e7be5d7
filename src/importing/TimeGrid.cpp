// Finds the leg of a moment or of a column.
#include "importing/TimeGrid.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace velorin::importing {

double columnIn(const std::vector<Leg>& legs, double us) {
    const auto after = std::upper_bound(legs.begin() + 1, legs.end(), us,
                                        [](double t, const Leg& leg) { return t < leg.us; });
    const Leg& leg = *(after - 1);
    const double column = leg.column + (us - leg.us) * leg.columnsPerUs;
    // A leg that begins on a beat may begin a little before the end of the last one.
    return after == legs.end() ? column : std::min(column, std::max(after->column, leg.column));
}

// A place halfway between two columns goes to the later one, however it was rounded.
int nearestColumn(double column) {
    return static_cast<int>(std::floor(column + 0.5 + 1e-6));
}

double TimeGrid::columnAt(double us) const {
    const auto after =
        std::upper_bound(stretches_.begin() + 1, stretches_.end(), us,
                         [](double t, const Stretch& stretch) { return t < stretch.us; });
    const Stretch& stretch = *(after - 1);
    const double column = std::max(columnIn(stretch.legs, us), 0.0) + stretch.firstColumn;
    return after == stretches_.end() ? column : std::min<double>(column, after->firstColumn);
}

double TimeGrid::usAt(double column) const {
    const Stretch& stretch = stretches_[stretchOf(static_cast<int>(column))];
    const double local = column - stretch.firstColumn;
    const auto after = std::upper_bound(stretch.legs.begin() + 1, stretch.legs.end(), local,
                                        [](double c, const Leg& leg) { return c < leg.column; });
    const Leg& leg = *(after - 1);
    return leg.us + (local - leg.column) / leg.columnsPerUs;
}

std::size_t TimeGrid::stretchOf(int column) const {
    const auto after =
        std::upper_bound(stretches_.begin() + 1, stretches_.end(), column,
                         [](int c, const Stretch& stretch) { return c < stretch.firstColumn; });
    return static_cast<std::size_t>(after - stretches_.begin()) - 1;
}

} // namespace velorin::importing
