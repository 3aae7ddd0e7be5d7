"""Draws notes, beats and chord marks with the keys of the pen: held keys, a note erased, undo. The pointer never moves."""

import score_text
from desk import CELL, MUSIC_BOX, Desk, check, run, wait_until

RED = (255, 0, 0)
SKY, CREAM, DARK, WHITE = (68, 204, 255), (255, 255, 192), (10, 11, 32), (255, 255, 255)
GREY = (224, 224, 224)  # of every second pair of lines
FIRST_LINE = 1  # the strip covers the line above


class Pen:
    """The keys, and where the pen must be after them."""

    def __init__(self, desk, program):
        self.desk = desk
        self.program = program
        self.height = program.place[3] - 51 - 46 - 100  # of the music tableau
        self.column = 0
        self.line = (FIRST_LINE + (self.height + 5) // CELL) // 2

    def has_ring(self):
        """The focus ring inside the lower edge of the music tableau."""
        return self.desk.screen.pixel(*self.program.at(MUSIC_BOX, 6, self.height - 1)) == SKY

    def tab_to_music(self):
        def tab():
            self.desk.key("Tab")
            return self.has_ring()
        wait_until(tab, "the music tableau with the keyboard")

    def colour(self, column, line):
        """The middle of a cell, where a note has its head."""
        return self.desk.screen.pixel(*self.program.cell(column, line))

    def is_at(self, column, line, columns=1, light=SKY):
        """The lines of the ring above and at the right of the cells, from outside."""
        x, y = self.program.at(MUSIC_BOX, column * CELL, line * CELL)
        right = x + columns * CELL
        above = [self.desk.screen.pixel(x + 6, y - step) for step in (4, 3, 2, 1)]
        beside = [self.desk.screen.pixel(right + step, y + 6) for step in (3, 2, 1, 0)]
        return above == beside == [WHITE, DARK, DARK, light]

    def go(self, columns=0, lines=0):
        self.desk.key(*["Right" if columns > 0 else "Left"] * abs(columns), *["Down" if lines > 0 else "Up"] * abs(lines))
        self.column += columns
        self.line += lines
        wait_until(lambda: self.is_at(self.column, self.line), f"the pen at {self.column}, {self.line}")

    def draw(self, length):
        """Holds Enter and goes on; the ring grows and is cream."""
        self.desk.tool("keydown", "Return")
        self.desk.key(*["Right"] * (length - 1))
        wait_until(lambda: self.is_at(self.column, self.line, length, CREAM), "the ring of a held pen")
        self.desk.tool("keyup", "Return")
        self.column += length - 1
        wait_until(lambda: self.is_at(self.column, self.line), "the ring of one cell")


def draw_notes(pen):
    """Returns the notes that must be there, from the pitch of the first."""
    desk = pen.desk
    pen.tab_to_music()
    desk.key("Right")  # only shows it
    wait_until(lambda: pen.is_at(pen.column, pen.line), "the pen")
    check(not pen.has_ring(), "the focus ring is there beside the pen")
    pen.draw(1)
    pen.go(2, -2)
    pen.draw(3)
    desk.key("ctrl+Right")
    pen.column += 4
    pen.go(0, 1)
    pen.draw(2)
    pen.go(1, 0)
    return {(0, 0): (0, 1), (0, 2): (-2, 3), (0, 8): (-1, 2)}


def erase_and_take_back(pen):
    """At column 9 of the last note; each step is one change."""
    desk = pen.desk
    head = (8, pen.line)
    pen.go(-1, 0)
    wait_until(lambda: pen.colour(*head) == RED, "the last note")
    desk.key("Delete")
    wait_until(lambda: pen.colour(*head) != RED, "the erased note")
    desk.key("ctrl+z")
    wait_until(lambda: pen.colour(*head) == RED, "the note that was taken back")
    desk.key("ctrl+z")
    wait_until(lambda: pen.colour(*head) != RED, "the drawing taken back")
    desk.key("ctrl+y")
    wait_until(lambda: pen.colour(*head) == RED, "the drawing again")


def draw_beats(pen):
    pen.desk.key("Tab", "Right")
    pen.desk.key("Return")  # only chooses the drums
    pen.desk.key("Return", "ctrl+Right", "Return")
    return {(8, 0), (8, 4)}


def mark_lanes(pen):
    """Down through three lanes with the key held."""
    pen.desk.key("Tab", "Right", "Right", "Right")
    pen.desk.tool("keydown", "Return")
    pen.desk.key("Down", "Down")
    pen.desk.tool("keyup", "Return")
    return {(1, 3), (2, 3), (3, 3)}


def save(desk):
    desk.key("Escape", "ctrl+s")
    desk.choose_file("Save music file", "drawn", save_filter=1)
    kept = desk.songs / "drawn.sng"
    wait_until(kept.exists, "the saved score")
    return score_text.runs(kept.read_bytes())


def test(build):
    with Desk(build, manager=True) as desk:
        program = desk.launch()
        program.main_window()
        desk.window("Setup Toolbar")
        desk.point(program.place[0] + program.place[2] // 2, program.place[1] + 10)
        desk.tool("windowactivate", "--sync", program.window)
        pen = Pen(desk, program)
        wanted = draw_notes(pen)
        erase_and_take_back(pen)
        beats = draw_beats(pen)
        marks = mark_lanes(pen)
        notes, got_marks = save(desk)
        first = notes[0, 0][0]
        got = {place: (pitch - first, length) for place, (pitch, length, _) in notes.items() if place[0] == 0}
        check(got == wanted, f"the notes are {got}")
        check({place for place in notes if place[0] == 8} == beats, f"the beats are in {notes}")
        check(got_marks == marks, f"the marks are {got_marks}")
        program.end()


run(test)
