// The lanes of chord marks under the music tableau.
#include "tableaux/PolyTableau.h"

#include "controls/ControlTable.h"
#include "platform/Text.h"
#include "score/Studio.h"
#include "tableaux/CellGrid.h"
#include "tableaux/MusicTableau.h"
#include "tableaux/Picmain.h"

#include <array>
#include <cmath>
#include <limits>
#include <optional>

namespace velorin {

namespace {

constexpr Colour gridColour = rgb(224, 224, 224);
constexpr Colour white = rgb(255, 255, 255);

/// A lane and its block. The bands are not all 7 high: lane 3 takes the lines 14 to 21.
struct Lane {
    int top;
    int bottom;
    int bandEnd; ///< a y below this, and not in a lane before, hits the lane
    Colour colour;
};

constexpr std::array<Lane, musicRows> lanes{{
    {1, 6, 7, rgb(255, 0, 0)},
    {8, 13, 14, rgb(0, 0, 255)},
    {15, 20, 22, rgb(0, 255, 0)},
    {22, 27, 29, rgb(255, 0, 255)},
    {29, 34, 36, rgb(0, 255, 255)},
    {36, 41, 43, rgb(255, 128, 0)},
    {43, 48, 50, rgb(255, 255, 0)},
    {50, 55, 57, rgb(192, 192, 255)},
}};

const Lane& laneOf(int number) {
    return lanes[static_cast<std::size_t>(number - 1)];
}

/// The lane [1, 8] that a y hits; 0 for none.
int laneAt(double y) {
    for (int number = 1; number <= musicRows; ++number) {
        if (y < laneOf(number).bandEnd)
            return number;
    }
    return 0;
}

/// x less as many pixels as it takes for its rounded value to be divisible by 12: 30 becomes 24,
/// and 25.4 becomes 24.4. No value if x is too large to be rounded.
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

/// The edge in `colour`, the interior in the fill colour.
void drawBlock(Picture& picture, int lane, double left, Colour colour) {
    const Lane& place = laneOf(lane);
    picture.outlineBox(wholePixel(left + 1), place.top, wholePixel(left + 11), place.bottom,
                       colour);
}

/// The index of `PolyArray` for a snapped x: the column on the screen plus 1, without
/// `FirstColumn`. The mouse is exact only while the view stands at column 0, as it is on
/// `MusicBox`.
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

// Index i of a lane is the score column plus 1, so that its block stands over column i - 1.
void PolyTableau::DrawPolyTableau() {
    const View& view = studio_.view;
    Picture& picture = area_.Pic1->picture;
    picture.Cls();
    drawGrid(picture, view);
    for (int i = view.FirstColumn; i <= view.FirstColumn + view.VisibleColumns; ++i) {
        for (int lane = 1; lane <= musicRows; ++lane) {
            if (studio_.score.PolyArray.read(lane, i) != 1)
                continue;
            picture.fillColor = laneOf(lane).colour;
            drawBlock(picture, lane, (i - 1 - view.FirstColumn) * cellPx, laneOf(lane).colour);
        }
    }
}

// Any button paints: a right press sets the mark that a right drag would wipe.
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
    studio_.score.PolyArray.write(lane, markIndex(snapped), 1);
}

void PolyTableau::wipeMark(double snapped, double y) {
    area_.Pic1->picture.fillColor = white;
    const int lane = laneAt(y);
    if (lane == 0)
        return;
    drawBlock(area_.Pic1->picture, lane, snapped, white);
    studio_.score.PolyArray.write(lane, markIndex(snapped), 0);
}

// What is kept is the difference, not the place: most moves act and some are dropped, and a pointer
// at rest drops out.
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

// The rings of the new marks show on `MusicBox`; the strip itself stays as it was painted.
void PolyTableau::Pic1_MouseUp(int /*button*/, int /*shift*/, double /*x*/, double /*y*/) {
    music_.DrawNoteArray();
}

} // namespace velorin
