// How long a tick is, and at what time a tick is.
#pragma once

#include <cstdint>
#include <vector>

namespace velorin::midifile {

constexpr std::uint32_t usualTempoUs = 500'000; ///< of a quarter note, in a file without a tempo
constexpr double mostUs = 1e15;                 ///< 31 years: a longer file is damaged

/// Understands the division of a header: ticks per quarter note, or of a film frame.
class TickLength {
public:
    explicit TickLength(std::uint16_t division) : division_(division) {}

    /// In microseconds. `tempoUs` has no effect on ticks of film frames.
    [[nodiscard]] double us(std::uint32_t tempoUs) const;

    /// True if ticks divide a quarter note, whose length the tempo gives.
    [[nodiscard]] bool isMetrical() const { return (division_ & 0x8000U) == 0; }

    /// Of metrical time, at least 1.
    [[nodiscard]] int ticksPerQuarter() const;

private:
    std::uint16_t division_;
};

/// The tempo changes of a song, and the time that they give to each tick.
class TempoMap {
public:
    struct Change {
        std::int64_t tick = 0;
        double us = 0.0;        ///< the time of the tick
        double usPerTick = 0.0; ///< from there on
    };

    explicit TempoMap(TickLength length);

    /// `tick` must not be before the last change. A second change at a tick replaces the first.
    void add(std::int64_t tick, std::uint32_t tempoUs);

    /// Microseconds from tick 0, at most `mostUs`.
    [[nodiscard]] double usAt(std::int64_t tick) const;

    /// The tick at a time, with its fraction.
    [[nodiscard]] double tickAt(double us) const;

    /// In order, the first at tick 0.
    [[nodiscard]] const std::vector<Change>& changes() const { return changes_; }

    [[nodiscard]] TickLength length() const { return length_; }

private:
    TickLength length_;
    std::vector<Change> changes_;
};

} // namespace velorin::midifile
