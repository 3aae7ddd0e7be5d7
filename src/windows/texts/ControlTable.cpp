// The table with the texts of all controls.
#include "windows/texts/ControlTable.h"

#include <array>

namespace velorin {

namespace {

using enum ControlKind;

constexpr std::array mainWindow{
    ControlText{
        "Cmd2(1)", "Clear all notes", "",
        "Clears all notes from the tableaux and resets the program. \r\n"
        "Use this button whenever you want to begin a new composition. \r\n"
        "But be careful to always save your previous composition before clearing it from the "
        "staff "},
    ControlText{"Cmd2(2)", "Open Score File (sng)", "",
                "Opens an existing SNG file for editing and draws the notes on the tableau "},
    ControlText{"Cmd2(3)", "Save as  Score (sng) or MIDI file (mid)", "",
                "Save the current composition as a SNG or MID file."},
    // Its tip follows the right-click mode.
    ControlText{"Cmd2(4)", "Erase note on right-click", "",
                "This three-way selector lets you decide what to do when you right-click your "
                "mouse."},
    ControlText{"Cmd2(5)", "Return to Start", "",
                "Rewinds the staff to the beginning of the composition. If the staff has scrolled "
                "beyond the first visible section, \r\n"
                "it scrolls all the way back to Note 1."},
    ControlText{"Cmd2(6)", "Play notes", "",
                "Click this button to start playing the notes on the staff, beginning with the "
                "first note. "},
    ControlText{"Cmd2(7)", "", "Stop", "Click this button to instantly stop playing notes."},
    ControlText{"Cmd2(8)", "Stop all sound", "",
                "This is the Panic Button. It stops anything happening in the program instantly."},
    ControlText{"Cmd2(9)", "", "Setup",
                "This is the Setup Button. Use it to load and unload these tools:Setup Toolbar; "
                "Percussion Tableau; Polyphonics Tableau.\r\n"
                "You can find out more about each one of these tools and how to use them by "
                "reading the Help file."},
    ControlText{"Cmd2(10)", "Editing Toolbar", "",
                "Click this button to load the Editing Toolbar. \r\n"
                "You can find out more about the Editing Toolbar and how to use it by reading the "
                "Help file."},
    ControlText{"Cmd2(11)", "Recording Toolbar", "",
                "Click this button to load the Recording Toolbar. \r\n"
                "You can find out more about the Recording Toolbar and how to use it by reading "
                "the Help file."},
    ControlText{"Cmd2(12)", "Tutorial ", "",
                "Click this button to load the Tutorial Wizard, an interactive help tool that "
                "coaches you in the use of this program. \r\n"
                "You can find out more about the Tutorial Wizard simply by using it or you can "
                "find out more about it by reading the Help file."},
    ControlText{
        "Cmd2(13)", "", "Help",
        "The Help File contains information on all of the features you'll find on Velorin."},
    ControlText{"Cmd2(14)", "", "Exit", "This is the Exit button. Use it to close the program.  "},
    // The tips of the first two follow the history.
    ControlText{"stripUndo", "Undo (Ctrl+Z)", "Undo",
                "Takes the last change back, also Clear, Open and Duplicate. "},
    ControlText{"stripRedo", "Redo (Ctrl+Y)", "Redo",
                "Makes the change again that was taken back last. "},
    ControlText{"stripHistory", "History (Ctrl+H)", "History",
                "Lists every state of your scores, also those of earlier days. "},
    ControlText{"stripExport", "Export (Ctrl+E)", "Export",
                "Makes an MP3, a WAV, a MIDI file, a song page or a picture. "},
    ControlText{"stripMore", "More buttons", "",
                "Opens a menu of the buttons that have no place in this window. "},
    ControlText{"stripMoreInTitle", "More buttons", "",
                "Opens a menu of the buttons that have no place in this window. "},
    ControlText{"stripState", "", "State", "", status},
    ControlText{"toolbMenu", "", "Main Toolbar", "", strip},
    ControlText{"Image1", "", "Velorin"},
    ControlText{"imgTitleHelp", "", "Help"},
    ControlText{"imgTitleMinimize", "", "Minimise"},
    ControlText{"imgTitleMaxRestore", "", "Maximise"},
    ControlText{"imgTitleRestore", "", "Restore"}, // the same button while the window is maximised
    ControlText{"imgTitleClose", "", "Close"},
    ControlText{"PicX", "Octave; Note", "",
                "This table shows all the names of notes along with the corresponding octave.  . "
                "\r\n"
                "The names correspond with the notation drawn on the staff. \r\n"
                "For example the label \"0F#\" reads as: Octave 0; Note F# ",
                tableau},
    ControlText{"TopBarOverlay", "", "Bar numbers",
                "These are the numbers to identify all the individual notes, beginning with 1.  "
                "\r\n"
                "Numbers are placed at the beginning of each bar. There are 4 notes in each bar,  "
                "\r\n"
                "so notes 1 to 4 apply to the first bar, notes 5 to 8 to the second bar, and so "
                "on.  ",
                tableau},
    ControlText{"MusicBox", "", "Music Tableau", "", tableau},
    ControlText{"Beatbox", "Percussion Tableau", "", "", tableau},
    ControlText{"Pic1", "", "Polyphonics Tableau", "", tableau},
    ControlText{"Label8()", "Ch %1 Polyphonics", "", "", picture},
    ControlText{"HScroll1", "", "Columns"},
    ControlText{"VScroll1", "", "Pitches"},
    ControlText{"Resizer(0)", "", "Left edge", "", grip},
    ControlText{"Resizer(1)", "", "Right edge", "", grip},
    ControlText{"Resizer(2)", "", "Top edge", "", grip},
    ControlText{"Resizer(3)", "", "Bottom edge", "", grip},
    ControlText{"Resizer(4)", "", "Bottom-right corner", "", grip},
    ControlText{"Resizer(5)", "", "Bottom-left corner", "", grip},
    ControlText{"Resizer(6)", "", "Top-right corner", "", grip},
    ControlText{"Resizer(7)", "", "Top-left corner", "", grip},
};

constexpr std::array editingToolbar{
    ControlText{"toolbEdit", "", "Editing", "", strip},
    ControlText{"ToolbCompose", "", "Composing and playing", "", strip},
    ControlText{"Cmd2(1)", "Clear all notes"},
    ControlText{"Cmd2(2)", "Open File"},
    ControlText{"Cmd2(3)", "Save as  Score (sng) or MIDI file (mid)"},
    ControlText{"Cmd2(4)", "Play notes"},
    ControlText{"ImgPic(4)", "Play score"}, // the other pictures have the tips of their buttons
    ControlText{"Cmd2(5)", "Play Selection"},
    ControlText{"Cmd2(6)", "Pause"},
    ControlText{"Cmd2(7)", "Stop"},
    ControlText{"Cmd2(8)", "Return to Start"},
    ControlText{"Cmd2(9)", "Show playing position", "", "", toggle},
    ControlText{"Cmd2(10)", "Loop song", "", "", toggle},
    ControlText{"Cmd2(11)", "Draw/Select mode toggle", "", "", toggle},
    ControlText{"Cmd2(12)", "Copy Selection"},
    ControlText{"Cmd2(13)", "Cut Selection"},
    ControlText{"Cmd2(14)", "Paste (Overwrite)"},
    ControlText{"Cmd2(15)", "Paste (Insert)"},
    ControlText{"Cmd2(16)", "Insert # Space(s) "},
    ControlText{"Cmd2(17)", "Duplicate notes"},
    ControlText{"Text1", "Insert # of spaces"},
    ControlText{"Text3", "Total duplicated notes"},
    ControlText{"Text4", "Total # of notes in duplicated cycle"},
    ControlText{"Text5", "Total # of Playable notes in duplicated cycle"},
    ControlText{"VScroll2", "", "Notes"},
    ControlText{"VScroll3", "", "Beats"},
    ControlText{"VScroll4", "", "Repeat"},
    ControlText{"Check1", "Duplicate Percussion section"},
    ControlText{"Check2", "Duplicate Instrument section", "Duplicate Instruments section"},
    ControlText{"chkgraphics", "Show playing position"},
    ControlText{"loopcheck", "Loop song"},
    ControlText{"imgTitleClose", "", "Close"},
};

constexpr std::array setupToolbar{
    ControlText{"SSTab1", "", "Setup", "", pages},
    ControlText{"TrackSel()", "", "%2", "", option}, // its tip is made when the pointer comes
    ControlText{"TrackHide()", "Hide this channel", "Hide %2"},
    ControlText{"Combo1", "Instrument"},
    ControlText{"Combo5", "Percussion Instrument"},
    ControlText{"Chkpoly", "Open/Close Polyphonics tableau"},
    ControlText{"Combo3", "", "Chord"},
    ControlText{"Ch()", "", "Select %2", "", checkBox},
    ControlText{"Chkstrum()", "", "Strumming %2"},
    ControlText{"HScroll1", "Tempo (playing speed)"},
    ControlText{"TempoLabel", "", "", "Tempo"},
    ControlText{"Combo2", "", "Midi Device"},
    ControlText{"HScroll2", "", "Volume"},
    ControlText{"vol()", "", "Volume %2"},
    ControlText{"imgTitleClose", "", "Close"},
};

// The open lists of instruments and of percussion sounds.
constexpr std::array instrumentList{
    ControlText{"search", "", "Search in all entries",
                "Shows the entries that contain what you type, and those whose number begins with "
                "it. Enter chooses the entry at the cursor."},
    ControlText{"clear", "Empties the search", "Clear"},
    ControlText{"rows", "", "Entries",
                "An entry sounds when the pointer or the cursor rests on it."},
};

constexpr std::array recordingToolbar{
    ControlText{"SSTab1", "", "Recording", "", pages},
    ControlText{"rec", "", "Record", "", button},
    ControlText{"Label1", "", "", "", button}, // its caption says what it does
    ControlText{"Label8", "", "", "State of the recording"},
    ControlText{"Text6", "", "File in hand"},
    ControlText{"lblKhz", "", "", "Sample rate"},
    ControlText{"lblbitrate", "", "", "Bitrate"},
    ControlText{"lblmode", "", "", "Channels"},
    ControlText{"lblTime", "", "", "Time"},
    ControlText{"Cmd2(0)", "Open File"},
    ControlText{"Cmd2(1)", "Play"},
    ControlText{"Cmd2(2)", "Pause"},
    ControlText{"Cmd2(3)", "Stop"},
    ControlText{"making", "", "", "", alert},
    ControlText{"encoding", "", "Encoding", "", progress},
    ControlText{"showInFolder", "Shows the new file in its folder", "Show in folder"},
    ControlText{"folder", "Show in folder"},
    ControlText{"export", "Opens the Export window, whose MP3 sounds right", "Export"},
    ControlText{"P2", "", "Progress", "", progress},
    ControlText{"Status", "", "", "Progress"},
    ControlText{"Check2", "Encode to MP3 automatically", "Auto-Encode to MP3"},
    ControlText{"Check3", "Delete WAV file on completion of encoding"},
    ControlText{"Check4", "Show playing position", "Show Note position"},
    ControlText{"Command1", "Show system sound mixer"},
    ControlText{"cbxFormat", "Select WAV recording format"},
    ControlText{"Combo4", "MP3 Bitrate selector"},
    ControlText{"Combo3", "MP3 Quality Selector"},
    ControlText{"InputPath", "", "WAV file"},
    ControlText{"OutPutPath", "", "MP3 file"},
    ControlText{"arrow", "", "is encoded to"}, // the arrow between the two file names
    ControlText{"imgTitleClose", "", "Close"},
};

constexpr char stepTip[] = "Click to perform this step";

// The steps of the lessons. The name of a step is its caption.
constexpr std::array tutorialWizard{
    ControlText{"SSTab1", "", "Lessons", "", pages}, ControlText{"L1()", stepTip, "", "", button},
    ControlText{"L2()", stepTip, "", "", button},    ControlText{"LP1()", stepTip, "", "", button},
    ControlText{"L1E()", stepTip, "", "", button},   ControlText{"L1R()", stepTip, "", "", button},
    ControlText{"L1M()", stepTip, "", "", button},   ControlText{"L1S()", stepTip, "", "", button},
    ControlText{"imgTitleClose", "", "Close"},
};

constexpr std::array hintWindow{ControlText{"imgTitleClose", "", "Close"}};

constexpr std::array noticeWindow{ControlText{"imgTitleClose", "", "Close"}};

constexpr std::array shortHint{ControlText{"imgTitleClose", "", "Close"}};

constexpr std::array helpWindow{
    ControlText{"search", "", "Search in all pages"},
    ControlText{"contents", "", "Contents"},
    ControlText{"page", "", "Page"},
    ControlText{"grip", "", "Size of the window"},
    ControlText{"imgTitleClose", "", "Close"},
};

constexpr std::array historyWindow{
    ControlText{"filter", "", "Filter", "Shows the states that contain what you type."},
    ControlText{"opened", "", "Opened last", "Opens a score that was open or saved before."},
    ControlText{"states", "", "States", "Enter goes back to the state at the cursor."},
    ControlText{"picture", "", "Picture of the state", "", picture},
    ControlText{"goBack", ""},
    ControlText{"save", ""},
    ControlText{"clear", ""},
    ControlText{"grip", "", "Size of the window", "", grip},
    ControlText{"imgTitleClose", "", "Close"},
};

constexpr std::array exportWindow{
    ControlText{"mp3", "", "MP3, small file", "", option},
    ControlText{"wav", "", "WAV, full sound", "", option},
    ControlText{"midi", "", "MIDI, just the notes", "", option},
    ControlText{"page", "", "Song page, for a browser", "", option},
    ControlText{"picture", "", "Picture, as drawn", "", option},
    ControlText{"name", "", "Name", "The name of the new file, without its ending."},
    ControlText{"folder", "", "Folder", "Where the new file goes."},
    ControlText{"choose", "Choose a folder and a name", "Choose"},
    ControlText{"quality", "", "Quality"},
    ControlText{"progress", "", "Progress", "", progress},
    ControlText{"result", "", "", "", alert},
    ControlText{"play", "Plays the new file"},
    ControlText{"showInFolder", "Shows the new file in its folder", "Show in folder"},
    ControlText{"close", ""},
    ControlText{"export", ""},
    ControlText{"cancel", "Stops and leaves nothing behind", "Cancel"},
    ControlText{"imgTitleClose", "", "Close"},
};

constexpr std::array<WindowTexts, 12> windows{{
    {"Form1", mainWindow},
    {"Form2", editingToolbar},
    {"Form3", setupToolbar},
    {"InstrumentList", instrumentList},
    {"Record", recordingToolbar},
    {"Wiz", tutorialWizard},
    {"frminfo", hintWindow},
    {"Notice", noticeWindow},
    {"ShortHint", shortHint},
    {"Help", helpWindow},
    {"History", historyWindow},
    {"Export", exportWindow},
}};

constexpr std::array<const char*, 3> rightClickTips{
    "Erase note on right-click",
    "Menu on right-click",
    "Set Polynotes on right-click",
};

constexpr std::array<const char*, 13> rowNames{
    "Channel 1",
    "Channel 2",
    "Channel 3",
    "Channel 4",
    "Channel 5",
    "Channel 6",
    "Channel 7",
    "Channel 8",
    "Percussion Channel 1",
    "Rythm Channel 4",
    "Percussion Channel 2",
    "Percussion Channel 3",
    "Percussion Channel 4",
};

} // namespace

std::span<const WindowTexts> windowTexts() {
    return windows;
}

const char* rowName(int row) {
    return rowNames.at(static_cast<std::size_t>(row));
}

const char* rightClickTip(int mode) {
    return mode >= 0 && mode <= 2 ? rightClickTips.at(static_cast<std::size_t>(mode)) : "";
}

} // namespace velorin
