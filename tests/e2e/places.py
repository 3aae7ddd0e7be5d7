"""The controls of the program by their accessible names, and the places of some of them.

Programs that cannot be asked for the places of their controls are driven by these places: those of another user, those
that a session bus starts, and those that are measured, since the accessibility bus takes time. tests/e2e/names_test.py
checks that both ways find the same.
"""

# The buttons of the main window by number.
BUTTONS = [None, "Clear all notes", "Open Score File (sng)", "Save as  Score (sng) or MIDI file (mid)",
           "Erase note on right-click", "Return to Start", "Play notes", "Stop", "Stop all sound", "Setup",
           "Editing Toolbar", "Recording Toolbar", "Tutorial", "Help", "Exit"]

# The rows of the percussion are not in the order of their names.
CHANNELS = {**{row: f"Channel {row + 1}" for row in range(8)},
            8: "Percussion Channel 1", 10: "Percussion Channel 2", 11: "Percussion Channel 3", 12: "Percussion Channel 4",
            9: "Rythm Channel 4"}

# The controls of the Setup Toolbar by their names in the program.
SETUP = {"rows": "Channels, Instruments", "polyphonics": "Polyphonics", "setup": "Setup", "close": "Close",
         "Combo1": "Instrument", "Combo5": "Percussion Instrument", "Combo3": "Chord", "Combo2": "Midi Device",
         "Chkpoly": "Open/Close Polyphonics tableau"}
SETUP.update({f"TrackSel({row})": name for row, name in CHANNELS.items()})
SETUP.update({f"TrackHide({row})": f"Hide {name}" for row, name in CHANNELS.items()})
SETUP.update({f"Ch({row})": f"Select {CHANNELS[row]}" for row in range(8)})
SETUP.update({f"Chkstrum({row})": f"Strumming {CHANNELS[row]}" for row in range(8)})
# These are places on a scroll bar, not the bar itself.
SETUP.update({"tempo": (300, 82), "volume": (300, 157)})

# The controls of the Editing Toolbar: the buttons by number, and the boxes.
EDIT = {1: "Clear all notes", 2: "Open File", 3: "Save as  Score (sng) or MIDI file (mid)", 4: "Play notes",
        5: "Play Selection", 6: "Pause", 7: "Stop", 8: "Return to Start", 9: "Show playing position", 10: "Loop song",
        11: "Draw/Select mode toggle", 12: "Copy Selection", 13: "Cut Selection", 14: "Paste (Overwrite)",
        15: "Paste (Insert)", 16: "Insert # Space(s)", 17: "Duplicate notes", "Text1": "Insert # of spaces",
        "Text5": "Total # of Playable notes in duplicated cycle", "Text4": "Total # of notes in duplicated cycle",
        "Text3": "Total duplicated notes", "close": "Close"}

# By the title of the window and the name of the control, in the window's own pixels.
PLACES = {
    "Velorin": {BUTTONS[number]: (26 + left + 18, 48) for number, left in
                enumerate([8, 46, 84, 134, 184, 222, 260, 298, 348, 386, 424, 462, 512, 550], 1)},
    "Setup Toolbar": {"Close": (511, 14)},
    "Recording Toolbar": {"Record/Play": (53, 49), "Preferences": (147, 49), "Auto-Encode to MP3": (39, 92),
                          "Delete WAV file on completion of encoding": (39, 122), "Start Recording": (417, 92),
                          "Encode File": (453, 249), "Open File": (38, 205), "Play": (73, 205), "Pause": (108, 205),
                          "Stop": (143, 205), "Close": (511, 14)},
}
