// Rounds times to columns, and keeps fast notes of a part apart.
#include "importing/Placing.h"

#include "importing/Drums.h"
#include "model/Cell.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <unordered_map>
#include <utility>

namespace velorin::importing {

namespace {

constexpr double oneMomentUs = 15e3;

PlacedNote placed(const Note& note, const TimeGrid& grid) {
    PlacedNote on;
    on.start = nearestColumn(grid.columnAt(note.us));
    on.wantedEnd = std::max(nearestColumn(grid.columnAt(note.endUs)), on.start + 1);
    on.ringEnd = std::max(nearestColumn(grid.columnAt(note.ringUs)), on.wantedEnd);
    on.end = on.wantedEnd;
    on.part = note.part();
    on.instrument = note.program;
    on.key = note.key;
    on.loudness = note.loudness;
    if (note.channel == percussionChannel) {
        const int drum = drumOf(note.key);
        on.instrument = static_cast<std::int16_t>(drum);
        if (drum == 0)
            on.fate = Fate::unknownDrum;
    }
    return on;
}

/// The notes of a part that begin at one moment: a range of a list.
struct Moment {
    double us = 0.0;
    double endUs = 0.0; ///< the first of them is released
    int column = 0;
    std::size_t first = 0;
    std::size_t end = 0;
};

/// `indices` are the notes of one part in the order of their starts.
std::vector<Moment> momentsOf(const std::vector<Note>& notes, const std::vector<PlacedNote>& on,
                              const std::vector<std::uint32_t>& indices) {
    std::vector<Moment> moments;
    for (std::size_t i = 0; i < indices.size(); ++i) {
        const Note& note = notes[indices[i]];
        if (moments.empty() || note.us - moments.back().us > oneMomentUs)
            moments.push_back({note.us, note.endUs, on[indices[i]].start, i, i});
        moments.back().endUs = std::min(moments.back().endUs, note.endUs);
        moments.back().end = i + 1;
    }
    return moments;
}

// A grace note and its main note must not sound as a chord: if one ends before the other begins,
// they get columns of their own.
void separate(std::vector<Moment>& moments) {
    for (std::size_t i = 1; i < moments.size(); ++i) {
        Moment& one = moments[i - 1];
        Moment& other = moments[i];
        if (one.column < other.column || one.endUs > other.us + oneMomentUs)
            continue;
        const int before = i < 2 ? -1 : moments[i - 2].column;
        if (one.column - 1 > before)
            --one.column;
        else if (i + 1 == moments.size() || moments[i + 1].column > other.column + 1)
            ++other.column;
    }
}

void separateParts(const std::vector<Note>& notes, std::vector<PlacedNote>& on) {
    std::map<int, std::vector<std::uint32_t>> parts;
    for (std::uint32_t i = 0; i < notes.size(); ++i) {
        if (!on[i].isDrum())
            parts[on[i].part].push_back(i);
    }
    for (const auto& [part, indices] : parts) {
        auto moments = momentsOf(notes, on, indices);
        separate(moments);
        for (const Moment& moment : moments) {
            for (std::size_t i = moment.first; i < moment.end; ++i)
                on[indices[i]].start = moment.column;
        }
    }
}

void merge(std::vector<PlacedNote>& on, std::uint32_t note, std::uint32_t into) {
    PlacedNote& kept = on[into];
    on[note].into = into;
    on[note].fate = Fate::merged;
    kept.wantedEnd = std::max(kept.wantedEnd, on[note].wantedEnd);
    kept.ringEnd = std::max(kept.ringEnd, on[note].ringEnd);
    kept.end = kept.wantedEnd;
    kept.loudness = std::max(kept.loudness, on[note].loudness);
}

/// What is heard of a note, whatever its part.
std::uint64_t soundOf(const PlacedNote& note) {
    const std::uint64_t pitch = note.isDrum() ? 0U : note.key;
    return static_cast<std::uint64_t>(note.start) << 16U |
           static_cast<std::uint64_t>(note.instrument) << 7U | pitch;
}

// Two equal notes of a part cannot begin in one column. At one moment they sound like one; a quick
// repetition is lost.
void mergeEqual(const std::vector<Note>& notes, std::vector<PlacedNote>& on) {
    std::map<std::pair<int, std::uint64_t>, std::uint32_t> first;
    for (std::uint32_t i = 0; i < on.size(); ++i) {
        if (on[i].fate != Fate::waiting)
            continue;
        const auto [equal, isNew] = first.emplace(std::pair(on[i].part, soundOf(on[i])), i);
        if (isNew)
            continue;
        if (notes[i].us - notes[equal->second].us > oneMomentUs)
            on[i].fate = Fate::tooFast;
        else
            merge(on, i, equal->second);
    }
}

} // namespace

bool PlacedNote::isDrum() const {
    return part % 16 == percussionChannel;
}

void mergeParts(std::vector<PlacedNote>& notes) {
    std::unordered_map<std::uint64_t, std::uint32_t> first;
    for (std::uint32_t i = 0; i < notes.size(); ++i) {
        if (notes[i].fate != Fate::waiting)
            continue;
        const auto [equal, isNew] = first.emplace(soundOf(notes[i]), i);
        if (!isNew)
            merge(notes, i, equal->second);
    }
}

std::vector<PlacedNote> placedNotes(const Music& music, const TimeGrid& grid) {
    std::vector<PlacedNote> on;
    on.reserve(music.notes.size());
    for (const Note& note : music.notes)
        on.push_back(placed(note, grid));
    separateParts(music.notes, on);
    for (std::size_t i = 0; i < on.size(); ++i) {
        PlacedNote& note = on[i];
        note.wantedEnd = std::max(note.wantedEnd, note.start + 1);
        note.ringEnd = std::max(note.ringEnd, note.wantedEnd);
        note.end = note.wantedEnd;
        const Stretch& stretch = grid.stretches()[grid.stretchOf(note.start)];
        const double columns = std::abs(note.start - grid.columnAt(music.notes[i].us));
        note.moveColumns = static_cast<float>(columns);
        note.moveMs = static_cast<float>(columns * usOfTempoOne / stretch.exactTempo / 1e3);
    }
    mergeEqual(music.notes, on);
    return on;
}

} // namespace velorin::importing
