// Looks for the three upper notes above each note.
#include "importing/ChordMarks.h"

#include <algorithm>
#include <array>
#include <map>
#include <span>
#include <tuple>

namespace velorin::importing {

namespace {

constexpr std::array chordSteps{3, 7, 12};

// The notes of a part that begin in one column, the lowest first.
using Group = std::span<const std::uint32_t>;

void markGroup(std::vector<PlacedNote>& notes, Group group) {
    for (const std::uint32_t root : group) {
        if (notes[root].fate != Fate::waiting)
            continue;
        std::vector<std::uint32_t> uppers;
        for (const int step : chordSteps) {
            const auto upper = std::find_if(group.begin(), group.end(), [&](std::uint32_t i) {
                return notes[i].key == notes[root].key + step && notes[i].fate == Fate::waiting &&
                       !notes[i].hasMark && notes[i].end == notes[root].end &&
                       notes[i].instrument == notes[root].instrument;
            });
            if (upper != group.end())
                uppers.push_back(*upper);
        }
        if (uppers.size() < chordSteps.size())
            continue;
        notes[root].hasMark = true;
        for (const std::uint32_t upper : uppers) {
            notes[upper].fate = Fate::inMark;
            notes[upper].into = root;
        }
    }
}

} // namespace

void markChords(std::vector<PlacedNote>& notes) {
    std::vector<std::uint32_t> order;
    for (std::uint32_t i = 0; i < notes.size(); ++i) {
        if (!notes[i].isDrum() && notes[i].fate == Fate::waiting)
            order.push_back(i);
    }
    std::sort(order.begin(), order.end(), [&](std::uint32_t a, std::uint32_t b) {
        return std::tuple(notes[a].start, notes[a].part, notes[a].key, a) <
               std::tuple(notes[b].start, notes[b].part, notes[b].key, b);
    });
    for (auto first = order.begin(); first != order.end();) {
        const PlacedNote& head = notes[*first];
        const auto end = std::find_if(first, order.end(), [&](std::uint32_t i) {
            return notes[i].start != head.start || notes[i].part != head.part;
        });
        if (end - first > static_cast<std::ptrdiff_t>(chordSteps.size()))
            markGroup(notes, {first, end});
        first = end;
    }
}

} // namespace velorin::importing
