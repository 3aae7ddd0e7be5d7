// The key table: what each key does and its description, for the windows, the help and the man
// page.
#pragma once

#include "windows/texts/ButtonNumbers.h"

#include <array>
#include <span>
#include <string>
#include <string_view>

namespace velorin {

struct Key {
    const char* keys = ""; ///< in Qt's portable notation, "Ctrl+N"
    const char* meaning = "";
    int button = 0;       ///< the button that the keys press; 0 for none
    int buttonInPlay = 0; ///< the button while the song plays

    /// True for a key that types text: the focused control may need it.
    [[nodiscard]] constexpr bool isTyped() const {
        return std::string_view(keys).size() == 1 || std::string_view(keys) == "Space";
    }
};

/// The keys of the main toolbar, in the main window and in the tool windows.
constexpr std::array<Key, 5> mainKeys{{
    {"Ctrl+N", "Clears all notes", mainButton::clear, mainButton::clear},
    {"Ctrl+O", "Opens a score", mainButton::open, mainButton::open},
    {"Ctrl+S", "Saves the score or a MIDI file", mainButton::save, mainButton::save},
    {"Space", "Plays the notes, and stops them while they play", mainButton::play,
     mainButton::stop},
    {"Esc", "Stops all sound", mainButton::stopAll, mainButton::stopAll},
}};

/// The keys of the Editing Toolbar, in the same windows, whether it is open or not.
///
/// Rule: Duplicate has no key. It cuts the song after its pattern, which must not happen to a user
/// who tries Ctrl+D. Held by editing/keys.
constexpr std::array<Key, 6> editKeys{{
    {"Ctrl+C", "Copies the selection", editButton::copy, editButton::copy},
    {"Ctrl+X", "Cuts the selection", editButton::cut, editButton::cut},
    {"Ctrl+V", "Pastes at the marker, over what is there", editButton::paste, editButton::paste},
    {"Ctrl+Shift+V", "Pastes at the marker, and moves what is there to the right",
     editButton::pasteInto, editButton::pasteInto},
    {"P", "Pauses", editButton::pause, editButton::pause},
    {"F2", "Changes between drawing and selecting", editButton::mode, editButton::mode},
}};

/// The commands for files that only a key gives, or a menu.
enum class FileCommand { saveAgain, openedLast, exportScore };

struct FileKey {
    Key key;
    FileCommand command;
    const char* control = ""; ///< the button of the main window that does the same
};

/// The keys of files, in the same windows.
constexpr std::array<FileKey, 3> fileKeys{{
    {{"Ctrl+Shift+S", "Saves the score under its name, without a dialog"}, FileCommand::saveAgain},
    {{"Ctrl+Shift+O", "Lists the scores that were opened last, as a right click on the Open button "
                      "does"},
     FileCommand::openedLast},
    {{"Ctrl+E", "Opens the Export window"}, FileCommand::exportScore, "stripExport"},
}};

/// The commands of the history that a key gives.
enum class HistoryCommand { undo, redo, show };

struct HistoryKey {
    Key key;
    HistoryCommand command;
    const char* control = ""; ///< the button of the main window that does the same
};

/// The keys of the history, in the same windows. In a text box the first three are the box's own.
constexpr std::array<HistoryKey, 4> historyKeys{{
    {{"Ctrl+Z", "Takes the last change back"}, HistoryCommand::undo, "stripUndo"},
    {{"Ctrl+Y", "Makes the change again that was taken back"}, HistoryCommand::redo, "stripRedo"},
    {{"Ctrl+Shift+Z", "The same"}, HistoryCommand::redo},
    {{"Ctrl+H", "Opens the history"}, HistoryCommand::show, "stripHistory"},
}};

/// The commands for a MIDI keyboard.
enum class KeyboardCommand { onOff, steps, length, back, onward };

struct KeyboardKey {
    Key key;
    KeyboardCommand command;
    int columns = 0; ///< of `KeyboardCommand::length`
};

/// The keys of the MIDI keyboard, in the same windows.
constexpr std::array<KeyboardKey, 10> keyboardKeys{{
    {{"Ctrl+K", "Switches a MIDI keyboard on, which then plays on the current channel, and off"},
     KeyboardCommand::onOff},
    {{"Ctrl+Shift+K", "Switches step entry on, which writes what the MIDI keyboard plays at the "
                      "marker, and off"},
     KeyboardCommand::steps},
    {{"Ctrl+1", "Step entry: notes of 1 column"}, KeyboardCommand::length, 1},
    {{"Ctrl+2", "Step entry: notes of 2 columns"}, KeyboardCommand::length, 2},
    {{"Ctrl+3", "Step entry: notes of 3 columns"}, KeyboardCommand::length, 3},
    {{"Ctrl+4", "Step entry: notes of 4 columns, a bar"}, KeyboardCommand::length, 4},
    {{"Ctrl+6", "Step entry: notes of 6 columns"}, KeyboardCommand::length, 6},
    {{"Ctrl+8", "Step entry: notes of 8 columns"}, KeyboardCommand::length, 8},
    {{"Alt+Left", "Step entry: moves the marker back by the length of a note"},
     KeyboardCommand::back},
    {{"Alt+Right", "Step entry: moves the marker on, as the sustain pedal does"},
     KeyboardCommand::onward},
}};

/// The commands for users who hear what the pen meets.
enum class HearingCommand { penSounds, whereIsThePen };

struct HearingKey {
    Key key;
    HearingCommand command;
};

/// The keys of hearing, in the same windows.
constexpr std::array<HearingKey, 2> hearingKeys{{
    {{"Ctrl+L", "Lets the pen sound the notes that it meets, softly, and makes it silent again"},
     HearingCommand::penSounds},
    {{"Ctrl+I", "Tells a screen reader where the pen is, or where the song is while it plays"},
     HearingCommand::whereIsThePen},
}};

/// The window keys of the program, in every window.
constexpr Key nextWindowKey{"F6", "Goes to the next window of the program"};
constexpr Key previousWindowKey{"Shift+F6", "Goes to the window before"};

/// In the main window and in the tool windows.
constexpr Key arrangeKey{"Ctrl+F6", "Moves the tool windows apart, so that none covers another"};

/// In the main window and in the tool windows.
constexpr Key menuKey{"Shift+F10", "Opens the menu of commands, in select mode that of editing"};
constexpr Key helpKey{"F1", "Opens the help"};

/// A part of the list of keys.
struct KeySection {
    const char* heading;
    std::span<const Key> keys;
};

/// All keys, in the order of the help and the man page.
[[nodiscard]] std::span<const KeySection> keySections();

/// The keys that press a button, "Ctrl+N"; empty if there are none.
[[nodiscard]] std::string keysOf(std::string_view window, std::string_view control);

} // namespace velorin
