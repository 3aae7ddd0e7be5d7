// Counts and names.
#include "convert/page/PageWords.h"

#include "convert/page/PageText.h"
#include "model/InstrumentNames.h"
#include "model/NoteTables.h"
#include "model/Score.h"
#include "platform/CountedText.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <vector>

namespace velorin::convert {

namespace {

struct RowFace {
    std::string_view face; ///< on its chip
    std::string_view name; ///< for screen readers
};

constexpr RowArray<RowFace> rowFaces{
    RowFace{"1", "Channel 1"},
    RowFace{"2", "Channel 2"},
    RowFace{"3", "Channel 3"},
    RowFace{"4", "Channel 4"},
    RowFace{"5", "Channel 5"},
    RowFace{"6", "Channel 6"},
    RowFace{"7", "Channel 7"},
    RowFace{"8", "Channel 8"},
    RowFace{"1", "Percussion Channel 1"},
    RowFace{"R", "Rythm Channel 4"},
    RowFace{"2", "Percussion Channel 2"},
    RowFace{"3", "Percussion Channel 3"},
    RowFace{"4", "Percussion Channel 4"},
};

/// "one bar", "twelve bars", "13 bars"
std::string countInWords(int count, std::string_view noun) {
    constexpr std::array<std::string_view, 13> words{"no",   "one",    "two",   "three", "four",
                                                     "five", "six",    "seven", "eight", "nine",
                                                     "ten",  "eleven", "twelve"};
    const auto index = static_cast<std::size_t>(count);
    const std::string digits = std::to_string(count);
    return platform::counted(count, index < words.size() ? words[index] : digits, noun);
}

bool isUsed(const Score& score, int row) {
    for (int column = 0; column < scoreColumns; ++column) {
        if (!isEmpty(score.NoteArray.at(row, column)))
            return true;
    }
    return false;
}

std::string instrumentName(int instrument) {
    const auto index = static_cast<std::size_t>(instrument);
    if (instrument >= 0 && index < instrumentNames.size())
        return std::string(instrumentNames[index]);
    const auto sound = static_cast<std::size_t>(instrument - firstPercussion);
    if (isPercussion(instrument) && sound < percussionNames.size())
        return std::string(percussionNames[sound]);
    return joined({"Instrument ", std::to_string(instrument)});
}

std::vector<int> instrumentsOf(const Score& score, int row) {
    std::vector<int> found;
    for (int column = 0; column < scoreColumns; ++column) {
        const int instrument = score.InstrumentArray.at(row, column);
        if (isStart(score.NoteArray.at(row, column)) &&
            std::find(found.begin(), found.end(), instrument) == found.end())
            found.push_back(instrument);
    }
    return found;
}

} // namespace

std::string sheetDescription(std::string_view title, const SheetLayout& layout,
                             const Score& score) {
    int channels = 0;
    for (int row = 0; row < musicRows; ++row)
        channels += isUsed(score, row) ? 1 : 0;
    const int bars = (layout.columns + columnsOfSheetBar - 1) / columnsOfSheetBar;
    std::string text = joined({"The score of ", title, ": ", countInWords(channels, "channel"),
                               layout.stripLines > 0 ? " and percussion" : "", " over ",
                               countInWords(bars, "bar")});
    if (channels > 0)
        text += joined({", notes from ", NoteName(layout.lowestPitch).value_or(""), " to ",
                        NoteName(layout.highestPitch).value_or("")});
    return text + ".";
}

std::string instrumentsMarkup(const Score& score) {
    std::string out;
    for (int row = 0; row < scoreRows; ++row) {
        if (!isUsed(score, row))
            continue;
        std::string names;
        for (const int instrument : instrumentsOf(score, row))
            names += joined({names.empty() ? "" : ", ", instrumentName(instrument)});
        out += joined({"<li><span class=\"chip c", std::to_string(row), "\" aria-hidden=\"true\">",
                       rowFaces[row].face, "</span><span class=\"quiet\">", rowFaces[row].name,
                       ": </span>", names.empty() ? "silent" : names, "</li>\n"});
    }
    return out;
}

} // namespace velorin::convert
