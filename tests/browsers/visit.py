"""A visit to a song page, and the list of checks. The first line of text of a check is its name."""

import song
from waiting import check
from webdriver import wait_until

AUDIO = "document.getElementById('sound')"
MARKER_X = ("document.getElementById('marker').getBoundingClientRect().left"
            " - document.getElementById('song').getBoundingClientRect().left")
# The marker is a third from the left, give or take what the sheet still has to scroll.
FOLLOWS = (f"Math.abs({MARKER_X} - document.getElementById('roll').scrollLeft"
           " - document.getElementById('roll').clientWidth / 3) < 40")
HALF_A_PIXEL = 0.5
SECONDS_OF_A_PIXEL = song.COLUMN_S / song.COLUMN_PX

ALL = []


def listed(function):
    ALL.append(function)
    return function


class Visit:
    """A browser with the tools of a check."""

    def __init__(self, browser, network, sounds, files):
        self.browser = browser
        self.network = network
        self.sounds = sounds
        self.files = files
        browser.allow_scripts(True)
        browser.print_look(False)
        browser.prefer_less_motion(False)

    def open(self, page=None, width=1200, height=900):
        self.browser.resize(width, height)
        self.browser.read_logs()
        self.browser.requested.clear()
        self.browser.complaints.clear()
        self.browser.open(page or self.files.page)
        self.browser.wait_for(f"{AUDIO}.readyState > 0", "the sound of the page")
        return self.browser

    def time(self):
        return self.browser.run(f"return {AUDIO}.currentTime")

    def marker_x(self):
        return self.browser.run(f"return {MARKER_X}")

    def seek(self, seconds):
        self.browser.run(f"{AUDIO}.currentTime = arguments[0]", seconds)
        self.wait_for_seek()

    def wait_for_seek(self):
        self.browser.wait_for(f"!{AUDIO}.seeking", "the end of a seek")

    def wait_for_column(self, column):
        """Waits until the sound is at the start of a column."""
        wait_until(lambda: abs(self.time() - song.start_of(column)) < SECONDS_OF_A_PIXEL,
                   f"column {column}; the sound is at {self.time()} s")

    def wait_for_marker(self, column):
        wait_until(lambda: abs(self.marker_x() - column * song.COLUMN_PX) <= HALF_A_PIXEL,
                   f"the marker at column {column}; it is at {self.marker_x()} px")

    def middle_of(self, selector):
        box = self.browser.run("const b = document.querySelector(arguments[0]).getBoundingClientRect();"
                               "return [b.left, b.top, b.width, b.height]", selector)
        return box[0] + box[2] / 2, box[1] + box[3] / 2

    def label(self):
        return self.browser.label_of("#play")


def close_to(value, expected, tolerance, what):
    check(abs(value - expected) <= tolerance, f"{what} is {value}, not {expected}")
