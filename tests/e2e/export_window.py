"""The Export window as a user sees it."""

from desk import wait_until

WINDOW = "Export"
CARDS = {".mp3": 0, ".wav": 1, ".mid": 2, ".html": 3, ".png": 4}
NAME = (300, 165)
EXPORT = (503, 361)  # "Cancel" is at the same place
PLAY, SHOW = (50, 361), (173, 361)
CLOSE = (551, 14)
RESULT, RESULT_SIZE = (42, 311), (170, 18)  # the text begins here, "boat.mid is ready"
PLATE, PLATE_GROUND = (550, 309), (44, 49, 100)  # shown with a result, good or bad


class Exports:
    """The window, and its places on the screen."""

    def __init__(self, desk):
        self.desk = desk

    def open(self):
        self.desk.key("ctrl+e")
        self.find()

    def find(self):
        """Waits until the window is painted and does not move."""
        x, y, *_ = self.desk.settled(self.desk.window(WINDOW))
        self.corner = (x, y)

    def at(self, place):
        return self.corner[0] + place[0], self.corner[1] + place[1]

    def card(self, kind):
        return self.at((8 + 113 * CARDS[kind] + 52, 84))

    def press(self, place):
        self.desk.click(*self.at(place))

    def choose(self, kind):
        self.desk.click(*self.card(kind))

    def has_result(self):
        return self.desk.screen.pixel(*self.at(PLATE)) == PLATE_GROUND

    def export_another(self):
        """Exports, and waits for a result with another text than the one in the window."""
        before = self.result()
        self.press(EXPORT)
        wait_until(lambda: self.has_result() and self.result() != before, "another result in the window")

    def result(self):
        return self.desk.screen.part(*self.at(RESULT), *RESULT_SIZE)

    def close(self):
        self.press(CLOSE)
        self.desk.no_window(WINDOW)
