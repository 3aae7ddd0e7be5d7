// Fills the template.
#include "convert/page/SongPage.h"

#include "convert/page/PageFiles.h"
#include "convert/page/PageText.h"
#include "convert/page/PageWords.h"
#include "convert/page/SheetDrawing.h"
#include "convert/page/SheetLayout.h"
#include "model/Score.h"

#include <algorithm>
#include <cassert>
#include <cmath>
#include <cstdio>
#include <vector>

namespace velorin::convert {

namespace {

/// In a template, the place of the sound.
constexpr std::string_view soundPlace = "{{sound}}";

std::string decimals(double number) {
    char text[40];
    std::snprintf(text, sizeof text, "%.9f", number);
    return text;
}

} // namespace

std::string columnTimesJson(const std::vector<double>& columnTimes) {
    assert(columnTimes.size() >= 2);
    const double step = columnTimes.front();
    std::string shifts;
    double shift = 0.0;
    for (std::size_t column = 0; column < columnTimes.size(); ++column) {
        const double later = columnTimes[column] - static_cast<double>(column + 1) * step;
        if (std::abs(later - shift) <= columnTimeTolerance)
            continue;
        const auto us = std::llround(later * 1e6);
        shift = static_cast<double>(us) / 1e6;
        shifts +=
            (shifts.empty() ? "[" : ",[") + std::to_string(column) + "," + std::to_string(us) + "]";
    }
    return joined({"{\"columns\":", std::to_string(columnTimes.size() - 1),
                   ",\"step\":", decimals(step), ",\"shifts\":[", shifts, "]}"});
}

SongPageParts makeSongPage(const SongPage& page, const Score& score) {
    const SheetLayout layout = layoutOf(score);
    std::vector<double> times = page.columnTimes;
    times.resize(static_cast<std::size_t>(layout.columns) + 1, times.back());
    const std::string title = escapedText(page.title);
    const std::string length = clockText(times.back());
    const std::string columns =
        std::to_string(layout.columns) + (layout.columns == 1 ? " column" : " columns");
    const std::string tempo = std::to_string(score.Tempo);
    const std::string description = escapedText(sheetDescription(page.title, layout, score));
    const std::string names = namesDrawing(layout);
    const std::string tiles = tilesDrawing(layout, score);
    const std::string instruments = instrumentsMarkup(score);
    const std::string scoreText = percentEncoded(page.scoreText);
    const std::string timesJson = columnTimesJson(times);
    const TemplateValue values[] = {
        {"styleHash", pageStyleHash},
        {"scriptHash", pageScriptHash},
        {"style", pageStyle},
        {"script", pageScript},
        {"title", title},
        {"length", length},
        {"columns", columns},
        {"tempo", tempo},
        {"description", description},
        {"names", names},
        {"tiles", tiles},
        {"instruments", instruments},
        {"score", scoreText},
        {"times", timesJson},
    };
    const std::size_t sound = pageTemplate.find(soundPlace);
    assert(sound != std::string_view::npos);
    return {filled(pageTemplate.substr(0, sound), values),
            filled(pageTemplate.substr(sound + soundPlace.size()), values)};
}

} // namespace velorin::convert
