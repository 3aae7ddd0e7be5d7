// The long hints that stand beside the main window's controls while the pointer rests on them.
#include "shell/Hints.h"

#include <array>

namespace velorin {

namespace {

// By button, from 1.
constexpr std::array<const char*, 15> toolbarHints{
    "",
    "Clears all notes from the tableaux and resets the program. \r\n"
    "Use this button whenever you want to begin a new composition. \r\n"
    "But be careful to always save your previous composition before clearing it from the staff ",
    "Opens an existing SNG file for editing and draws the notes on the tableau ",
    "Save the current composition as a SNG or MID file.",
    "This three-way selector lets you decide what to do when you right-click your mouse.",
    "Rewinds the staff to the beginning of the composition. If the staff has scrolled beyond the "
    "first visible section, \r\n"
    "it scrolls all the way back to Note 1.",
    "Click this button to start playing the notes on the staff, beginning with the first note. ",
    "Click this button to instantly stop playing notes.",
    "This is the Panic Button. It stops anything happening in the program instantly.",
    "This is the Setup Button. Use it to load and unload these tools:Setup Toolbar; Percussion "
    "Tableau; Polyphonics Tableau.\r\n"
    "You can find out more about each one of these tools and how to use them by reading the Help "
    "file.",
    "Click this button to load the Editing Toolbar. \r\n"
    "You can find out more about the Editing Toolbar and how to use it by reading the Help file.",
    "Click this button to load the Recording Toolbar. \r\n"
    "You can find out more about the Recording Toolbar and how to use it by reading the Help file.",
    "Click this button to load the Tutorial Wizard, an interactive help tool that coaches you in "
    "the use of this program. \r\n"
    "You can find out more about the Tutorial Wizard simply by using it or you can find out more "
    "about it by reading the Help file.",
    "The Help File contains information on all of the features you'll find on Velorin.",
    "This is the Exit button. Use it to close the program.  ",
};

constexpr std::array<const char*, 3> rightClickTips{
    "Erase note on right-click",
    "Menu on right-click",
    "Set Polynotes on right-click",
};

} // namespace

const char* toolbarHint(int index) {
    return index >= 1 && index <= 14 ? toolbarHints.at(static_cast<std::size_t>(index)) : "";
}

const char* const noteNamesHint =
    "This table shows all the names of notes along with the corresponding octave.  . \r\n"
    "The names correspond with the notation drawn on the staff. \r\n"
    "For example the label \"0F#\" reads as: Octave 0; Note F# ";

const char* const barNumbersHint =
    "These are the numbers to identify all the individual notes, beginning with 1.  \r\n"
    "Numbers are placed at the beginning of each bar. There are 4 notes in each bar,  \r\n"
    "so notes 1 to 4 apply to the first bar, notes 5 to 8 to the second bar, and so on.  ";

const char* rightClickTip(int mode) {
    return mode >= 0 && mode <= 2 ? rightClickTips.at(static_cast<std::size_t>(mode)) : "";
}

} // namespace velorin
