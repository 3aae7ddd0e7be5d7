"""The tasks of a user's first hour, with mouse and keys only. Every click, drag, key, decision and wait is counted.

Each task can be done in the way of the toolbars and their menus, and in the short way, where there is one.
"""

import contextlib
import time

import listen
from desk import BEATBOX, CELL, MUSIC_BOX, wait_until
from export_window import Exports
from recorded import AUTO_ENCODE, PREFERENCES, RECORD_PLAY, START

# The usual model of a user's time, in seconds. A decision is what the user thinks before a step that is no routine.
CLICK_S, DRAG_S, KEY_S, DECISION_S = 1.3, 2.4, 0.3, 1.35

RED, SNARE_RED, PURPLE, PANEL = (255, 0, 0), (192, 0, 0), (192, 0, 192), (34, 38, 78)

# Pitch indices of the melody, each in the first column of a bar; the key is 127 minus the index.
MELODY = [70, 68, 66, 65, 63, 61, 59, 58]
BAR = 4
COLUMN_S = 12 / 100  # at the tempo of the start
FLUTE, SNARE = 73, 131
BASS_BEATS, SNARE_BEATS = [0, 8, 16, 24, 28, 12], [4, 12, 20, 28, 30, 26]
FORMAT, CLOSE, OFFER = "Select WAV recording format", "Close", (425, 206)  # in the Recording Toolbar
COPY_TO = 36  # the first column of the copied bar
SELECT_LINE = 30  # the line on which the mouse selects, below the notes


class Count:
    """What a task took."""

    def __init__(self, name):
        self.name = name
        self.clicks = self.drags = self.keys = self.decisions = 0
        self.waited_s = 0.0

    def seconds(self):
        return (CLICK_S * self.clicks + DRAG_S * self.drags + KEY_S * self.keys + DECISION_S * self.decisions +
                self.waited_s)

    def hand(self):
        """Clicks and drags: all that the hand does with the mouse."""
        return self.clicks + self.drags


