// Where the words of the greeting are.
#include "windows/sheet/GreetingLayout.h"

#include "drawing/CellGrid.h"
#include "windows/texts/SheetTexts.h"

#include <cmath>

namespace velorin {

namespace {

constexpr int narrowWindowPx = 640; ///< below it only the words about a note are shown
constexpr int lowTableauPx = 240;   ///< below it there is no room for the button
constexpr int drawnHeightPx = 800;  ///< the height of a window for which `drawnLine` was chosen
constexpr int drawnLine = 22;
constexpr int ghostColumns = 4;
constexpr int highStripPx = 24; ///< room for two lines of beats

/// The left edge of the cell nearest to `x`.
int nearestCell(int x) {
    return static_cast<int>(std::lround(static_cast<double>(x) / cellPx)) * cellPx;
}

int lineOf(const GreetingRoom& room) {
    return room.window.height() == drawnHeightPx ? drawnLine : room.music.height() / cellPx / 2;
}

// From the corner (gx, gy) of the ghost note's cell:
//
//                  plate +56, -19
//      pen         | Click here to place a note     +66, -14
//     (o)======    | Hold and pull to the right     +66, +17
//                    [ Open a song ]                +66, +56
void placeNote(GreetingPlaces& places, const GreetingRoom& room, const TextWidth& widthOf) {
    const int gx = room.music.x() + nearestCell(room.music.width() / 2 - 172);
    const int gy = room.music.y() + lineOf(room) * cellPx;
    const int width = widthOf(greetingNote, places.notePx, 500);
    places.notePlate = QRect(gx + 56, gy - 19, width + 20, 62);
    places.noteWords = QRect(gx + 66, gy - 14, width, 32);
    places.longerWords = QRect(gx + 66, gy + 17, widthOf(greetingLonger, 12, 400), 20);
    places.ghostNote = QRect(gx, gy, ghostColumns * cellPx, cellPx);
    if (room.music.height() >= lowTableauPx)
        places.open = QRect(gx + 66, gy + 56, widthOf(greetingOpen, 12, 500) + 52, 30);
}

void placeNoteAlone(GreetingPlaces& places, const GreetingRoom& room, const TextWidth& widthOf) {
    places.notePx = 16;
    const int width = widthOf(greetingNote, places.notePx, 500);
    const int gy = room.music.y() + lineOf(room) * cellPx;
    const int left = room.music.x() + (room.music.width() - width) / 2;
    places.noteWords = QRect(left, gy - 10, width, 32);
    places.notePlate = places.noteWords.adjusted(-10, 0, 10, 0);
}

void placeBeat(GreetingPlaces& places, const GreetingRoom& room, const TextWidth& widthOf) {
    if (room.strip.isEmpty())
        return;
    const bool isHigh = room.strip.height() >= highStripPx;
    places.beatPx = isHigh ? 12 : 10;
    places.beatWeight = isHigh ? 500 : 600;
    const int width = widthOf(greetingBeat, places.beatPx, places.beatWeight);
    const int left = (room.strip.width() - width) / 2;
    places.beatWords = QRect(room.strip.x() + left, room.strip.y(), width, room.strip.height());
    if (isHigh)
        places.ghostBeat =
            QRect(room.strip.x() + nearestCell(left - 24), room.strip.y() + cellPx, cellPx, cellPx);
}

void placeChords(GreetingPlaces& places, const GreetingRoom& room, const TextWidth& widthOf) {
    if (room.lanes.isEmpty())
        return;
    const int words = widthOf(greetingChords, 12, 500);
    const int width = words + 58;
    const int left = room.lanes.x() + (room.lanes.width() - width) / 2;
    const int top = room.lanes.y() + 18;
    places.chordPlate = QRect(left, top, width, 24);
    places.chordPicture = QRect(left + 12, top + 4, 16, 16);
    places.chordWords = QRect(left + 36, top, words, 24);
}

} // namespace

GreetingPlaces placeGreeting(const GreetingRoom& room, const TextWidth& widthOf) {
    GreetingPlaces places;
    if (room.window.width() < narrowWindowPx) {
        placeNoteAlone(places, room, widthOf);
        return places;
    }
    placeNote(places, room, widthOf);
    placeBeat(places, room, widthOf);
    placeChords(places, room, widthOf);
    return places;
}

} // namespace velorin
