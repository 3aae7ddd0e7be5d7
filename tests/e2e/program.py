"""One run of the program: the places of its controls, and the actions of a user."""

import subprocess

from places import BUTTONS, EDIT, PLACES, SETUP
from waiting import PATIENCE_S, Failure, check, wait_until

# Parts of the main window, in its own pixels. They do not move when it is resized.
TOOLBAR = (26, 25)
WORK_AREA = (26, 71)
MUSIC_BOX = (WORK_AREA[0] + 29, WORK_AREA[1] + 25)
BEATBOX = (MUSIC_BOX[0], WORK_AREA[1] + 23)
CELL = 12


class Program:
    """One run of the program."""

    # Qt says the second when a window is shown again before the server has answered, on a busy machine.
    KNOWN_LINES = ("QStandardPaths: ", "QXcbWindow::setNetWmStateOnUnmappedWindow() called on mapped window")
    PREFIX = ()  # put before the command

    def __init__(self, desk):
        self.desk = desk
        self.errors = desk.folder / f"errors-{len(desk.programs)}.txt"
        self.process = desk.start([*self.PREFIX, str(desk.program_folder / "velorin")],
                                  stderr=open(self.errors, "wb"), cwd=desk.folder)

    def main_window(self):
        """Waits for the main window; stores and returns its place."""
        self.window = self.desk.window("Velorin")
        self.place = self.desk.settled(self.window)
        return self.place

    def take_keyboard(self):
        """Gives the main window the keyboard. A click does so too, but only when the program handles it."""
        self.desk.tool("windowfocus", "--sync", self.window)

    def at(self, part, dx, dy):
        """A place of the main window on the screen."""
        return self.place[0] + part[0] + dx, self.place[1] + part[1] + dy

    def cell(self, column, line, part=MUSIC_BOX):
        """The middle of a cell of a tableau."""
        return self.at(part, column * CELL + 6, line * CELL + 6)

    def wait_for_colour(self, place, colour, what, shown=True):
        """Waits until a place on the screen has a colour, or does not have it any more. Moves the pointer away first."""
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
        """A place on the screen: of a control by its name, or of a place in the window's own pixels."""
        if isinstance(inside, str):
            inside = self.place_of_control(title, inside)
        x, y, *_ = self.desk.place_of(self.desk.window(title))
        return x + inside[0], y + inside[1]

    def place_of_control(self, title, name):
        """A place on a control, in the window's own pixels."""
        if not self.desk.names:
            return PLACES[title][name]
        x, y, width, height = self.desk.names.place(self.process.pid, title, name)
        return x + width // 2, y + height // 2

    def choose_instrument(self, entry, combo="Combo1"):
        """Opens a list of the Setup Toolbar and types the beginning of an entry."""
        with self.desk.popup():
            self.desk.click(*self.setup(combo))
        self.desk.type(entry)
        with self.desk.popup(opens=False):
            self.desk.key("Return")

    def button(self, index):
        """A place on a button of the main window, by its number."""
        return self.at((0, 0), *self.place_of_control("Velorin", BUTTONS[index]))

    def press(self, index):
        self.desk.click(*self.button(index))

    def end(self):
        """Presses the exit button. The program must end with status 0 and nothing on standard error."""
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