class Hand:
    """A user's hand on mouse and keyboard. It counts for the task that it is at."""

    def __init__(self, desk, program):
        self.desk, self.program = desk, program
        self.counts = []

    @contextlib.contextmanager
    def task(self, name):
        self.counts.append(Count(name))
        yield self.counts[-1]

    @property
    def now(self):
        return self.counts[-1]

    def decide(self):
        self.now.decisions += 1

    def click(self, place, decide=True):
        if decide:
            self.decide()
        self.desk.click(*place)
        self.now.clicks += 1

    def drag(self, places, decide=True):
        if decide:
            self.decide()
        self.desk.drag(places)
        self.now.drags += 1

    def key(self, *keys, decide=False):
        if decide:
            self.decide()
        self.desk.key(*keys)
        self.now.keys += len(keys)

    def type(self, text):
        self.desk.type(text)
        self.now.keys += len(text)

    def see(self, question, what, patience=60):
        """Waits until something is seen or heard. The wait counts."""
        start = time.monotonic()
        seen = wait_until(question, what, patience)
        self.now.waited_s += time.monotonic() - start
        return seen

    def see_window(self, title):
        return self.see(lambda: self.desk.windows(title), f"the window '{title}'")[-1]

    def see_colour(self, place, colour, what):
        """The pointer is moved away first: it may hide the place."""
        x, y, width, height = self.program.place
        self.desk.point(x + width // 2, y + height - 15)
        self.see(lambda: self.desk.screen.pixel(*place) == colour, what)

    @contextlib.contextmanager
    def popup(self, opens=True):
        with self.desk.popup(opens):
            yield

    def choose(self, list_place, typed):
        """Opens a list and types the beginning of an entry."""
        with self.popup():
            self.click(list_place)
        self.decide()
        self.type(str(typed))
        with self.popup(opens=False):
            self.key("Return")


class Newcomer:
    """The tasks. `program` has just been started, and its window is empty."""

    def __init__(self, desk, program):
        self.desk, self.program = desk, program
        self.hand = Hand(desk, program)
        self.exports = Exports(desk)

    def cell(self, column, pitch):
        return self.program.cell(column, pitch - 55)

    def beat(self, column):
        return self.program.cell(column, 0, BEATBOX)

    def heard_since(self, frame):
        return listen.first_sound(listen.samples(self.desk.recording, frame)) is not None

    # Drawing

    def first_note(self):
        with self.hand.task("start to first note"):
            start = listen.frames_in(self.desk.recording)
            self.hand.click(self.cell(0, MELODY[0]))
            self.hand.see(lambda: self.heard_since(start), "the sound of the first note")
        self.check_notes(1)

    def melody(self):
        """Its first note is drawn already."""
        with self.hand.task("melody of 8 notes"):
            for i, pitch in enumerate(MELODY[1:], 1):
                self.hand.click(self.cell(BAR * i, pitch))
        self.check_notes(len(MELODY))

    def check_notes(self, count):
        for i, pitch in enumerate(MELODY[:count]):
            self.program.wait_for_colour(self.cell(BAR * i, pitch), RED, f"note {i} of the melody")

    def open_editing(self):
        self.hand.click(self.program.button(10))
        self.hand.see_window("Editing Toolbar")
        self.desk.settled(self.desk.window("Editing Toolbar"))

    def close_editing(self):
        """Not counted: so that the toolbar is not in the way of the next task."""
        self.desk.click(*self.program.edit("close"))
        self.desk.no_window("Editing Toolbar")

    def change_mode(self, short):
        """The key also opens the toolbar."""
        if short:
            self.hand.key("F2", decide=True)
        else:
            self.hand.click(self.program.edit(11))

    def select(self, first, last):
        """Waits until the selection is seen: a key that follows at once may reach another window before the mouse does."""
        self.hand.drag([self.program.cell(column, SELECT_LINE) for column in range(first, last + 1)])
        self.see_selected(first, last)

    def see_selected(self, first, last):
        def is_blue(column):
            red, _, blue = self.desk.screen.pixel(*self.program.cell(column, SELECT_LINE))
            return blue > red + 50
        x, y, width, height = self.program.place
        self.desk.point(x + width // 2, y + height - 15)
        self.hand.see(lambda: is_blue(first) and is_blue(last) and not is_blue(last + 1) and not (first and is_blue(first - 1)),
                      f"the selection from {first} to {last}")

    def instrument_of_notes(self, short):
        """All notes of the channel become a flute."""
        with self.hand.task("instrument of drawn notes"):
            if not short:
                self.open_editing()
            self.change_mode(short)
            self.select(0, BAR * len(MELODY) - 1)
            self.hand.choose(self.program.setup("Combo1"), FLUTE)
            self.change_mode(short)
        self.close_editing()

    def drums(self):
        """Bass drum and snare, six beats each. A press on the strip selects its channel."""
        with self.hand.task("bass drum and snare, 12 beats"):
            self.hand.click(self.beat(BASS_BEATS[0]))
            for column in BASS_BEATS:
                self.hand.click(self.beat(column), decide=column == BASS_BEATS[0])
            self.hand.see_colour(self.beat(BASS_BEATS[-1]), PURPLE, "the last beat of the bass drum")
            self.hand.click(self.program.setup("TrackSel(10)"))
            self.hand.choose(self.program.setup("Combo5"), SNARE)
            for column in SNARE_BEATS:
                self.hand.click(self.beat(column), decide=column == SNARE_BEATS[0])
            self.hand.see_colour(self.beat(SNARE_BEATS[-1]), SNARE_RED, "the last beat of the snare")
            self.hand.click(self.program.setup("TrackSel(0)"))

    def lane(self, column):
        """A cell of the chord lane of the first channel."""
        height = self.program.place[3] - 51 - 46 - 100
        return self.program.at((MUSIC_BOX[0], MUSIC_BOX[1] + height + 1), column * CELL + 5, 3)

    def chords(self, short):
        """The notes of the channel sound as chords: by the box of the Polyphonics tab, or marked in the lane."""
        with self.hand.task("chords on a channel"):
            if short:
                self.hand.drag([self.lane(column) for column in range(BAR + 1)])
                self.hand.see_colour(self.lane(BAR), RED, "the marks in the lane")
                return
            self.hand.click(self.program.setup("polyphonics"))
            self.hand.click(self.program.setup("Ch(0)"))
            with self.hand.popup():
                self.hand.click(self.program.setup("Combo3"))
            with self.hand.popup(opens=False):
                self.hand.key("Down", "Return", decide=True)
            self.desk.click(*self.program.setup("Ch(0)"))  # off again: the sound is checked without chords
            self.desk.click(*self.program.setup("rows"))

    def copy_bar(self, short):
        with self.hand.task("copy and paste one bar"):
            if not short:
                self.open_editing()
            self.change_mode(short)
            self.select(0, BAR - 1)
            if short:
                self.hand.key("ctrl+c", decide=True)
            else:
                self.hand.click(self.program.edit(12))
            self.hand.click(self.program.cell(COPY_TO, SELECT_LINE))
            self.see_selected(COPY_TO, COPY_TO)
            if short:
                self.hand.key("ctrl+v", decide=True)
            else:
                self.hand.click(self.program.edit(14))
            self.hand.see(lambda: self.is_note_there(COPY_TO, MELODY[0]), "the copied note")
            self.change_mode(short)
        self.close_editing()

    def is_note_there(self, column, pitch):
        """A note is red, and purple in a selection; what is empty is light."""
        red, green, _ = self.desk.screen.pixel(*self.cell(column, pitch))
        return red > 100 and green < 80

    # Files

    def save(self, short, name):
        """As a score, which is the second kind of the dialog's list."""
        with self.hand.task("save a score"):
            if short:
                self.hand.key("ctrl+s", decide=True)
            else:
                self.hand.click(self.program.button(3))
            self.hand.see_window("Save music file")
            x, y, width, height = self.desk.settled(self.desk.window("Save music file"))
            with self.hand.popup():
                self.hand.click((x + width // 2, y + height - 24))
            with self.hand.popup(opens=False):
                self.hand.key("Down", "Return", decide=True)
            self.hand.click((x + width // 2, y + height - 56))
            self.hand.type(name)
            self.hand.key("Return")
            file = self.desk.songs / f"{name}.sng"
            self.hand.see(lambda: file.exists() and file.read_bytes().count(b"\r\n") == 37, "the saved score")
            self.desk.no_window("Save music file")
        return file

    def export(self, task, kind):
        """By the Export window. Its keys are Ctrl+E and Enter; a kind other than MP3 is a click on its card."""
        with self.hand.task(task):
            self.hand.key("ctrl+e", decide=True)
            self.hand.see_window("Export")
            self.exports.find()
            if kind != ".mp3":
                self.hand.click(self.exports.card(kind))
            self.hand.key("Return", decide=True)
            self.hand.see(self.exports.has_result, "the result in the window")
            file = max((file for file in self.desk.songs.glob("*" + kind)), key=lambda file: file.stat().st_mtime_ns)
        self.exports.close()
        return file

    def record(self, task, ending, prepare=()):
        """By the Recording Toolbar. `prepare` are the places that are clicked on its second tab."""
        before = set(self.desk.songs.iterdir())
        with self.hand.task(task):
            self.hand.click(self.program.button(11))
            self.hand.see_window("Recording Toolbar")
            self.desk.settled(self.desk.window("Recording Toolbar"))
            if prepare:
                self.hand.click(self.in_recording(PREFERENCES))
                for place in prepare:
                    self.prefer(place)
                self.hand.click(self.in_recording(RECORD_PLAY))
            self.hand.click(self.in_recording(START))
            file = self.hand.see(lambda: self.made(before, ending), f"the new {ending}")
        if ending == ".mp3" and not prepare:
            self.take_offer()
        self.desk.click(*self.in_recording(CLOSE))
        self.desk.no_window("Recording Toolbar")
        return file

    def take_offer(self):
        """Not counted: the MP3 of the format of the start sounds wrong, and the toolbar offers the Export window."""
        edge = self.in_recording((OFFER[0] - 40, OFFER[1] - 8))
        wait_until(lambda: self.desk.screen.pixel(*edge) != PANEL, "the offer")
        self.desk.click(*self.in_recording(OFFER))
        self.exports.find()
        self.exports.close()

    def prefer(self, place):
        """A click on a box, or the choice of the format that the list has four entries before the first one."""
        if place != FORMAT:
            return self.hand.click(self.in_recording(place))
        with self.hand.popup():
            self.hand.click(self.in_recording(place))
        with self.hand.popup(opens=False):
            self.hand.key(*["Up"] * 4, "Return", decide=True)

    def in_recording(self, place):
        return self.program.place_in("Recording Toolbar", place)

    def made(self, before, ending):
        """The new file. A WAV that is encoded is deleted last."""
        new = [file for file in set(self.desk.songs.iterdir()) - before if file.name.endswith("tmp" + ending)]
        wavs = [file for file in self.desk.songs.glob("*tmp.wav") if file not in before]
        return new[0] if new and (ending == ".wav" or not wavs) else None


def do_all(desk, short):
    """All tasks in one run of the program, which is then closed. Returns the counts and the files that were made."""
    program = desk.launch()
    program.main_window()
    user = Newcomer(desk, program)
    user.first_note()
    user.melody()
    files = {}
    if short:
        files["mp3"] = user.export("MP3 that sounds right", ".mp3")
        files["wav"] = user.export("WAV that stays", ".wav")
    else:
        files["first mp3"] = user.record("first MP3", ".mp3")
        files["mp3"] = user.record("MP3 that sounds right", ".mp3", [FORMAT])
        files["wav"] = user.record("WAV that stays", ".wav", [AUTO_ENCODE])
    user.instrument_of_notes(short)
    user.drums()
    user.chords(short)
    user.copy_bar(short)
    files["score"] = user.save(short, "short" if short else "long")
    program.end()
    return user.hand.counts, files
