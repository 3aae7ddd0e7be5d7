// Measures the distances of onsets from columns.
#include "importing/GridCost.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <unordered_map>

namespace velorin::importing {

namespace {

constexpr double unheardUs = 8e3; ///< a note that is moved so little costs nothing
constexpr double wrongUs = 40e3;  ///< a note that is moved so far is in the wrong place
constexpr double mostCost = 1.25; ///< of a note
constexpr double costOfLost = 2.0;
constexpr double sameMomentUs = 15e3;
/// Twice as many columns at 120 beats per minute (8 more in a second) must put three notes of a
/// hundred into their places.
constexpr double costOfColumns = 0.004;

/// The last onset of each part, or of each key.
class LastOnsets {
public:
    /// Stores an onset. True if the last one is in the same column, and earlier by more than
    /// `apartUs`.
    bool share(int id, int column, double us, double apartUs) {
        Last& last = last_[id];
        const bool isShared = column == last.column && us - last.us > apartUs;
        last = {column, us};
        return isShared;
    }

private:
    struct Last {
        int column = -1;
        double us = 0.0;
    };
    std::unordered_map<int, Last> last_;
};

} // namespace

double gridCost(std::span<const Onset> onsets, const std::vector<Leg>& legs, double columnUs) {
    LastOnsets ofPart;
    LastOnsets ofKey;
    const double apartUs = std::max(sameMomentUs, 0.3 * columnUs);
    double sum = 0.0;
    for (const Onset& onset : onsets) {
        const double column = columnIn(legs, onset.us);
        const int nearest = nearestColumn(column);
        const double distanceUs = std::abs(column - nearest) * columnUs;
        const double moved = (distanceUs - unheardUs) / (wrongUs - unheardUs);
        if (ofKey.share(onset.part * 128 + onset.key, nearest, onset.us, sameMomentUs))
            sum += costOfLost;
        else if (ofPart.share(onset.part, nearest, onset.us, apartUs) && !onset.isDrum)
            sum += std::clamp(moved, 1.0, mostCost);
        else
            sum += std::clamp(moved, 0.0, mostCost);
    }
    const double mean = onsets.empty() ? 0.0 : sum / static_cast<double>(onsets.size());
    return mean + costOfColumns * 1e6 / columnUs;
}

double gridShift(std::span<const Onset> onsets, const std::vector<Leg>& legs) {
    double x = 0.0;
    double y = 0.0;
    for (const Onset& onset : onsets) {
        const double angle = 2.0 * std::numbers::pi * columnIn(legs, onset.us);
        x += std::cos(angle);
        y += std::sin(angle);
    }
    return -std::atan2(y, x) / (2.0 * std::numbers::pi);
}

std::vector<Leg> shifted(std::vector<Leg> legs, double columns) {
    for (Leg& leg : legs)
        leg.column += columns;
    return legs;
}

} // namespace velorin::importing
