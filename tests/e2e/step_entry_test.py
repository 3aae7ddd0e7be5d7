"""Writes a tune with a MIDI keyboard: two hundred notes, a chord, a rest and undo, and saves it."""

import score_text
from desk import check, run, wait_until
from midi_server import PORT, DeskWithMidi, Keyboard, share_no_memory

HINT = "Velorin Hint"
DIALOG = "Save music file"
KEYS = [48 + i * 7 % 36 for i in range(200)]


class PlayedKeyboard(Keyboard):
    def play(self, *keys):
        """A chord."""
        self.send(*[f"90 {key:02X} 7F" for key in keys], *[f"80 {key:02X} 00" for key in keys])

    def pedal(self):
        self.send("B0 40 7F", "B0 40 00")


def hint_comes_and_goes(desk):
    desk.window(HINT)
    desk.no_window(HINT)


def wait_for_steps(desk, count):
    """Every step is a line of the history."""
    command = [desk.build / "bin" / "velorin-convert", "--history"]
    wait_until(lambda: len(desk.told(command).splitlines()) == count, f"{count} steps", 60)


def save(desk, program, name):
    """The notes of the saved score."""
    program.press(3)
    desk.choose_file(DIALOG, name, 1)
    file = desk.songs / name
    wait_until(file.exists, f"the file {name}")
    notes, _ = score_text.runs(file.read_bytes())
    return notes


def test(build):
    share_no_memory()
    with DeskWithMidi(build) as desk:
        keyboard = PlayedKeyboard(desk)
        program = desk.launch()
        program.main_window()
        desk.tool("windowfocus", "--sync", program.window)
        desk.key("ctrl+k")
        wait_until(lambda: "Velorin:in" in desk.told(["jack_lsp", "-c", PORT]), "the connection to the keyboard")
        hint_comes_and_goes(desk)
        desk.key("ctrl+shift+k")
        hint_comes_and_goes(desk)
        desk.key("ctrl+4")
        hint_comes_and_goes(desk)
        for key in KEYS:
            keyboard.play(key)
        keyboard.pedal()
        keyboard.play(60, 64, 67)
        keyboard.play(62, 65)
        wait_for_steps(desk, 202)
        tune = {(0, 4 * i): (127 - key, 4, 24) for i, key in enumerate(KEYS)}
        chord = {(0, 804): (60, 4, 24), (1, 804): (63, 4, 24), (2, 804): (67, 4, 24)}
        last = {(0, 808): (62, 4, 24), (1, 808): (65, 4, 24)}
        notes = save(desk, program, "steps.sng")
        check(notes == tune | chord | last, f"the file has {sorted(notes.items())}")
        desk.tool("windowfocus", "--sync", program.window)
        desk.key("ctrl+z")
        check(save(desk, program, "undone.sng") == tune | chord, "undo does not take the last chord back")
        keyboard.play(72)
        wait_for_steps(desk, 205)  # two lines are the saved files
        notes = save(desk, program, "again.sng")
        check(notes == tune | chord | {(0, 808): (55, 4, 24)}, "after undo the next key is not in the place of the chord")
        program.end()


run(test)
