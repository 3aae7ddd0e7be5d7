// Where the words of the greeting are.
#pragma once

#include <QRect>

#include <functional>

namespace velorin {

/// The room for the greeting. The tableaux are in pixels of the work area; a tableau that is not
/// shown is empty.
struct GreetingRoom {
    QSize window;
    QRect music;
    QRect strip;
    QRect lanes;
};

/// The width of a text of the greeting in the look's font, in pixels.
using TextWidth = std::function<int(const char* text, int sizePx, int weight)>;

/// All rectangles are in pixels of the work area. One that is empty is not painted.
struct GreetingPlaces {
    QRect notePlate;
    QRect noteWords;
    QRect longerWords;
    QRect ghostNote; ///< four columns of one line
    QRect open;      ///< the button "Open a song"
    QRect beatWords;
    QRect ghostBeat; ///< one cell
    QRect chordPlate;
    QRect chordPicture;
    QRect chordWords;
    int notePx = 22; ///< the sizes of the words
    int beatPx = 12;
    int beatWeight = 500;
};

/// Places what the room has space for. The cells are those of the first column and the top line.
[[nodiscard]] GreetingPlaces placeGreeting(const GreetingRoom& room, const TextWidth& widthOf);

} // namespace velorin
