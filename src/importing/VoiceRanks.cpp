// Weighs the notes of each voice.
#include "importing/VoiceRanks.h"

#include <algorithm>

namespace velorin::importing {

namespace {

Rank rankOf(const Voice& voice, std::size_t index, const std::vector<PlacedNote>& notes) {
    Rank rank{index, 0.0, 0.0, 0};
    double columns = 0.0;
    for (const std::uint32_t i : voice.notes) {
        const double length = notes[i].end - notes[i].start;
        rank.notes += notes[i].loudness / 127.0;
        rank.meanKey += notes[i].key * length;
        columns += length;
    }
    rank.meanKey /= columns;
    return rank;
}

} // namespace

std::vector<Rank> ranked(const std::vector<Voice>& voices, const std::vector<PlacedNote>& notes) {
    constexpr double enough = 0.25; // of the notes of the busiest voice
    std::vector<Rank> ranks;
    double most = 0.0;
    for (std::size_t i = 0; i < voices.size(); ++i) {
        ranks.push_back(rankOf(voices[i], i, notes));
        most = std::max(most, ranks.back().notes);
    }
    Rank* melody = nullptr;
    Rank* bass = nullptr;
    for (Rank& rank : ranks) {
        if (rank.notes < enough * most)
            continue;
        if (melody == nullptr || rank.meanKey > melody->meanKey)
            melody = &rank;
        if (bass == nullptr || rank.meanKey < bass->meanKey)
            bass = &rank;
    }
    if (bass != nullptr)
        bass->outer = 1;
    if (melody != nullptr)
        melody->outer = 2;
    std::stable_sort(ranks.begin(), ranks.end(), [](const Rank& a, const Rank& b) {
        return a.outer != b.outer ? a.outer > b.outer : a.notes > b.notes;
    });
    return ranks;
}

} // namespace velorin::importing
