"""Drives the Tutorial Wizard with the mouse: its tabs, its steps and their hints."""

import itertools
import os
import time

from desk import LEFT, check, wait_until

# Places in the wizard's window, in its own pixels.
TABS = {"Composition": 60, "Polyphonics": 152, "Percussion": 243, "Editing": 325, "Recording": 430, "Midi": 512,
        "Setup": 580}
TAB_TOP = 50
FIRST_STEP = (80, 132)
STEP_HEIGHT = 24
SHOW_TIPS = (565, 451)  # inside its box, beside the tick
CLOSE = (647, 14)

# The lesson Midi has a heading above this step, which moves it and the following steps down by a line.
BEHIND_HEADING = 2

END_OF_BAR = 420  # of the highlight of a step

PAPER, BAR = (255, 255, 255), (68, 74, 134)
NOTES = ((255, 0, 0), (0, 0, 255))

# The ways to close a hint so that its step is performed. The steps use them in turn.
CLOSINGS = ("text", "double click", "button", "Return", "space")

# The time that a busy machine may need for a song and its waits.
SONG_PATIENCE_S = 90


class Wizard:
    """The window of the tutorial, opened with its button and moved to a place where nothing overlaps it.

    The next time it opens at that place.
    If VELORIN_TUTORIAL_PICTURES names a folder, the screen is saved there at every hint and after every step.
    """

    def __init__(self, desk, program, moved=False):
        self.desk = desk
        program.press(12)
        self.window = desk.window(" Tutorial Wizard")
        if not moved:
            x, y, *_ = desk.settled(self.window)
            desk.drag([(x + 300, y + 14), (x + 500, y - 50), (x + 740, y - 136)])
            wait_until(lambda: desk.place_of(self.window)[0] > x + 300, "the wizard in the corner")
        self.left, self.top, *_ = desk.settled(self.window)
        self.pictures = os.environ.get("VELORIN_TUTORIAL_PICTURES")
        if self.pictures:
            os.makedirs(self.pictures, exist_ok=True)
        self.closings = itertools.cycle(CLOSINGS)
        self.lesson = ""
        self.steps = set()
        self.double_clicked = None

    def close(self):
        self.desk.click(self.left + CLOSE[0], self.top + CLOSE[1])
        self.desk.no_window(" Tutorial Wizard")

    def choose(self, lesson):
        self.lesson = lesson
        self.wait_until_free()
        self.desk.click(self.left + TABS[lesson], self.top + TAB_TOP)

    def is_free(self):
        """While a song plays, the wizard takes no clicks, and the box at its bottom is grey."""
        return self.desk.screen.pixel(self.left + SHOW_TIPS[0], self.top + SHOW_TIPS[1]) == PAPER

    def wait_until_free(self):
        wait_until(self.is_free, "the wizard to accept clicks", SONG_PATIENCE_S)

    def step(self, index, until=None, meanwhile=None, pause=0):
        """Clicks a step and closes its hint. Waits for its effect and for the end of its sound.

        `meanwhile` is called after the hint is closed, for what a user does while the step waits for it. `pause` is
        the time in seconds that the step waits at its end, which nothing shows.
        """
        self.wait_until_free()
        line = index + (self.lesson == "Midi" and index >= BEHIND_HEADING)
        if not self.steps:
            self.decline(line)
        self.click_on(self.top + FIRST_STEP[1] + STEP_HEIGHT * line)
        hint = self.desk.window("Velorin Wizard")
        place = self.desk.settled(hint)
        self.keep(f"{index:02}-hint")
        self.close_hint(place, next(self.closings))
        self.desk.no_window("Velorin Wizard")
        if meanwhile:
            meanwhile()
        if until:
            wait_until(until, f"the effect of step {index} of the lesson {self.lesson}", SONG_PATIENCE_S)
        self.wait_until_free()
        time.sleep(pause)
        self.keep(f"{index:02}-done")
        if self.double_clicked:
            check(self.desk.screen.pixel(*self.double_clicked) not in NOTES, "a double click on a hint drew a note")
        self.double_clicked = None
        self.steps.add((self.lesson, index))

    def decline(self, line):
        """Escape closes a hint without performing its step."""
        self.click_on(self.top + FIRST_STEP[1] + STEP_HEIGHT * line)
        self.desk.settled(self.desk.window("Velorin Wizard"))
        self.desk.key("Escape")
        self.desk.no_window("Velorin Wizard")

    def click_on(self, y):
        """Clicks a step once it is highlighted: just after a dialog closes, a window does not notice the mouse yet."""
        places = itertools.cycle((self.left + FIRST_STEP[0], self.left + FIRST_STEP[0] + 1))

        def is_seen():
            self.desk.point(next(places), y)
            return self.desk.screen.pixel(self.left + END_OF_BAR, y) == BAR
        wait_until(is_seen, "the wizard to notice the mouse", SONG_PATIENCE_S)
        self.desk.tool("mousedown", LEFT, "mouseup", LEFT)

    def close_hint(self, place, by):
        x, y, width, height = place
        if by == "text":
            self.desk.click(x + 120, y + 60)
        elif by == "double click":
            # At the left edge, which is above the tableau: the second press must not draw there.
            self.double_clicked = (x + 14, y + height - 20)
            self.desk.tool("mousemove", *self.double_clicked, "click", "--repeat", 2, "--delay", 60, LEFT)
        elif by == "button":
            self.desk.click(x + width - 18, y + 13)
        else:
            self.desk.key(by)

    def keep(self, name):
        if self.pictures:
            self.desk.screen.write_png(f"{self.pictures}/{self.lesson}-{name}.png", *self.desk.size)
