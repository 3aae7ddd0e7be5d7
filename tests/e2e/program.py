"""One run of the program: where its controls are, and what a user does with them."""

import subprocess

from waiting import PATIENCE_S, Failure, check, wait_until

# Parts of the main window, in its own pixels; they stand still when it is resized.
BUTTON_LEFT = [None, 8, 46, 84, 134, 184, 222, 260, 298, 348, 386, 424, 462, 512, 550]
TOOLBAR = (26, 25)
WORK_AREA = (26, 71)
MUSIC_BOX = (WORK_AREA[0] + 29, WORK_AREA[1] + 25)
BEATBOX = (MUSIC_BOX[0], WORK_AREA[1] + 23)
CELL = 12

# Places in the Setup Toolbar, in its own pixels; those of the second and third tab lie behind them.
SETUP = {"rows": (96, 49), "polyphonics": (209, 49), "setup": (285, 49), "close": (511, 14),
         "Combo1": (406, 109), "Combo5": (406, 195)}
SETUP.update({f"TrackSel({row})": (43 + 34 * row, 108) for row in range(8)})
SETUP.update({f"TrackSel({row})": (43 + 34 * place, 194) for place, row in enumerate([8, 10, 11, 12, 9])})
SETUP.update({f"TrackHide({row})": (43 + 34 * row, 133) for row in range(8)})
SETUP.update({f"TrackHide({row})": (43 + 34 * place, 219) for place, row in enumerate([8, 10, 11, 12, 9])})

SETUP.update({"Chkpoly": (31, 85), "Combo3": (317, 85), "tempo": (300, 82), "Combo2": (317, 125), "volume": (300, 157)})
SETUP.update({f"Ch({row})": (143 + 46 * row, 163) for row in range(8)})
SETUP.update({f"Chkstrum({row})": (143 + 46 * row, 205) for row in range(8)})

# And in the Editing Toolbar: the buttons by their numbers, and the boxes.
EDIT = {1: 336, 2: 370, 3: 404, 4: 448, 5: 482, 6: 516, 7: 550, 8: 584, 9: 628, 10: 662,
        11: 30, 12: 74, 13: 108, 14: 142, 15: 176, 16: 210, 17: 286}
EDIT = {button: (x, 57) for button, x in EDIT.items()}
EDIT.update({"Text1": (243, 57), "Text5": (81, 98), "Text4": (225, 98), "Text3": (363, 98), "close": (671, 14)})


class Program:
    """One run of the program."""

    KNOWN_LINES = ("QStandardPaths: ",)
    PREFIX = ()  # of the command

    def __init__(self, desk):
        self.desk = desk
        self.errors = desk.folder / f"errors-{len(desk.programs)}.txt"
        self.process = desk.start([*self.PREFIX, str(desk.program_folder / "velorin")],
                                  stderr=open(self.errors, "wb"), cwd=desk.folder)

    def main_window(self):
        """Waits for the main window; remembers and returns its place."""
        self.window = self.desk.window("Velorin")
        self.place = self.desk.settled(self.window)
        return self.place

    def at(self, part, dx, dy):
        """A place of the main window on the screen."""
        return self.place[0] + part[0] + dx, self.place[1] + part[1] + dy

    def cell(self, column, line, part=MUSIC_BOX):
        """The middle of a cell of a tableau."""
        return self.at(part, column * CELL + 6, line * CELL + 6)

    def wait_for_colour(self, place, colour, what, shown=True):
        """Until a place on the screen has a colour, or has it no longer. The pointer is taken away from there."""
        x, y, width, height = self.place
        self.desk.point(x + width // 2, y + height - 15)
        wait_until(lambda: (self.desk.screen.pixel(*place) == colour) == shown, what)

    def setup(self, control):
        """A place in the Setup Toolbar on the screen."""
        return self.place_in("Setup Toolbar", SETUP[control])

    def edit(self, control):
        """A place in the Editing Toolbar on the screen."""
        return self.place_in("Editing Toolbar", EDIT[control])

    def place_in(self, title, inside):
        x, y, *_ = self.desk.place_of(self.desk.window(title))
        return x + inside[0], y + inside[1]

    def choose_instrument(self, entry, combo="Combo1"):
        """Opens a list of the Setup Toolbar and types the beginning of an entry."""
        with self.desk.popup():
            self.desk.click(*self.setup(combo))
        self.desk.type(entry)
        with self.desk.popup(opens=False):
            self.desk.key("Return")

    def button(self, index):
        return self.at(TOOLBAR, BUTTON_LEFT[index] + 18, 5 + 18)

    def press(self, index):
        self.desk.click(*self.button(index))

    def end(self):
        """Presses the exit button; the program must end with status 0 and without a complaint."""
        self.press(14)
        self.ended()

    def ended(self, status=0):
        try:
            got = self.process.wait(PATIENCE_S)
        except subprocess.TimeoutExpired:
            raise Failure("the program does not end") from None
        check(got == status, f"the program ended with status {got}\n{self.complaints()}")
        check(not self.complaints(), f"on standard error: {self.complaints()}")

    def complaints(self):
        lines = self.errors.read_text("utf-8", "replace").splitlines()
        return "\n".join(line for line in lines if not line.startswith(self.KNOWN_LINES))
