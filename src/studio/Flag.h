// The flags of the program: 16-bit booleans.
#pragma once

#include <cstdint>

namespace velorin {

/// -1 is true and 0 is false. Transcripts read and set the number, which may then be any other.
struct Flag {
    std::int16_t number = 0;

    [[nodiscard]] constexpr bool isSet() const { return number != 0; }
    /// For the few tests that hold for -1 alone and not for another number.
    [[nodiscard]] constexpr bool isMinusOne() const { return number == -1; }

    [[nodiscard]] friend constexpr bool operator==(Flag, Flag) = default;
    [[nodiscard]] friend constexpr bool operator==(Flag flag, int number) {
        return flag.number == number;
    }
};

constexpr Flag flagSet{-1};
constexpr Flag flagClear{0};

[[nodiscard]] constexpr Flag toFlag(bool set) {
    return set ? flagSet : flagClear;
}

} // namespace velorin
