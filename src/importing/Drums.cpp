// The drum table, and the rows column by column.
#include "importing/Drums.h"

#include "model/Cell.h"

#include <algorithm>
#include <array>

namespace velorin::importing {

namespace {

constexpr int lowestDrum = 35;
constexpr int highestDrum = 81;
constexpr int drumRows = scoreRows - firstPercussionRow;

/// A key of newer drum sets, and the percussion sound that is most like it.
struct Stand {
    int key;
    int drum;
};

constexpr std::array stands{
    Stand{25, 38}, // snare roll: acoustic snare
    Stand{26, 39}, // finger snap: hand clap
    Stand{27, 76}, // high q: high wood block
    Stand{28, 39}, // slap: hand clap
    Stand{29, 73}, // scratch push: short guiro
    Stand{30, 74}, // scratch pull: long guiro
    Stand{31, 37}, // sticks: side stick
    Stand{32, 75}, // square click: claves
    Stand{33, 76}, // metronome click: high wood block
    Stand{34, 53}, // metronome bell: ride bell
    Stand{82, 70}, // shaker: maracas
    Stand{83, 54}, // jingle bell: tambourine
    Stand{84, 81}, // bell tree: open triangle
    Stand{85, 75}, // castanets: claves
    Stand{86, 64}, // mute surdo: low conga
    Stand{87, 41}, // open surdo: low floor tom
};

/// The kinds in the order in which they are kept.
enum Kind { bassDrum, snare, hiHat, cymbal, tom, other };

Kind kindOf(int key) {
    switch (key) {
    case 35:
    case 36:
        return bassDrum;
    case 37:
    case 38:
    case 39:
    case 40:
        return snare;
    case 42:
    case 44:
    case 46:
        return hiHat;
    case 49:
    case 51:
    case 52:
    case 53:
    case 55:
    case 57:
    case 59:
        return cymbal;
    case 41:
    case 43:
    case 45:
    case 47:
    case 48:
    case 50:
        return tom;
    default:
        return other;
    }
}

Kind kindOf(const PlacedNote& note) {
    return kindOf(percussionKey(note.instrument));
}

using Column = std::vector<std::uint32_t>;

class Placing {
public:
    Placing(std::vector<PlacedNote>& notes, DrumRows rows) : notes_(notes), rows_(rows) {}

    /// The drums of a column; columns come in order.
    void take(Column column) {
        std::stable_sort(column.begin(), column.end(), [&](std::uint32_t a, std::uint32_t b) {
            return kindOf(notes_[a]) < kindOf(notes_[b]);
        });
        mergeSurplus(column);
        std::array<PlacedNote*, drumRows> taken{};
        Column others;
        for (const std::uint32_t index : column) {
            const std::size_t home = homeOf(notes_[index]);
            if (taken[home] == nullptr)
                taken[home] = &notes_[index];
            else
                others.push_back(index);
        }
        for (const std::uint32_t index : others)
            *std::find(taken.begin(), taken.end(), nullptr) = &notes_[index];
        for (std::size_t row = 0; row < drumRows; ++row) {
            if (taken[row] != nullptr)
                put(*taken[row], row);
        }
    }

private:
    // Leaves at most five drums in the column.
    void mergeSurplus(Column& column) {
        for (std::size_t i = 1; i < column.size() && column.size() > drumRows; ++i) {
            const auto equal = std::find_if(column.begin(), column.end(), [&](std::uint32_t first) {
                return notes_[first].instrument == notes_[column[i]].instrument;
            });
            if (*equal == column[i])
                continue;
            notes_[column[i]].fate = Fate::merged;
            notes_[column[i]].into = *equal;
            column.erase(column.begin() + static_cast<std::ptrdiff_t>(i--));
        }
        while (column.size() > drumRows) {
            notes_[column.back()].fate = Fate::crowdedDrum;
            column.pop_back();
        }
    }

    // With rows by part, the first part gets the first row, and so on; parts after the fifth share
    // the last.
    std::size_t homeOf(const PlacedNote& note) {
        if (rows_ == DrumRows::byKind)
            return static_cast<std::size_t>(std::min<int>(kindOf(note), tom));
        auto part = std::find(parts_.begin(), parts_.end(), note.part);
        if (part == parts_.end())
            part = parts_.insert(part, note.part);
        return std::min<std::size_t>(static_cast<std::size_t>(part - parts_.begin()), drumRows - 1);
    }

    void put(PlacedNote& note, std::size_t row) {
        note.row = static_cast<std::int16_t>(firstPercussionRow + static_cast<int>(row));
        note.fate = Fate::placed;
        if (last_[row] != nullptr)
            last_[row]->end = std::min(last_[row]->end, note.start);
        last_[row] = &note;
    }

    std::vector<PlacedNote>& notes_;
    DrumRows rows_;
    std::vector<int> parts_;
    std::array<PlacedNote*, drumRows> last_{}; ///< the last drum of each row
};

} // namespace

int drumOf(int key) {
    if (key < lowestDrum || key > highestDrum) {
        const auto* const stand = std::find_if(stands.begin(), stands.end(),
                                               [key](const Stand& s) { return s.key == key; });
        if (stand == stands.end())
            return 0;
        key = stand->drum;
    }
    return firstPercussion + key - lowestDrum;
}

void placeDrums(std::vector<PlacedNote>& notes, DrumRows rows) {
    std::vector<std::uint32_t> drums;
    for (std::uint32_t i = 0; i < notes.size(); ++i) {
        if (notes[i].isDrum() && notes[i].fate == Fate::waiting)
            drums.push_back(i);
    }
    std::stable_sort(drums.begin(), drums.end(), [&](std::uint32_t a, std::uint32_t b) {
        return notes[a].start < notes[b].start;
    });
    Placing placing(notes, rows);
    for (auto first = drums.begin(); first != drums.end();) {
        const int start = notes[*first].start;
        const auto end = std::find_if(first, drums.end(),
                                      [&](std::uint32_t i) { return notes[i].start != start; });
        placing.take({first, end});
        first = end;
    }
}

} // namespace velorin::importing
