// Gives each note to the nearest voice that is free.
#include "importing/PartVoices.h"

#include <algorithm>
#include <cstdlib>
#include <limits>
#include <map>
#include <span>
#include <tuple>

namespace velorin::importing {

namespace {

class Splitting {
public:
    explicit Splitting(std::vector<PlacedNote>& notes) : notes_(notes) {}

    /// The notes of a part that begin in one column, the highest first.
    void take(std::span<const std::uint32_t> chord) {
        std::vector<Match> matches = nearest(chord);
        uncross(chord, matches);
        std::vector<bool> isMatched(chord.size());
        for (const Match& match : matches) {
            isMatched[match.note] = true;
            append(voices_[match.voice], chord[match.note]);
        }
        for (std::size_t i = 0; i < chord.size(); ++i) {
            if (isMatched[i])
                continue;
            voices_.push_back({notes_[chord[i]].part, {}});
            append(voices_.back(), chord[i]);
        }
    }

    std::vector<Voice> finish() { return std::move(voices_); }

private:
    /// A note of the chord, by its index there, and the voice that it goes on in.
    struct Match {
        int distance = 0; ///< 0 if the voice must take the note
        std::size_t note = 0;
        std::size_t voice = 0;
    };

    // The nearest notes and voices first, each once.
    [[nodiscard]] std::vector<Match> nearest(std::span<const std::uint32_t> chord) const {
        std::vector<Match> pairs;
        for (std::size_t v = 0; v < voices_.size(); ++v) {
            for (std::size_t i = 0; i < chord.size(); ++i) {
                if (const int distance = distanceTo(voices_[v], notes_[chord[i]]); distance >= 0)
                    pairs.push_back({distance, i, v});
            }
        }
        std::sort(pairs.begin(), pairs.end(), [](const Match& a, const Match& b) {
            return std::tuple(a.distance, a.voice, a.note) <
                   std::tuple(b.distance, b.voice, b.note);
        });
        std::vector<bool> isTaken(voices_.size());
        std::vector<bool> isMatched(chord.size());
        std::vector<Match> matches;
        for (const Match& pair : pairs) {
            if (isMatched[pair.note] || isTaken[pair.voice])
                continue;
            isMatched[pair.note] = true;
            isTaken[pair.voice] = true;
            matches.push_back(pair);
        }
        return matches;
    }

    // The higher notes go to the higher voices, so that the voices of a chord do not cross. Nothing
    // changes if a voice cannot take its note.
    void uncross(std::span<const std::uint32_t> chord, std::vector<Match>& matches) const {
        std::vector<std::size_t> voices;
        for (const Match& match : matches) {
            if (match.distance == 0)
                return;
            voices.push_back(match.voice);
        }
        const auto lastKey = [this](std::size_t voice) {
            return notes_[voices_[voice].notes.back()].key;
        };
        std::stable_sort(voices.begin(), voices.end(),
                         [&](std::size_t a, std::size_t b) { return lastKey(a) > lastKey(b); });
        std::vector<Match> ordered = matches;
        std::sort(ordered.begin(), ordered.end(),
                  [](const Match& a, const Match& b) { return a.note < b.note; });
        for (std::size_t i = 0; i < ordered.size(); ++i) {
            ordered[i].voice = voices[i];
            if (distanceTo(voices_[voices[i]], notes_[chord[ordered[i].note]]) <= 0)
                return;
        }
        matches = std::move(ordered);
    }

    // How badly a note continues a voice; negative if it cannot. A voice whose last note has the
    // same key must take it: one row cannot end what another sounds on.
    [[nodiscard]] int distanceTo(const Voice& voice, const PlacedNote& note) const {
        constexpr int mostRest = 16; // columns: after a longer rest any voice is as good
        const PlacedNote& last = notes_[voice.notes.back()];
        const int overlap = last.end - note.start;
        if (overlap > 0) {
            if (last.start >= note.start)
                return -1;
            if (last.key == note.key)
                return 0;
            if (overlap > std::max(1, (last.end - last.start) / 3))
                return -1;
        }
        const int rest = std::clamp(-overlap, 0, mostRest);
        return 1 + 2 * std::abs(last.key - note.key) + rest;
    }

    void append(Voice& voice, std::uint32_t note) {
        if (!voice.notes.empty()) {
            PlacedNote& last = notes_[voice.notes.back()];
            last.end = std::min(last.end, notes_[note].start);
        }
        voice.notes.push_back(note);
    }

    std::vector<PlacedNote>& notes_;
    std::vector<Voice> voices_;
};

} // namespace

std::vector<Voice> voicesOf(std::vector<PlacedNote>& notes) {
    std::map<int, std::vector<std::uint32_t>> parts;
    for (std::uint32_t i = 0; i < notes.size(); ++i) {
        if (!notes[i].isDrum() && notes[i].fate == Fate::waiting)
            parts[notes[i].part].push_back(i);
    }
    std::vector<Voice> voices;
    for (auto& [part, indices] : parts) {
        std::stable_sort(indices.begin(), indices.end(), [&](std::uint32_t a, std::uint32_t b) {
            return notes[a].start != notes[b].start ? notes[a].start < notes[b].start
                                                    : notes[a].key > notes[b].key;
        });
        Splitting splitting(notes);
        for (auto first = indices.begin(); first != indices.end();) {
            const auto end = std::find_if(first, indices.end(), [&](std::uint32_t i) {
                return notes[i].start != notes[*first].start;
            });
            splitting.take({first, end});
            first = end;
        }
        for (Voice& voice : splitting.finish())
            voices.push_back(std::move(voice));
    }
    return voices;
}

} // namespace velorin::importing
