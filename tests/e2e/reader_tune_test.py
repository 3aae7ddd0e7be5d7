"""A tune made over the accessibility bus alone, as a screen reader makes it: 32 notes with chords and drums are drawn, played,
saved and encoded. No key and no mouse."""

import listen
import score_text
from bus import SHOWING, Announcements, Node, dbus, open_bus, program_on
from desk import Desk, check, run, wait_until
from recorded import decoded

ACTION, TABLE, TEXT, VALUE = (f"org.a11y.atspi.{name}" for name in ("Action", "Table", "EditableText", "Value"))
TABLEAUX = {"music": "Music Tableau", "strip": "Percussion Tableau", "lanes": "Polyphonics Tableau"}

TOP_PITCH = 55  # on the first line of the tableaux
NYLON_GUITAR, BASS_DRUM = 24, 128
COLUMN_S = 12 / 100  # at the tempo of the start
NOTE_COLUMNS, BAR = 2, 4
LETTERS = ["C", "C sharp", "D", "D sharp", "E", "F", "F sharp", "G", "G sharp", "A", "A sharp", "B"]

# Pitch indices; the key of a pitch is 127 minus its index.
PHRASE = [67, 65, 63, 62, 60, 62, 63, 65]
MELODY = PHRASE + [pitch + 2 for pitch in PHRASE] + PHRASE[::-1] + [67, 67, 60, 60, 58, 58, 60, 60]
SCROLLED_FROM, FIRST_COLUMN = 24, 40  # the notes from this one on are drawn in a view that begins with this column
BEATS = range(0, NOTE_COLUMNS * SCROLLED_FROM, BAR)
CHORDS = [0, 16]  # columns
MINOR = (0, 3, 7, 12)


def controls(node):
    """The object and all below it, but no cells and no entries: the file dialog of Qt complains about some of them."""
    yield node
    if node.role() not in ("table", "list", "tree"):
        for child in node.children():
            yield from controls(child)


class Hand:
    """What a screen reader does with the program."""

    def __init__(self, desk, bus, tree):
        self.desk, self.bus, self.tree = desk, bus, tree
        self.main = self.window("Velorin")
        self.tables = {}

    def window(self, title):
        return wait_until(lambda: next((child for child in self.tree.children()
                                        if child.told("Name").strip() == title and child.has(SHOWING)), None),
                          f"the window '{title}' on the bus")

    def control(self, window, role, name):
        def look():
            return next((node for node in controls(window) if node.role() == role and node.has(SHOWING)
                         and (node.told("Name") or node.label()).strip() == name), None)
        return wait_until(look, f"{role} '{name}'")

    def press(self, window, name, role="push button"):
        self.act(self.control(window, role, name), "Press")

    def act(self, node, name):
        action = node.object.get_dbus_method("GetName", ACTION)
        count = int(node.object.Get(ACTION, "NActions", dbus_interface=dbus.PROPERTIES_IFACE))
        names = [str(action(i)) for i in range(count)]
        check(name in names, f"'{node.told('Name')}' has no action '{name}' but {names}")
        node.object.get_dbus_method("DoAction", ACTION)(names.index(name))

    def write(self, window, name, text):
        check(self.control(window, "text", name).object.get_dbus_method("SetTextContents", TEXT)(str(text)), name)

    def scroll_to(self, column):
        """The lowest value of the scroll bar is column 0."""
        bar = self.control(self.main, "scroll bar", "Columns").object
        lowest = float(bar.Get(VALUE, "MinimumValue", dbus_interface=dbus.PROPERTIES_IFACE))
        bar.Set(VALUE, "CurrentValue", dbus.Double(lowest + column, variant_level=1), dbus_interface=dbus.PROPERTIES_IFACE)

    def table(self, tableau):
        if tableau not in self.tables:
            self.tables[tableau] = self.control(self.main, "table", TABLEAUX[tableau])
        return self.tables[tableau]

    def cell(self, tableau, line, column):
        """A cell by its place on the screen."""
        bus_name, path = self.table(tableau).object.get_dbus_method("GetAccessibleAt", TABLE)(line, column)
        check(not str(path).endswith("/null"), f"{tableau} has no cell in line {line}, column {column}")
        return Node(self.bus, bus_name, path)

    def wait_for_name(self, node, name):
        told = []

        def has_it():
            told[:] = [node.told("Name")]
            return told[0] == name
        try:
            wait_until(has_it, name)
        except Exception as late:
            raise type(late)(f"'{name}' was expected, but '{told[0]}' is said") from None


def note_name(pitch):
    key = 127 - pitch
    return f"{LETTERS[key % 12]} {key // 12}"


def draw_melody(hand):
    """Holds the first cell of each note and releases its last one."""
    for i, pitch in enumerate(MELODY):
        if i == SCROLLED_FROM:
            hand.scroll_to(FIRST_COLUMN)
        first = NOTE_COLUMNS * i - (FIRST_COLUMN if i >= SCROLLED_FROM else 0)
        head = hand.cell("music", pitch - TOP_PITCH, first)
        column = NOTE_COLUMNS * i
        hand.wait_for_name(head, f"{note_name(pitch)}, column {column + 1}, bar {column // BAR + 1}. Empty.")
        hand.act(head, "Hold")
        end = hand.cell("music", pitch - TOP_PITCH, first + NOTE_COLUMNS - 1)
        hand.act(end, "Release")
        hand.wait_for_name(end, f"Note of {NOTE_COLUMNS} columns drawn, {note_name(pitch)}, channel 1.")
    hand.scroll_to(0)


