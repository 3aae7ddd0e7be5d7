// An array that is indexed by an int.
#pragma once

#include <algorithm>
#include <cassert>

namespace platform {

/// Like `std::array`, but the index is an int, [0, count). An index outside asserts.
template <class T, int count>
struct CheckedArray { // NOLINT(bugprone-reserved-identifier): of the loop that copies it
    T entries[count]{};

    [[nodiscard]] constexpr T& operator[](int index) {
        assert(index >= 0 && index < count);
        return entries[index];
    }
    [[nodiscard]] constexpr const T& operator[](int index) const {
        assert(index >= 0 && index < count);
        return entries[index];
    }

    [[nodiscard]] static constexpr int size() { return count; }
    constexpr void fill(const T& value) { std::fill(begin(), end(), value); }

    [[nodiscard]] constexpr T* begin() { return entries; }
    [[nodiscard]] constexpr T* end() { return entries + count; }
    [[nodiscard]] constexpr const T* begin() const { return entries; }
    [[nodiscard]] constexpr const T* end() const { return entries + count; }

    [[nodiscard]] friend bool operator==(const CheckedArray& one, const CheckedArray& other) {
        return std::equal(one.begin(), one.end(), other.begin());
    }
};

} // namespace platform
