// The polyphonics tableau: the lanes of chord marks below the music tableau.
#include "windows/main/PolyTableau.h"

#include "drawing/CellGrid.h"
#include "drawing/ChordLanes.h"
#include "platform/Text.h"
#include "studio/Studio.h"
#include "windows/main/MusicTableau.h"
#include "windows/main/Picmain.h"
#include "windows/texts/ControlTable.h"

#include <cmath>
#include <limits>
#include <optional>

namespace velorin {

namespace {

constexpr Colour gridColour = rgb(224, 224, 224);

/// Steps down from x in whole pixels until its rounded value is divisible by 12: 30 becomes 24, and
/// 25.4 becomes 24.4. No value if x is too large to be rounded.
std::optional<double> snapDown(double x) {
    if (!(std::abs(x) < std::numeric_limits<std::int32_t>::max() - cellPx))
        return std::nullopt;
    while (std::fmod(platform::roundHalfEven(x), cellPx) != 0.0)
        x -= 1.0;
    return x;
}

int wholePixel(double place) {
    return static_cast<int>(platform::roundHalfEven(place));
}

/// Draws the edge in `colour` and the interior in the fill colour.
void drawBlock(Picture& picture, int lane, double left, Colour colour) {
    const Lane& place = laneOf(lane);
    picture.outlineBox(wholePixel(left + 1), place.top, wholePixel(left + 11), place.bottom,
                       colour);
}

/// The index of `PolyArray` for a snapped x.
///
/// Rule: it is the column on the screen plus 1, without `FirstColumn`. So in a scrolled view a mark
/// is stored elsewhere, and the next redraw does not show it. Held by tableaux/polyphonics.
int markIndex(double snapped) {
    return static_cast<int>(std::floor(snapped / cellPx)) + 1;
}

void drawGrid(Picture& picture, const View& view) {
    const int width = picture.ScaleWidth();
    const int height = picture.ScaleHeight();
    for (int y = 0; y <= height; y += 7)
        picture.horizontalLine(0, width - 1, y, gridColour);
    for (int x = 0; x < width; x += cellPx)
        picture.verticalLine(x, 0, height, gridColour);
    drawBarLines(picture, view.FirstColumn);
}

} // namespace

// Index i of a lane is the score column plus 1, so its block is over column i - 1.
void PolyTableau::DrawPolyTableau() {
    const View& view = studio_.view;
    Picture& picture = area_.Pic1->picture;
    picture.Cls();
    drawGrid(picture, view);
    changesShown_ = studio_.score.PolyArray.changes();
    for (int i = view.FirstColumn; i <= view.FirstColumn + view.VisibleColumns; ++i) {
        for (int lane = 1; lane <= musicRows; ++lane) {
            if (studio_.score.PolyArray.read(lane, i) != 1)
                continue;
            picture.fillColor = laneOf(lane).colour;
            drawBlock(picture, lane, (i - 1 - view.FirstColumn) * cellPx, laneOf(lane).colour);
        }
    }
}

void PolyTableau::drawIfStale() {
    if (changesShown_ != studio_.score.PolyArray.changes())
        DrawPolyTableau();
}

/// The caller has painted what it stores. In a scrolled view the two differ, and the lanes keep
/// what was painted, so this counts as shown.
void PolyTableau::store(int lane, double snapped, std::int16_t mark) {
    PolyGrid& marks = studio_.score.PolyArray;
    const bool wasFresh = changesShown_ == marks.changes();
    marks.write(lane, markIndex(snapped), mark);
    if (wasFresh)
        changesShown_ = marks.changes();
}

// Rule: a press of any button sets a mark; a right drag then clears it. Held by
// tableaux/polyphonics.
void PolyTableau::Pic1_MouseDown(int /*button*/, int /*shift*/, double x, double y) {
    if (const auto snapped = snapDown(x))
        paintMark(*snapped, y);
}

void PolyTableau::paintMark(double snapped, double y) {
    const int lane = laneAt(y);
    if (lane == 0)
        return;
    area_.Pic1->picture.fillColor = laneOf(lane).colour;
    drawBlock(area_.Pic1->picture, lane, snapped, laneOf(lane).colour);
    store(lane, snapped, 1);
}

void PolyTableau::wipeMark(double snapped, double y) {
    area_.Pic1->picture.fillColor = white;
    const int lane = laneAt(y);
    if (lane == 0)
        return;
    drawBlock(area_.Pic1->picture, lane, snapped, white);
    store(lane, snapped, 0);
}

// Rule: `PolyDrag` keeps the difference to the value before, not the place. A difference of 1 or
// less drops the move, so some moves of a drag do nothing. Held by tableaux/polyphonics.
void PolyTableau::Pic1_MouseMove(int button, int /*shift*/, double x, double y) {
    if (const auto lane = platform::toInt16(y / 8.0))
        area_.Pic1->setToolTip(QString::fromLatin1(laneTip).arg(*lane + 1));
    double& difference = studio_.drag.PolyDrag;
    difference = std::abs(x - difference);
    if (difference <= 1.0)
        return;
    const auto snapped = snapDown(x);
    if (!snapped)
        return;
    if (button == rightButton)
        wipeMark(*snapped, y);
    else if (button == leftButton)
        paintMark(*snapped, y);
}

// Shows the rings of the new marks on `MusicBox`. The lanes stay as they were painted.
void PolyTableau::Pic1_MouseUp(int /*button*/, int /*shift*/, double /*x*/, double /*y*/) {
    music_.DrawNoteArray();
}

} // namespace velorin
