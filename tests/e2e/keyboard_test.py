"""Opens, plays, stops, saves, records and encodes a song with the keyboard only. The pointer never moves."""

from desk import Desk, check, run, wait_until
from score_text import Score

RED = (255, 0, 0)
TITLE = "Recording Toolbar"
LONG_SONG = 400  # columns, so that it plays until it is stopped
RECORDING_ENTRY, EXIT_ENTRY = 10, 13  # in the menu of commands, without separators


def song():
    score = Score(120)
    for column in range(0, LONG_SONG, 2):
        score.note(0, column, 60, 1, 0)
    return score


class Keys:
    """The program, operated without a mouse."""

    def __init__(self, desk, program):
        self.desk = desk
        self.program = program

    def active(self):
        """The title of the window with the keyboard focus."""
        number = self.desk.tool("getactivewindow")
        return " ".join(self.desk.tool("getwindowname", number[0])) if number else ""

    def go_to_window(self, title):
        """Presses F6 until the window has the focus."""
        for _ in range(6):
            before = self.active()
            if before == title or before.endswith(f" - {title}"):
                return
            self.desk.key("F6")
            wait_until(lambda: self.active() not in ("", before), f"a window after '{before}'")
        check(False, f"F6 does not reach the window '{title}'")

    def tab(self, count):
        for _ in range(count):
            self.looks_different(lambda: self.desk.key("Tab"), "the blue frame")

    def looks_different(self, act, what):
        """Does something that changes the active window, and waits until it stops changing."""
        place = self.desk.place_of(self.desk.tool("getactivewindow")[0])

        def look():
            return self.desk.screen.part(*self.desk.inside(place))
        before = self.desk.still(look, "the window")
        act()
        wait_until(lambda: look() != before, what)

    def answer_dialog(self, title, name, save_filter=None):
        """The name field has the focus when a file dialog opens."""
        self.desk.window(title)
        wait_until(lambda: self.active() == title, f"the focus in the dialog '{title}'")
        self.desk.settled(self.desk.window(title))
        if save_filter is not None:
            self.choose_filter(save_filter)
        self.desk.key("ctrl+a")
        self.desk.type(str(name))
        self.desk.key("Return")
        self.desk.no_window(title)
        wait_until(lambda: self.active() not in ("", title), "a window of the program")

    def choose_filter(self, entry):
        """The list of kinds is the next control after the name."""
        self.desk.key("Tab", "Home", *["Down"] * entry, "shift+Tab")


def open_song(keys, desk, program):
    desk.key("ctrl+o")
    keys.answer_dialog("Open Score File", "song.sng")
    wait_until(lambda: desk.screen.pixel(*program.cell(0, 5)) == RED, "the first note on the tableau")


def play_and_stop(keys, desk, program):
    """The space bar starts and stops the song, as the marker shows."""
    line = (*program.cell(0, 20), 30 * 12, 1)
    at_rest = desk.still(lambda: desk.screen.part(*line), "the tableau at rest")
    desk.key("space")
    wait_until(lambda: desk.screen.part(*line) != at_rest, "the playing marker")
    desk.key("space")
    wait_until(lambda: desk.screen.part(*line) == at_rest, "the end of playing")


def save(keys, desk):
    desk.key("ctrl+s")
    keys.answer_dialog("Save music file", "kept", save_filter=1)
    kept = desk.songs / "kept.sng"
    wait_until(kept.exists, "the saved score")
    check(kept.read_bytes() == song().text(), "the saved score differs")


def save_from_the_setup_toolbar(keys, desk):
    """The same keys work while a tool window has the focus."""
    keys.go_to_window("Setup Toolbar")
    desk.key("ctrl+s")
    keys.answer_dialog("Save music file", "export", save_filter=0)
    wait_until((desk.songs / "export.mid").exists, "the MIDI file")


def choose_in_menu(keys, desk, entry):
    """Opens the menu of commands, whichever control has the focus."""
    with desk.popup():
        desk.key("shift+F10")
    desk.key(*["Down"] * (entry + 1))
    before = desk.shown()
    desk.key("Return")
    wait_until(lambda: desk.shown() != before, "the menu to close")


def switch_encoding_off(keys, desk):
    """Unticks the first box on the second tab, which encodes each recording automatically."""
    keys.tab(1)
    keys.looks_different(lambda: desk.key("Right"), "the tab Preferences")
    keys.tab(1)
    keys.looks_different(lambda: desk.key("space"), "a box without its tick")
    keys.looks_different(lambda: desk.key("shift+Tab"), "the blue frame")
    keys.looks_different(lambda: desk.key("Left"), "the tab Record/Play")


def record(keys, desk):
    """Tabs from the tab bar past the source and the round button to the button that starts and stops."""
    keys.tab(3)
    keys.looks_different(lambda: desk.key("space"), "the caption of the button")
    wait_until(lambda: any(file.name.startswith(".") for file in desk.songs.iterdir()), "the recording")
    desk.tool("sleep", 1.5)
    desk.key("space")
    wait_until(lambda: list(desk.songs.glob("*tmp.wav")), "the WAV")
    check(not list(desk.songs.glob("*.mp3")), "the recording was encoded at once")
    return next(desk.songs.glob("*tmp.wav"))


def encode(keys, desk, wav):
    """Tabs past the button that shows the WAV in its folder, the file name and the four buttons of the player."""
    keys.tab(7)
    desk.key("space")
    mp3 = wav.with_suffix(".mp3")
    sizes = []

    def is_whole():
        sizes.append(mp3.exists() and mp3.stat().st_size)
        return len(sizes) > 100 and sizes[-1] and sizes[-1] == sizes[-100]
    wait_until(is_whole, "the MP3")


def test(build):
    with Desk(build, manager=True) as desk:
        desk.songs.mkdir()
        (desk.songs / "song.sng").write_bytes(song().text())
        program = desk.launch()
        program.main_window()
        keys = Keys(desk, program)
        wait_until(keys.active, "a window with the focus")
        keys.go_to_window("Velorin")
        open_song(keys, desk, program)
        keys.go_to_window("Velorin")
        play_and_stop(keys, desk, program)
        save(keys, desk)
        save_from_the_setup_toolbar(keys, desk)
        choose_in_menu(keys, desk, RECORDING_ENTRY)
        desk.settled(desk.window(TITLE))
        keys.go_to_window(TITLE)
        switch_encoding_off(keys, desk)
        encode(keys, desk, record(keys, desk))
        choose_in_menu(keys, desk, EXIT_ENTRY)
        program.ended()


run(test)
