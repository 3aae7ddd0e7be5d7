// A fixed grid of signed 16-bit cells: rows of columns, flat in memory, never resized.
#pragma once

#include <array>
#include <cassert>
#include <cstdint>
#include <optional>

namespace velorin {

/// Row [0, Rows), column [0, Columns). `read` and `write` check the bounds, so callers need not: a
/// write outside is dropped, a read outside returns no value.
template <int Rows, int Columns>
class Grid {
public:
    static constexpr int rows = Rows;
    static constexpr int columns = Columns;

    /// The cell, or no value outside the grid.
    [[nodiscard]] std::optional<std::int16_t> read(int row, int column) const {
        if (!holds(row, column))
            return std::nullopt;
        return cells_[index(row, column)];
    }

    /// Writes the cell. Outside the grid it does nothing and returns false.
    bool write(int row, int column, std::int16_t value) {
        if (!holds(row, column))
            return false;
        cells_[index(row, column)] = value;
        ++changes_;
        return true;
    }

    /// The cell. The caller guarantees that it is inside the grid.
    [[nodiscard]] std::int16_t at(int row, int column) const {
        assert(holds(row, column));
        return cells_[index(row, column)];
    }

    void fill(std::int16_t value) {
        cells_.fill(value);
        ++changes_;
    }

    /// Grows with every write, which lets callers detect changes without comparing cells. Two grids
    /// with the same number may differ.
    [[nodiscard]] std::uint64_t changes() const { return changes_; }

    [[nodiscard]] static constexpr bool holds(int row, int column) {
        return row >= 0 && row < Rows && column >= 0 && column < Columns;
    }

    friend bool operator==(const Grid& one, const Grid& other) {
        return one.cells_ == other.cells_;
    }

private:
    static constexpr std::size_t index(int row, int column) {
        return static_cast<std::size_t>(row) * Columns + static_cast<std::size_t>(column);
    }

    std::array<std::int16_t, static_cast<std::size_t>(Rows) * Columns> cells_{};
    std::uint64_t changes_ = 0;
};

} // namespace velorin
