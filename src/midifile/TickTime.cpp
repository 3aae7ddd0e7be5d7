// Sums up the lengths of ticks between tempo changes.
#include "midifile/TickTime.h"

#include <algorithm>

namespace velorin::midifile {

namespace {

// 29 stands for the drop-frame rate of television, 29.97.
double framesPerSecond(int named) {
    return named == 29 ? 30'000.0 / 1001.0 : named;
}

} // namespace

double TickLength::us(std::uint32_t tempoUs) const {
    if (isMetrical())
        return static_cast<double>(tempoUs) / ticksPerQuarter();
    const int ticksPerFrame = std::max(division_ & 0xFF, 1);
    return 1e6 / (framesPerSecond(256 - (division_ >> 8)) * ticksPerFrame);
}

int TickLength::ticksPerQuarter() const {
    return std::max<int>(division_ & 0x7FFF, 1);
}

TempoMap::TempoMap(TickLength length)
    : length_(length), changes_{{0, 0.0, length.us(usualTempoUs)}} {}

void TempoMap::add(std::int64_t tick, std::uint32_t tempoUs) {
    const double usPerTick = length_.us(tempoUs);
    if (changes_.back().tick == tick)
        changes_.back().usPerTick = usPerTick;
    else if (changes_.back().usPerTick != usPerTick)
        changes_.push_back({tick, usAt(tick), usPerTick});
}

double TempoMap::usAt(std::int64_t tick) const {
    const auto after =
        std::upper_bound(changes_.begin() + 1, changes_.end(), tick,
                         [](std::int64_t t, const Change& change) { return t < change.tick; });
    const Change& last = *(after - 1);
    return std::min(last.us + static_cast<double>(tick - last.tick) * last.usPerTick, mostUs);
}

double TempoMap::tickAt(double us) const {
    const auto after =
        std::upper_bound(changes_.begin() + 1, changes_.end(), us,
                         [](double t, const Change& change) { return t < change.us; });
    const Change& last = *(after - 1);
    return static_cast<double>(last.tick) + (us - last.us) / last.usPerTick;
}

} // namespace velorin::midifile
