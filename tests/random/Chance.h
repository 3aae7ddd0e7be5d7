// Reproducible random numbers: the same seed gives the same numbers on every machine.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <random>

namespace randomly {

class Chance {
public:
    explicit Chance(std::uint32_t seed) : generator_(seed) {}

    /// [0, end); 0 for an `end` of 0 or less.
    int below(int end) {
        return end <= 0 ? 0 : static_cast<int>(generator_() % static_cast<std::uint32_t>(end));
    }
    /// [low, high]
    int between(int low, int high) { return low + below(high - low + 1); }
    bool percent(int share) { return below(100) < share; }
    bool oneOf(int count) { return below(count) == 0; }
    template <typename Item, std::size_t Count>
    const Item& among(const std::array<Item, Count>& items) {
        return items[static_cast<std::size_t>(below(static_cast<int>(Count)))];
    }
    double fraction() { return static_cast<double>(generator_()) / 4294967296.0; }

private:
    std::mt19937 generator_;
};

} // namespace randomly
