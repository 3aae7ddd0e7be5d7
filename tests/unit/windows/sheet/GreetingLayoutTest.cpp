// Where the words of the greeting are.
#include "windows/sheet/GreetingLayout.h"

#include "windows/texts/SheetTexts.h"

#include <gtest/gtest.h>

#include <string_view>

using namespace velorin;

namespace {

/// The widths of the look's font, so the places are those of the look.
int widthOf(const char* text, int sizePx, int weight) {
    const std::string_view words = text;
    if (words == greetingNote)
        return sizePx == 22 ? 266 : 190;
    if (words == greetingLonger)
        return 223;
    if (words == greetingOpen)
        return 72;
    if (words == greetingBeat)
        return weight == 500 ? 174 : 146;
    return 100;
}

/// The main window of 1280 by 800.
constexpr GreetingRoom large{
    {1280, 800}, {29, 25, 1166, 603}, {29, 23, 1166, 36}, {29, 629, 1166, 58}};

GreetingRoom lower(int height, int musicHeight) {
    GreetingRoom room = large;
    room.window.setHeight(height);
    room.music.setHeight(musicHeight);
    return room;
}

} // namespace

TEST(GreetingLayout, TheNoteIsInTheCellOfColumn34AndLine22) {
    const GreetingPlaces places = placeGreeting(large, widthOf);
    EXPECT_EQ(places.ghostNote, QRect(29 + 408, 25 + 264, 48, 12));
    EXPECT_EQ(places.notePlate, QRect(437 + 56, 289 - 19, 286, 62));
    EXPECT_EQ(places.noteWords, QRect(437 + 66, 289 - 14, 266, 32));
    EXPECT_EQ(places.longerWords, QRect(437 + 66, 289 + 17, 223, 20));
    EXPECT_EQ(places.open, QRect(437 + 66, 289 + 56, 124, 30));
    EXPECT_EQ(places.notePx, 22);
}

TEST(GreetingLayout, AtOtherHeightsTheNoteIsInTheMiddleLine) {
    EXPECT_EQ(placeGreeting(lower(700, 503), widthOf).ghostNote.y(), 25 + 20 * 12);
    EXPECT_EQ(placeGreeting(lower(1440, 1243), widthOf).ghostNote.y(), 25 + 51 * 12);
}

TEST(GreetingLayout, ALowTableauHasNoRoomForTheButton) {
    EXPECT_TRUE(placeGreeting(lower(436, 239), widthOf).open.isEmpty());
    EXPECT_FALSE(placeGreeting(lower(437, 240), widthOf).open.isEmpty());
}

TEST(GreetingLayout, TheBeatIsBesideItsWordsOnTheSecondLine) {
    const GreetingPlaces places = placeGreeting(large, widthOf);
    EXPECT_EQ(places.beatWords, QRect(29 + 496, 23, 174, 36));
    EXPECT_EQ(places.ghostBeat, QRect(29 + 468, 35, 12, 12));
}

TEST(GreetingLayout, AStripOfOneLineHasSmallWordsAndNoBeat) {
    GreetingRoom room = large;
    room.strip.setHeight(12);
    const GreetingPlaces places = placeGreeting(room, widthOf);
    EXPECT_EQ(places.beatWords, QRect(29 + 510, 23, 146, 12));
    EXPECT_TRUE(places.ghostBeat.isEmpty());
    EXPECT_EQ(places.beatPx, 10);
    EXPECT_EQ(places.beatWeight, 600);
}

TEST(GreetingLayout, TheChordWordsAreOnAPlateInTheMiddleOfTheLanes) {
    const GreetingPlaces places = placeGreeting(large, widthOf);
    EXPECT_EQ(places.chordPlate, QRect(29 + 504, 629 + 18, 158, 24));
    EXPECT_EQ(places.chordPicture, QRect(29 + 516, 629 + 22, 16, 16));
    EXPECT_EQ(places.chordWords, QRect(29 + 540, 629 + 18, 100, 24));
}

TEST(GreetingLayout, WhatIsNotShownHasNoWords) {
    GreetingRoom room = large;
    room.strip = {};
    room.lanes = {};
    const GreetingPlaces places = placeGreeting(room, widthOf);
    EXPECT_TRUE(places.beatWords.isEmpty());
    EXPECT_TRUE(places.chordPlate.isEmpty());
    EXPECT_FALSE(places.noteWords.isEmpty());
}

TEST(GreetingLayout, ANarrowWindowHasTheWordsOfTheNoteAlone) {
    GreetingRoom room{{639, 480}, {29, 25, 530, 283}, {29, 23, 530, 12}, {29, 309, 530, 58}};
    const GreetingPlaces places = placeGreeting(room, widthOf);
    EXPECT_EQ(places.notePx, 16);
    EXPECT_EQ(places.noteWords, QRect(29 + 170, 25 + 11 * 12 - 10, 190, 32));
    for (const QRect& other :
         {places.longerWords, places.ghostNote, places.open, places.beatWords, places.chordPlate})
        EXPECT_TRUE(other.isEmpty());
    room.window.setWidth(640);
    EXPECT_EQ(placeGreeting(room, widthOf).notePx, 22);
}
