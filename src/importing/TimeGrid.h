// Columns over the time of a file: which column a moment is in, and at what tempo.
#pragma once

#include <vector>

namespace velorin::importing {

constexpr double usOfTempoOne = 12e6; ///< a column lasts 12 / tempo seconds
constexpr int slowestTempo = 20;
constexpr int fastestTempo = 300;

/// From a moment on, columns have this length.
struct Leg {
    double us = 0.0;
    double column = 0.0; ///< at `us`; its fraction says how far from a column that is
    double columnsPerUs = 0.0;
};

/// A part of the file with one tempo in scores.
struct Stretch {
    double us = 0.0;             ///< its start
    int tempo = 100;             ///< [20, 300]
    double exactTempo = 100.0;   ///< before it was rounded; the columns follow this one
    double columnsPerBeat = 0.0; ///< of a quarter note; 0 if the columns do not follow the beat
    int firstColumn = 0;
    std::vector<Leg> legs; ///< in order, the first at `us`; columns count from `firstColumn`

    /// How much faster than the file its scores are played: 1.01 is one per cent faster.
    [[nodiscard]] double speed() const { return tempo / exactTempo; }
};

/// Columns count from 0 through all stretches. A stretch begins with a whole column.
class TimeGrid {
public:
    explicit TimeGrid(std::vector<Stretch> stretches) : stretches_(std::move(stretches)) {}

    /// The place of a moment, with its fraction; never negative.
    [[nodiscard]] double columnAt(double us) const;

    /// The moment in which a column begins.
    [[nodiscard]] double usAt(double column) const;

    /// In order; at least one.
    [[nodiscard]] const std::vector<Stretch>& stretches() const { return stretches_; }

    /// The stretch that a column belongs to.
    [[nodiscard]] std::size_t stretchOf(int column) const;

private:
    std::vector<Stretch> stretches_;
};

/// The place of a moment in a stretch, from its first column on.
[[nodiscard]] double columnIn(const std::vector<Leg>& legs, double us);

/// The column nearest to a place.
[[nodiscard]] int nearestColumn(double column);

} // namespace velorin::importing