def draw_beats(hand):
    """A percussion channel and its drum are chosen when the strip gets the keyboard."""
    for column in BEATS:
        cell = hand.cell("strip", 0, column)
        hand.wait_for_name(cell, f"Drums, line 1, column {column + 1}. Empty.")
        hand.act(cell, "Press")
        hand.wait_for_name(cell, "Beat drawn, Acoustic Bass Drum, percussion channel 1.")


def mark_chords(hand):
    for column in CHORDS:
        cell = hand.cell("lanes", 0, column)
        hand.wait_for_name(cell, f"Chords, channel 1, column {column + 1}. Not marked.")
        hand.act(cell, "Press")
        hand.wait_for_name(cell, f"Chord mark set, channel 1, column {column + 1}.")


def erase_one_too_many(hand):
    """A note that does not belong to the tune is drawn and erased again."""
    cell = hand.cell("music", 3, 80)
    hand.act(cell, "Press")
    hand.wait_for_name(cell, f"Note of 1 column drawn, {note_name(TOP_PITCH + 3)}, channel 1.")
    hand.act(cell, "Right press")
    hand.wait_for_name(cell, f"Note of 1 column erased, {note_name(TOP_PITCH + 3)}, channel 1.")


def check_keys(sound, where):
    """Each note is heard at its time; a chord with all its notes."""
    columns = listen.Columns(sound, COLUMN_S)
    for i, pitch in enumerate(MELODY):
        keys = [127 - pitch + step for step in (MINOR if NOTE_COLUMNS * i in CHORDS else (0,))]
        check(columns.finds(NOTE_COLUMNS * i + 0.25,
                            lambda piece, keys=keys: all(listen.has_key(piece, key, share=0.1) for key in keys), 8192),
              f"note {i} does not sound {where}: the keys {keys}")


def wait_for_silence(desk):
    """The note that was drawn last rings out."""
    def is_silent():
        frames = listen.frames_in(desk.recording)
        return listen.is_quiet(listen.samples(desk.recording, max(0, frames - listen.RATE)))
    wait_until(is_silent, "silence")


def play(hand):
    wait_for_silence(hand.desk)
    start = listen.frames_in(hand.desk.recording)
    hand.press(hand.main, "Play notes")
    length = NOTE_COLUMNS * len(MELODY) * COLUMN_S
    wait_until(lambda: listen.first_sound(listen.samples(hand.desk.recording, start)) is not None, "the song's sound")
    cell = hand.cell("music", 10, 5)
    check(cell.told("Name").startswith("D 5, column "), "the cells cannot be read while the song plays")
    wait_until(lambda: listen.frames_in(hand.desk.recording) > start + listen.RATE * (length + 1), "the end", length + 60)
    sound = listen.samples(hand.desk.recording, start)
    check_keys(sound[max(0, listen.first_sound(sound) - 100):], "when the song plays")


def save(hand):
    """The history saves a score as it is chosen there."""
    hand.press(hand.main, "History")
    history = hand.window("History")
    hand.press(history, "Save as score...")
    answer(hand, "tune")
    file = hand.desk.songs / "tune.sng"
    wait_until(file.exists, "the saved score")
    return file


def answer(hand, name):
    dialog = wait_until(lambda: next((child for child in hand.tree.children() if child.role() == "dialog"), None),
                        "the save dialog")
    hand.write(dialog, "File name:", hand.desk.songs / name)
    hand.press(dialog, "Save")


def check_score(file):
    notes, marks = score_text.runs(file.read_bytes())
    expected = {(0, NOTE_COLUMNS * i): (pitch, NOTE_COLUMNS, NYLON_GUITAR) for i, pitch in enumerate(MELODY)}
    expected.update({(8, column): (TOP_PITCH, 1, BASS_DRUM) for column in BEATS})
    check(notes == expected, f"{expected} were drawn, but {notes} were saved")
    check(marks == {(1, column + 1) for column in CHORDS}, f"the chord marks {marks} were saved")


def encode(hand):
    hand.press(hand.main, "Export")
    window = hand.window("Export")
    hand.write(window, "Name", "tune")
    hand.press(window, "Export")
    file = hand.desk.songs / "tune.mp3"
    wait_until(file.exists, "the MP3")
    sound = decoded(file, hand.desk.folder)
    check_keys(sound[max(0, listen.first_sound(sound) - 100):], "in the MP3")


def test(build):
    with Desk(build, manager=True) as desk:
        bus = open_bus(desk)
        announcements = Announcements(desk, bus)
        program = desk.launch()
        program.main_window()
        hand = Hand(desk, bus, program_on(bus))
        draw_melody(hand)
        erase_one_too_many(hand)
        draw_beats(hand)
        mark_chords(hand)
        play(hand)
        check_score(save(hand))
        encode(hand)
        hand.press(hand.main, "Exit")
        program.ended()


run(test)
