// The feet of the tails.
#include "windows/sheet/TailFeet.h"

#include "drawing/CellGrid.h"
#include "drawing/NoteDrawing.h"
#include "studio/Studio.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace velorin {

namespace {

constexpr Colour band = rgb(224, 224, 224);
constexpr double leastContrast = 3.0;
constexpr int footTop = 8; ///< in its cell
constexpr std::uint8_t noFoot = 0;
constexpr std::uint8_t aHead = 1;
constexpr int firstColour = 2;

/// The share of a colour's light that is left in its foot. A pale row's foot is weaker than the
/// active row's.
constexpr double activeShade = 0.4;
constexpr double paleShade = 0.5;

unsigned part(Colour colour, int shift) {
    return colour >> shift & 0xffU;
}

double linear(unsigned value) {
    const double share = value / 255.0;
    return share <= 0.04045 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
}

double luminance(Colour colour) {
    return 0.2126 * linear(part(colour, 0)) + 0.7152 * linear(part(colour, 8)) +
           0.0722 * linear(part(colour, 16));
}

Colour shaded(Colour colour, double share) {
    const auto shade = [colour, share](int shift) {
        return static_cast<unsigned>(std::lround(part(colour, shift) * share));
    };
    return rgb(shade(0), shade(8), shade(16));
}

std::uint8_t colourNumber(const DrawnNote& note) {
    return static_cast<std::uint8_t>(firstColour + 2 * note.row + (note.isActive ? 1 : 0));
}

} // namespace

double contrast(Colour one, Colour other) {
    const double first = luminance(one);
    const double second = luminance(other);
    return (std::max(first, second) + 0.05) / (std::min(first, second) + 0.05);
}

std::optional<Colour> footColour(Colour tail, bool isActive) {
    if (std::min(contrast(tail, white), contrast(tail, band)) >= leastContrast)
        return std::nullopt;
    return shaded(tail, isActive ? activeShade : paleShade);
}

// Notes of several rows can share cells. The one that is drawn last has the foot, and no foot
// crosses a head.
void TailFeet::update(Studio& studio, int lines) {
    const View& view = studio.view;
    const int columns = std::max(0, view.LastVisibleColumn - view.FirstColumn + 1);
    cells_.assign(static_cast<std::size_t>(columns) * static_cast<std::size_t>(lines), noFoot);
    feet_.clear();
    std::array<Colour, firstColour + 2 * musicRows> colours{};
    visitNotes(studio, [&](const DrawnNote& note) {
        const int line = note.pitch - view.TopPitch;
        if (line < 0 || line >= lines)
            return;
        std::uint8_t* const first =
            &cells_[static_cast<std::size_t>(line) * static_cast<std::size_t>(columns)];
        first[note.column - view.FirstColumn] = aHead;
        const std::optional<Colour> colour = footColour(note.colour, note.isActive);
        const std::uint8_t number = colour ? colourNumber(note) : noFoot;
        colours[number] = colour.value_or(0);
        for (int column = note.column + 1; column <= note.last; ++column) {
            std::uint8_t& cell = first[column - view.FirstColumn];
            if (cell != aHead)
                cell = number;
        }
    });
    std::size_t index = 0;
    for (int line = 0; line < lines; ++line) {
        for (int column = 0; column < columns; ++column) {
            const std::uint8_t number = cells_[index++];
            if (number < firstColour)
                continue;
            TailFoot* const before = feet_.empty() ? nullptr : &feet_.back();
            const int x = column * cellPx;
            const int y = line * cellPx + footTop;
            const Colour colour = colours[number];
            if (before != nullptr && before->y == y && before->x + before->widthPx == x &&
                before->colour == colour)
                before->widthPx += cellPx;
            else
                feet_.push_back({x, y, cellPx, colour});
        }
    }
}

} // namespace velorin
