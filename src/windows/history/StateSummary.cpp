// Reads, draws and compares states of the history.
#include "windows/history/StateSummary.h"

#include "drawing/CellGrid.h"
#include "drawing/ScorePart.h"
#include "history/Change.h"
#include "history/History.h"
#include "model/PitchRange.h"
#include "windows/texts/LengthText.h"

#include <algorithm>

namespace velorin {

namespace {

constexpr std::size_t mostMade = 24; ///< a list's page and some more
constexpr int pictureColumns = 64;   ///< sixteen bars
constexpr int columnsBefore = 48;
constexpr int pictureLines = 40;
constexpr int linesAbove = 1;
constexpr double secondsOfColumn = 12.0; ///< at tempo 1

/// Of the columns that a picture from `firstColumn` on shows.
PitchRange pitchesFrom(const Score& score, int firstColumn) {
    const int end = std::min(firstColumn + pictureColumns, lastShownColumn + 1);
    return pitchRangeOf(score, {0, musicRows, firstColumn, end});
}

/// The column after the last note that the tableau shows; 0 without notes.
int endOfNotes(const Score& score) {
    for (int column = lastShownColumn; column >= 0; --column)
        for (int row = 0; row < musicRows; ++row)
            if (!isEmpty(score.NoteArray.at(row, column)))
                return column + 1;
    return 0;
}

/// The beginning of a bar from which on the picture is full.
int inBarFrom(int column) {
    return std::clamp(column - column % columnsOfBar, 0, lastShownColumn + 1 - pictureColumns);
}

/// The first line of the picture. All notes are in it if they fit, else those around the pitch that
/// differs, else the highest.
int topPitchFor(const PitchRange& notes, int differingPitch, int usualTop) {
    int top = usualTop;
    if (!notes.isEmpty()) {
        const int spare = pictureLines - (notes.lowest - notes.highest + 1);
        top = notes.highest - (spare >= 0 ? spare / 2 : linesAbove);
        const bool isInSight = differingPitch >= top && differingPitch < top + pictureLines;
        if (spare < 0 && differingPitch >= 0 && !isInSight)
            top = differingPitch - pictureLines / 2;
    }
    return std::clamp(top, 0, lastPitch - pictureLines + 1);
}

bool sameScore(const Score& one, const Score& other) {
    return one.Tempo == other.Tempo && changedRows(one, other).empty();
}

} // namespace

StateSummaries::StateSummaries(History& history, Studio& live)
    : history_(history), live_(live), studio_(live.platform) {}

const StateSummary& StateSummaries::of(std::int64_t state, QSize pictureSize) {
    const auto known = std::find_if(made_.begin(), made_.end(), [&](const Made& made) {
        return made.state == state &&
               (made.summary.isLost || made.summary.picture.size() == pictureSize);
    });
    if (known != made_.end()) {
        made_.splice(made_.begin(), made_, known);
    } else {
        made_.push_front({state, make(state, pictureSize)});
        if (made_.size() > mostMade)
            made_.pop_back();
    }
    return made_.front().summary;
}

StateSummary StateSummaries::make(std::int64_t state, QSize pictureSize) {
    StateSummary summary;
    Score& score = studio_.score;
    score.Tempo = Score().Tempo;
    summary.isLost = !history_.read(state, score);
    if (summary.isLost)
        return summary;
    summary.isSame = sameScore(live_.score, score);
    summary.rows = changedRows(live_.score, score);
    summary.RowInstrument = score.RowInstrument;
    // Read without `Setup`: its calls load the Setup Toolbar.
    studio_.setup.values.options = live_.setup.values.options;
    score.CurrentRow = live_.score.CurrentRow;
    summary.figures = figures();
    summary.picture = draw(pictureSize);
    return summary;
}

QString StateSummaries::figures() {
    Score& score = studio_.score;
    score.FindLastColumn(studio_.setup.values.options);
    const int columns = score.LastColumn;
    const double seconds = score.Tempo > 0 ? columns * secondsOfColumn / score.Tempo : 0.0;
    return QStringLiteral("%1 %2  \u00b7  %3  \u00b7  tempo %4")
        .arg(columns)
        .arg(QLatin1String(columns == 1 ? "column" : "columns"), lengthText(seconds))
        .arg(score.Tempo);
}

/// The bar of the first column that differs. If the state has nothing there, its last notes come
/// into the picture.
int StateSummaries::firstColumn(int differing) const {
    const int from = differing >= 0 ? differing : int{live_.view.FirstColumn};
    const int first = inBarFrom(from);
    if (!pitchesFrom(studio_.score, first).isEmpty())
        return first;
    return std::min(first, inBarFrom(endOfNotes(studio_.score) - columnsBefore));
}

QImage StateSummaries::draw(QSize size) {
    const ChangedPlace place = changedPlace(live_.score, studio_.score);
    const int first = firstColumn(place.firstColumn);
    const int differing = isMusicRow(place.row) ? place.pitch : -1;
    const int top = topPitchFor(pitchesFrom(studio_.score, first), differing, live_.view.TopPitch);
    const QImage sheet = drawPart(studio_, {first, pictureColumns, top, pictureLines});
    // The columns fill the width. The last line may be cut off.
    const int height = sheet.height() * size.width() / sheet.width();
    return sheet.scaled(size.width(), height, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
        .copy(0, 0, size.width(), size.height());
}

} // namespace velorin
