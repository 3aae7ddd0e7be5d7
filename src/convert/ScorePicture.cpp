// Draws a whole song.
#include "convert/ScorePicture.h"

#include "drawing/CellGrid.h"
#include "drawing/ScorePart.h"
#include "model/PitchRange.h"
#include "studio/Setup.h"
#include "studio/Studio.h"

#include <QBuffer>

#include <algorithm>
#include <cstdint>

namespace velorin {

namespace {

constexpr int marginLines = 2;
constexpr std::int64_t mostPixels = 150'000'000; ///< 600 MB in memory

constexpr int fewestThumbnailLines = 12;

ScorePart wholeSong(Studio& studio) {
    studio.score.FindLastColumn(studio.setup.options());
    const int last = std::clamp<int>(studio.score.LastColumn, 0, lastShownColumn);
    PitchRange pitches = pitchRangeOf(studio.score, {0, musicRows, 0, scoreColumns});
    if (pitches.isEmpty())
        pitches = {60, 67}; // the octave below the middle of the tableau
    const int top = std::max(pitches.highest - marginLines, 0);
    const int bottom = std::min(pitches.lowest + marginLines, lastPitch);
    return {0, last + 1, top, bottom - top + 1};
}

/// The beginning of the song. A song is many times wider than high, so as a whole it would be a
/// thin line.
ScorePart thumbnailOf(const ScorePart& song) {
    ScorePart part = song;
    part.lines = std::max(song.lines, fewestThumbnailLines);
    part.topPitch = std::min(song.topPitch, lastPitch + 1 - part.lines);
    part.columns = std::min(part.lines * 4 / 3, lastShownColumn + 1);
    return part;
}

/// An empty image is no thumbnail, so a side has a pixel at least.
QImage scaledInto(const QImage& picture, int sizePx) {
    const QSize fitting = picture.size().scaled(sizePx, sizePx, Qt::KeepAspectRatio);
    if (fitting.width() >= picture.width())
        return picture;
    return picture.scaled(fitting.expandedTo({1, 1}), Qt::IgnoreAspectRatio,
                          Qt::SmoothTransformation);
}

int scaleThatFits(const ScorePart& part, int scale) {
    const std::int64_t pixels = std::int64_t{part.columns} * part.lines * cellPx * cellPx;
    int fits = std::max(scale, 1);
    while (fits > 1 && pixels * fits * fits > mostPixels)
        --fits;
    return fits;
}

} // namespace

} // namespace velorin

void velorinPngOf(velorin::Studio& studio, int scale, int thumbnailPx, std::string& png) {
    using namespace velorin;
    const ScorePart song = wholeSong(studio);
    const QImage picture = thumbnailPx > 0
                               ? scaledInto(drawPart(studio, thumbnailOf(song)), thumbnailPx)
                               : drawPart(studio, song, scaleThatFits(song, scale));
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    picture.save(&buffer, "PNG");
    png = bytes.toStdString();
}
